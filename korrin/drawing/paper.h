#pragma once

// Places on paper. All lengths are millimetres, x to the right and y downward.

#include <algorithm>

namespace korrin::drawing {

struct Place {
  double x;
  double y;
};

/// A rectangle by its upper left corner and extent.
struct Box {
  double x;
  double y;
  double width;
  double height;

  double right() const { return x + width; }
  double bottom() const { return y + height; }
  Place centre() const { return {x + width / 2, y + height / 2}; }

  /// The rectangle without a margin on each side.
  Box inset(double margin) const {
    return {x + margin, y + margin, std::max(0.0, width - 2 * margin),
            std::max(0.0, height - 2 * margin)};
  }
};

/// Whether two rectangles have a point in common, be they ever so thin.
inline bool touches(const Box& a, const Box& b) {
  return a.x <= b.right() && b.x <= a.right() && a.y <= b.bottom() && b.y <= a.bottom();
}

/// The area that two rectangles share.
inline double overlap(const Box& a, const Box& b) {
  const double width = std::min(a.right(), b.right()) - std::max(a.x, b.x);
  const double height = std::min(a.bottom(), b.bottom()) - std::max(a.y, b.y);
  return width > 0 && height > 0 ? width * height : 0;
}

}  // namespace korrin::drawing
