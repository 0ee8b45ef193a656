#include "korrin/coding/decimal_quotient.h"

#include <array>
#include <bit>
#include <cstddef>

namespace korrin::json {
namespace {

#ifdef __SIZEOF_INT128__

__extension__ using Wide = unsigned __int128;

// 5^27 is the last power of five that fits 63 bits.
constexpr std::size_t powerCount = 28;

// One divided by a power of five, as `fraction` times 2 to the power -`shift`, rounded down; the
// highest bit of `fraction` is set.
struct Reciprocal {
  std::uint64_t high;
  std::uint64_t low;
  int shift;
};

constexpr std::array<Reciprocal, powerCount> reciprocals = [] {
  std::array<Reciprocal, powerCount> table{};
  std::uint64_t power = 1;
  for (std::size_t k = 1; k < powerCount; ++k) {
    power *= 5;
    const auto width = static_cast<int>(std::bit_width(power));
    const Wide one = Wide{1} << (width + 63);
    table[k] = {static_cast<std::uint64_t>(one / power),
                static_cast<std::uint64_t>((one % power << 64) / power), width + 127};
  }
  return table;
}();

// The digits, shifted to the left end of 64 bits, times the reciprocal. The reciprocal is too small
// by less than one unit of its 128 bits, so that the product's upper 128 bits are right or too
// small by less than 2: with the shift below by less than 4.
std::optional<double> byReciprocal(std::uint64_t digits, std::size_t decimals) {
  const Reciprocal& reciprocal = reciprocals[decimals];
  const int toTheLeft = std::countl_zero(digits);
  const std::uint64_t factor = digits << toTheLeft;
  Wide product = Wide{factor} * reciprocal.high + (Wide{factor} * reciprocal.low >> 64);
  // The highest bit is as good as drawn by lot: a branch would be guessed wrong every other time.
  const int isLower = (product >> 127) == 0;
  product <<= isLower;
  const int exponent = 64 - reciprocal.shift - static_cast<int>(decimals) - toTheLeft - isLower;
  // A double holds the upper 53 bits. Where the others are next to one half, what was cut off
  // decides.
  constexpr int otherBits = 75;
  constexpr Wide half = Wide{1} << (otherBits - 1);
  const Wide rest = product & ((half << 1) - 1);
  if (rest > half - 4 && rest <= half) return std::nullopt;
  const std::uint64_t upper = static_cast<std::uint64_t>(product >> otherBits) + (rest > half);
  // A power of two between 2^-142 and 2^12: the product is exact.
  const auto power = static_cast<std::uint64_t>(1023 + exponent + otherBits) << 52;
  return static_cast<double>(upper) * std::bit_cast<double>(power);
}

#endif

}  // namespace

std::optional<double> detail::nearestInexactQuotient(std::uint64_t digits, std::int64_t decimals) {
  if (decimals == 0) return static_cast<double>(digits);
#ifdef __SIZEOF_INT128__
  const auto place = static_cast<std::size_t>(decimals);
  if (digits != 0 && place < powerCount) return byReciprocal(digits, place);
#endif
  return std::nullopt;
}

}  // namespace korrin::json
