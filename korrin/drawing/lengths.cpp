#include "korrin/drawing/lengths.h"

#include <cmath>
#include <cstdint>

namespace korrin::drawing {

std::string metres(double millimeters) {
  constexpr double largest = 1e12;
  if (!(std::fabs(millimeters) <= largest)) return "? m";
  const std::int64_t whole = std::llround(std::fabs(millimeters));
  std::string text = (millimeters < 0 && whole != 0 ? "-" : "") + std::to_string(whole / 1000);
  if (const std::int64_t rest = whole % 1000; rest > 0) {
    text += "." + std::to_string(1000 + rest).substr(1);
    while (text.ends_with('0')) text.pop_back();
  }
  return text + " m";
}

}  // namespace korrin::drawing
