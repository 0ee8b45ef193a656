#include "tint.h"

#include <algorithm>
#include <charconv>
#include <string_view>

namespace korrin::host {
namespace {

int valueOf(std::string_view digits) {
  int value = 0;
  std::from_chars(digits.begin(), digits.end(), value, 16);
  return value;
}

bool isHexDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

}  // namespace

std::optional<Tint> tintOf(const std::optional<Text>& hex) {
  if (!hex) return std::nullopt;
  std::string_view digits = *hex;
  if (digits.starts_with('#')) digits.remove_prefix(1);
  if (!std::ranges::all_of(digits, isHexDigit)) return std::nullopt;
  std::string full(digits);
  if (digits.size() == 3) full = {digits[0], digits[0], digits[1], digits[1], digits[2], digits[2]};
  if (full.size() != 6 && full.size() != 8) return std::nullopt;
  const std::string_view rgb = std::string_view(full).substr(0, 6);
  const double lightness = 0.299 * valueOf(rgb.substr(0, 2)) + 0.587 * valueOf(rgb.substr(2, 2)) +
                           0.114 * valueOf(rgb.substr(4, 2));
  const double opacity = full.size() == 8 ? valueOf(std::string_view(full).substr(6)) / 255.0 : 1;
  return Tint{"#" + std::string(rgb), opacity, lightness < 110 && opacity > 0.5};
}

}  // namespace korrin::host
