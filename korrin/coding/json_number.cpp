#include "korrin/coding/json_number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

#include <fast_float/fast_float.h>

namespace korrin::json {
namespace {

bool isNegativeZero(double value) { return value == 0 && std::signbit(value); }

// A number taken apart: its significant digits, read as 0.ddd, times ten to the power `exponent`.
struct Decimal {
  bool isNegative = false;
  std::string_view digits;  // from the first to the last digit that is not 0; may hold the point
  std::int64_t digitCount = 0;
  std::int64_t exponent = 0;
};

// Far beyond any exponent that the digits of a text in memory could make up for.
constexpr std::int64_t exponentLimit = std::int64_t{1} << 60;

std::int64_t readExponent(std::string_view text) {
  if (text.empty()) return 0;
  text.remove_prefix(1);  // e or E
  const bool isNegative = text.front() == '-';
  if (isNegative || text.front() == '+') text.remove_prefix(1);
  std::int64_t value = 0;
  for (const char digit : text) value = std::min(value * 10 + (digit - '0'), exponentLimit / 16);
  return isNegative ? -value : value;
}

Decimal takeApart(std::string_view text) {
  Decimal number;
  number.isNegative = text.front() == '-';
  if (number.isNegative) text.remove_prefix(1);
  const std::size_t mantissaLength = std::min(text.find_first_of("eE"), text.size());
  const std::string_view mantissa = text.substr(0, mantissaLength);
  const std::size_t first = mantissa.find_first_of("123456789");
  if (first == std::string_view::npos) return number;

  const std::size_t last = mantissa.find_last_of("123456789");
  const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
  number.digits = mantissa.substr(first, last - first + 1);
  const bool holdsPoint = first < point && point < last;
  number.digitCount = std::ssize(number.digits) - (holdsPoint ? 1 : 0);
  // Digits before the point count up, zeros between the point and the first digit count down.
  const auto distance = static_cast<std::int64_t>(point) - static_cast<std::int64_t>(first);
  number.exponent =
      readExponent(text.substr(mantissaLength)) + (distance > 0 ? distance : distance + 1);
  return number;
}

// The first `integerDigits` significant digits as an integer, raised by one when `roundUp`, signed
// and counted from `origin`, which is not negative; nothing when that does not fit.
std::optional<std::int64_t> integerPart(const Decimal& number, std::int64_t integerDigits,
                                        bool roundUp, std::int64_t origin) {
  // Counted from a distant origin, 20 digits may fit.
  if (integerDigits > 20) return std::nullopt;
  std::uint64_t magnitude = 0;
  auto digit = number.digits.begin();
  for (std::int64_t place = 0; place < integerDigits; ++place) {
    if (digit != number.digits.end() && *digit == '.') ++digit;
    const int next = digit != number.digits.end() ? *digit++ - '0' : 0;
    if (__builtin_mul_overflow(magnitude, 10, &magnitude) ||
        __builtin_add_overflow(magnitude, next, &magnitude))
      return std::nullopt;
  }
  if (roundUp && __builtin_add_overflow(magnitude, 1, &magnitude)) return std::nullopt;
  constexpr auto highest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
  const auto start = static_cast<std::uint64_t>(origin);
  if (magnitude > (number.isNegative ? highest + 1 + start : highest - start)) return std::nullopt;
  return static_cast<std::int64_t>(number.isNegative ? start - magnitude : start + magnitude);
}

// The digit at a place counted from the first significant one, at most the last one.
char digitAt(const Decimal& number, std::int64_t place) {
  const auto index = static_cast<std::size_t>(place);
  return number.digits[number.digits.find('.') <= index ? index + 1 : index];
}

}  // namespace

ExactInteger exactInteger(std::string_view text) {
  const Decimal number = takeApart(text);
  if (number.exponent < number.digitCount) return {0, IntegerFault::hasFraction};
  const auto value = integerPart(number, number.exponent, false, 0);
  if (!value) return {0, IntegerFault::doesNotFit};
  return {*value, IntegerFault::none};
}

std::optional<std::int64_t> scaledInteger(std::string_view text, int decimals,
                                          std::int64_t origin) {
  const Decimal number = takeApart(text);
  const std::int64_t integerDigits = number.exponent + decimals;
  if (number.digitCount == 0 || integerDigits < 0) return origin;
  const bool roundUp = integerDigits < number.digitCount && digitAt(number, integerDigits) >= '5';
  return integerPart(number, integerDigits, roundUp, origin);
}

std::optional<double> nearestDouble(std::string_view text) {
  double value = 0;
  fast_float::from_chars(text.data(), text.data() + text.size(), value);
  if (!std::isfinite(value)) return std::nullopt;
  return value;
}

char* writeDouble(char* out, double value) {
  // Most lengths are whole millimetres or thousandths of them. A decimal of at most 15 digits that
  // reads back exactly is the shortest: no two of them lie nearest the same double.
  constexpr int thousandths = 3;
  const double magnitude = std::fabs(value);
  if (magnitude < 1e12 && !isNegativeZero(value)) {
    const auto scaled = static_cast<std::int64_t>(value * 1000 + std::copysign(0.5, value));
    if (static_cast<double>(scaled) / 1000 == value)
      return writeScaledInteger(out, scaled, thousandths, 0);
  }
  const bool isFixed = magnitude == 0 || (magnitude >= 1e-7 && magnitude < 1e21);
  const auto format = isFixed ? std::chars_format::fixed : std::chars_format::scientific;
  return std::to_chars(out, out + maximumNumberLength, value, format).ptr;
}

char* writeInteger(char* out, std::int64_t value) {
  return std::to_chars(out, out + maximumNumberLength, value).ptr;
}

char* writeScaledInteger(char* out, std::int64_t value, int decimals, std::int64_t origin) {
  // The distance from the origin may take all 64 bits beside its sign.
  auto magnitude = static_cast<std::uint64_t>(value) - static_cast<std::uint64_t>(origin);
  if (value < origin) {
    *out++ = '-';
    magnitude = 0 - magnitude;
  }
  std::uint64_t unit = 1;
  for (int i = 0; i < decimals; ++i) unit *= 10;
  out = std::to_chars(out, out + maximumNumberLength, magnitude / unit).ptr;
  std::uint64_t fraction = magnitude % unit;
  if (fraction != 0) *out++ = '.';
  while (fraction != 0) {
    unit /= 10;
    *out++ = static_cast<char>('0' + fraction / unit);
    fraction %= unit;
  }
  return out;
}

}  // namespace korrin::json
