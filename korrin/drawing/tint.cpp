#include "korrin/drawing/tint.h"

#include <algorithm>
#include <charconv>
#include <string_view>

#include "korrin/foundation/ascii.h"

namespace korrin::drawing {
namespace {

int valueOf(std::string_view digits) {
  int value = 0;
  std::from_chars(digits.begin(), digits.end(), value, 16);
  return value;
}

/// Six or eight digits, or nothing.
std::string_view digitsOf(const std::optional<Text>& hex) {
  if (!hex) return {};
  std::string_view digits = *hex;
  if (digits.starts_with('#')) digits.remove_prefix(1);
  const bool isColour = (digits.size() == 6 || digits.size() == 8) &&
                        std::all_of(digits.begin(), digits.end(), isHexDigit);
  return isColour ? digits : std::string_view();
}

}  // namespace

std::string tintText(const std::optional<Text>& hex) { return std::string(digitsOf(hex)); }

std::optional<Tint> tintOf(const std::optional<Text>& hex) {
  const std::string_view digits = digitsOf(hex);
  if (digits.empty()) return std::nullopt;
  const std::string_view rgb = digits.substr(0, 6);
  const double lightness = 0.299 * valueOf(rgb.substr(0, 2)) + 0.587 * valueOf(rgb.substr(2, 2)) +
                           0.114 * valueOf(rgb.substr(4, 2));
  const double opacity = digits.size() == 8 ? valueOf(digits.substr(6)) / 255.0 : 1;
  return Tint{"#" + std::string(rgb), opacity, lightness < 110 && opacity > 0.5};
}

}  // namespace korrin::drawing
