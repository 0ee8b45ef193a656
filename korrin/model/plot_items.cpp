#include "korrin/model/plot_items.h"

#include <charconv>
#include <cmath>
#include <string>

namespace korrin {
namespace {

// std::to_chars rounds as printf does and knows no locale. The longest finite height has 306 digits
// before the point.
std::string metres(double millimeters) {
  char digits[320];
  const auto end =
      std::to_chars(digits, std::end(digits), millimeters / 1000.0, std::chars_format::fixed, 2);
  return std::string(digits, end.ptr);
}

}  // namespace

Text PlotItem::legendText() const {
  const double height = riserHeightMillimeters.value_or(0);
  if (kind != PlotItemKind::riser || !std::isfinite(height) || !(height > 0)) return label;
  const std::string heightText = "H " + metres(height) + " m";
  return label.empty() ? heightText : label.str() + " · " + heightText;
}

}  // namespace korrin
