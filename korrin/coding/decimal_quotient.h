#pragma once

// The nearest double of a decimal of few digits, found without looking at its text again.

#include <array>
#include <bit>
#include <cfloat>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace korrin::json {

/// The most decimals that `nearestQuotient` takes.
inline constexpr std::size_t mostDecimals = 18;

namespace detail {

/// Up to here both operands of a division are exact, with a margin: the other way takes the same
/// time for all digits, where the border of 53 bits would divide what documents hold at random. A
/// machine that rounds a quotient twice divides nothing but 0.
inline constexpr std::uint64_t exactLimit = FLT_EVAL_METHOD == 0 ? 1'000'000'000'000'000 : 0;

inline constexpr std::array<double, mostDecimals + 1> exactPowersOfTen = {
    1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8, 1e9,
    1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18};

/// The upper 64 bits of the product, by products of 32 bits.
constexpr std::uint64_t upperProductInHalves(std::uint64_t a, std::uint64_t b) {
  constexpr std::uint64_t low = 0xFFFFFFFFu;
  const std::uint64_t cross = (a >> 32) * (b & low) + ((a & low) * (b & low) >> 32);
  const std::uint64_t otherCross = (a & low) * (b >> 32) + (cross & low);
  return (a >> 32) * (b >> 32) + (cross >> 32) + (otherCross >> 32);
}

/// The upper 64 bits of the product.
constexpr std::uint64_t upperProduct(std::uint64_t a, std::uint64_t b) {
#ifdef __SIZEOF_INT128__
  __extension__ using Wide = unsigned __int128;
  return static_cast<std::uint64_t>(Wide{a} * b >> 64);
#else
  return upperProductInHalves(a, b);
#endif
}

/// One divided by a power of ten: `bits` times a power of two, too small by at most one unit of
/// these 64 bits, the highest of which is set.
struct Reciprocal {
  std::uint64_t bits;
  /// What a double's exponent field holds, less one, if the product with an integer of 64 bits has
  /// 128 bits.
  int exponent;
};

/// By the power.
inline constexpr std::array<Reciprocal, mostDecimals + 1> reciprocals = [] {
  // The field for an integer of 64 bits, less one: the highest bit of the 53 that a double has of
  // them is not stored, and counts the field up.
  constexpr int exponentOf64Bits = 1075 + 11 - 1;
  std::array<Reciprocal, mostDecimals + 1> table{};
  std::uint64_t power = 1;  // of five; that of two goes into the exponent
  for (std::size_t k = 0; k < table.size(); ++k, power *= 5) {
    const auto width = static_cast<int>(std::bit_width(power));
    // 2 to the power (63 + width), divided by `power` bit by bit. Of 1 too this is less by one
    // unit, so that halves are left to others there as well.
    std::uint64_t rest = std::uint64_t{1} << (width - 1);
    std::uint64_t quotient = 0;
    for (int bit = 0; bit < 64; ++bit) {
      rest <<= 1;
      quotient = quotient << 1 | (rest >= power ? 1 : 0);
      if (rest >= power) rest -= power;
    }
    table[k] = {quotient, exponentOf64Bits + 1 - width - static_cast<int>(k)};
  }
  return table;
}();

/// `nearestQuotient` of digits that are not 0.
inline std::optional<double> byReciprocal(std::uint64_t digits, std::size_t decimals) {
  const Reciprocal& reciprocal = reciprocals[decimals];
  const int toTheLeft = std::countl_zero(digits);
  std::uint64_t upper = upperProduct(digits << toTheLeft, reciprocal.bits);
  // The highest bit is as good as drawn by lot: a branch would be guessed wrong every other time.
  const int isLower = upper >> 63 == 0;
  upper <<= isLower;
  // Too small by less than 3, and never right. A double holds the upper 53 bits; the 11 others say
  // how to round, unless what is missing could lift them to one half.
  if ((upper & 0x7FE) == 0x3FE) [[unlikely]]
    return std::nullopt;
  const std::uint64_t rounded = ((upper >> 10) + 1) >> 1;  // 53 bits, or 2^53
  const auto exponent = static_cast<std::uint64_t>(reciprocal.exponent - toTheLeft - isLower);
  return std::bit_cast<double>((exponent << 52) + rounded);
}

}  // namespace detail

/// The double nearest to `digits` divided by ten to the power `decimals`, which is at most
/// `mostDecimals`; halves go to the even one. Nothing for about one quotient in a thousand, where
/// this way is not sure of it.
inline std::optional<double> nearestQuotient(std::uint64_t digits, std::size_t decimals) {
  // Dividing by one takes less time than finding out that one need not.
  if (digits <= detail::exactLimit)
    return static_cast<double>(static_cast<std::int64_t>(digits)) /
           detail::exactPowersOfTen[decimals];
  return detail::byReciprocal(digits, decimals);
}

}  // namespace korrin::json
