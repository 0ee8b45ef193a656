#pragma once

// What symbols are made of: shapes in fractions of the symbol's extent, x to the right and y
// downward, from -0.5 to 0.5. A symbol is a table of them, drawn in the order in which they stand.

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>

#include "korrin/drawing/paper.h"

namespace korrin::drawing {

/// How a shape is painted. What follows the item's tint is said.
enum class Ink : std::uint8_t {
  body,        ///< The symbol's own colour, or the tint, with an outline.
  bodyDashed,  ///< The same with a dashed outline.
  bodyBare,    ///< The same without an outline.
  solid,       ///< Filled with the colour of details, which is light on a dark tint.
  lines,       ///< Fine lines in the colour of details.
  boldLines,   ///< Strong lines in the colour of details.
  rods,        ///< Strong dark lines: tubes of a stand.
  light,       ///< White with a fine outline.
  keys,        ///< White with a finer outline.
  keyGaps,     ///< The finest dark lines.
  dark,        ///< Filled dark, whatever the tint.
  brass,       ///< Cymbals.
};

enum class Form : std::uint8_t { rectangle, ellipse, circle, line, polygon };

constexpr std::size_t mostCorners = 12;

/// One shape: what the numbers mean depends on the form.
struct Shape {
  Form form;
  Ink ink;
  std::uint8_t corners = 0;  ///< Of a polygon.
  double rounding = 0;       ///< Of a rectangle's corners, in fractions of the shorter side.
  std::array<double, 2 * mostCorners> at = {};
};

constexpr Shape rectangle(double left, double top, double right, double bottom, Ink ink,
                          double rounding = 0) {
  return {Form::rectangle, ink, 0, rounding, {left, top, right, bottom}};
}

constexpr Shape ellipse(double x, double y, double radiusX, double radiusY, Ink ink) {
  return {Form::ellipse, ink, 0, 0, {x, y, radiusX, radiusY}};
}

/// A circle, whatever the proportions; the radius is a fraction of the shorter side.
constexpr Shape circle(double x, double y, double radius, Ink ink) {
  return {Form::circle, ink, 0, 0, {x, y, radius}};
}

constexpr Shape line(double x1, double y1, double x2, double y2, Ink ink) {
  return {Form::line, ink, 0, 0, {x1, y1, x2, y2}};
}

/// At most `mostCorners` corners.
constexpr Shape polygon(Ink ink, std::initializer_list<Place> corners) {
  Shape shape{Form::polygon, ink, static_cast<std::uint8_t>(corners.size()), 0, {}};
  std::size_t i = 0;
  for (const Place& corner : corners) {
    shape.at[i++] = corner.x;
    shape.at[i++] = corner.y;
  }
  return shape;
}

}  // namespace korrin::drawing
