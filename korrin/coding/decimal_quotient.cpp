#include "korrin/coding/decimal_quotient.h"

#ifdef __SIZEOF_INT128__

namespace korrin::json {

// The reciprocal is too small by less than one unit of its 128 bits, so that the product's upper
// 128 bits are right or too small by less than 2: with the shift below by less than 4.
double detail::byWholeReciprocal(std::uint64_t digits, std::size_t decimals) {
  const Reciprocal& reciprocal = reciprocals[decimals];
  const int toTheLeft = std::countl_zero(digits);
  const std::uint64_t factor = digits << toTheLeft;
  Wide product = Wide{factor} * reciprocal.high + (Wide{factor} * reciprocal.low >> 64);
  const int isLower = (product >> 127) == 0;
  product <<= isLower;
  // A double holds the upper 53 bits. Where the others are next to one half, what was cut off
  // decides.
  constexpr int otherBits = 75;
  constexpr Wide half = Wide{1} << (otherBits - 1);
  const Wide rest = product & ((half << 1) - 1);
  if (rest > half - 4 && rest <= half) return std::numeric_limits<double>::quiet_NaN();
  const int exponent = 139 - reciprocal.shift - static_cast<int>(decimals) - toTheLeft - isLower;
  return scaled(static_cast<std::uint64_t>(product >> otherBits) + (rest > half), exponent);
}

}  // namespace korrin::json

#endif
