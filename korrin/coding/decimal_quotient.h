#pragma once

// The nearest double of a decimal of few digits, found without looking at its text again.

#include <array>
#include <bit>
#include <cfloat>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace korrin::json {

namespace detail {

inline constexpr std::array exactPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

#ifdef __SIZEOF_INT128__

// The other way takes the same time for all digits, where the border of 53 bits would divide what
// documents hold at random.
inline constexpr std::uint64_t exactLimit = 1'000'000'000'000'000;

__extension__ using Wide = unsigned __int128;

/// One divided by a power of five, as `high` and `low` side by side times 2 to the power -`shift`,
/// too small by less than one unit of these 128 bits; the highest of them is set.
struct Reciprocal {
  std::uint64_t high;
  std::uint64_t low;
  int shift;
};

/// By the power. 5^27 is the last one that fits 63 bits.
inline constexpr std::array<Reciprocal, 28> reciprocals = [] {
  std::array<Reciprocal, 28> table{};
  std::uint64_t power = 1;
  for (std::size_t k = 1; k < table.size(); ++k) {
    power *= 5;
    const auto width = static_cast<int>(std::bit_width(power));
    const Wide one = Wide{1} << (width + 63);
    table[k] = {static_cast<std::uint64_t>(one / power),
                static_cast<std::uint64_t>((one % power << 64) / power), width + 127};
  }
  return table;
}();

/// An integer of 53 bits, or 2^53, times 2 to the power `exponent`; a normal double.
inline double scaled(std::uint64_t integer, int exponent) {
  // The highest bit, which no double stores, and a carry into it count the exponent up.
  return std::bit_cast<double>((static_cast<std::uint64_t>(exponent + 1074) << 52) + integer);
}

/// `nearestQuotient` by all 128 bits of the reciprocal; not a number where it is not sure.
double byWholeReciprocal(std::uint64_t digits, std::size_t decimals);

/// `nearestQuotient` of digits that are not 0, for a power that the table has; not a number where
/// it is not sure.
inline double byReciprocal(std::uint64_t digits, std::size_t decimals) {
  const Reciprocal& reciprocal = reciprocals[decimals];
  const int toTheLeft = std::countl_zero(digits);
  Wide product = Wide{digits << toTheLeft} * reciprocal.high;
  // The highest bit is as good as drawn by lot: a branch would be guessed wrong every other time.
  const int isLower = (product >> 127) == 0;
  product <<= isLower;
  // Without the lower half of the reciprocal the product's upper half is below the right one, by
  // less than 3. A double holds its upper 53 bits; the 11 others say how to round, unless what is
  // missing could lift them to one half.
  const auto upper = static_cast<std::uint64_t>(product >> 64);
  if ((upper & 0x7FE) == 0x3FE) [[unlikely]]
    return byWholeReciprocal(digits, decimals);
  const int exponent = 139 - reciprocal.shift - static_cast<int>(decimals) - toTheLeft - isLower;
  return scaled((upper >> 11) + (upper >> 10 & 1), exponent);
}

#else

inline constexpr std::uint64_t exactLimit = std::uint64_t{1} << 53;

#endif

}  // namespace detail

/// The double nearest to `digits` divided by ten to the power `decimals`, which is not negative;
/// halves go to the even one. Not a number where this way is not sure of it: for more than 27
/// decimals, for about one quotient in 2^70, and for hard ones where the compiler has no integers
/// of 128 bits. (g++ would pass a `std::optional` through memory.)
inline double nearestQuotient(std::uint64_t digits, std::int64_t decimals) {
  const auto place = static_cast<std::size_t>(decimals);
  // Both operands are exact, so the quotient is the nearest double, if it is rounded only once.
  // Dividing by one takes less time than finding out that one need not.
  if (FLT_EVAL_METHOD == 0 && digits <= detail::exactLimit &&
      place < detail::exactPowersOfTen.size())
    return static_cast<double>(static_cast<std::int64_t>(digits)) / detail::exactPowersOfTen[place];
  if (decimals == 0) return static_cast<double>(digits);
#ifdef __SIZEOF_INT128__
  if (digits != 0 && place < detail::reciprocals.size()) return detail::byReciprocal(digits, place);
#endif
  return std::numeric_limits<double>::quiet_NaN();
}

}  // namespace korrin::json
