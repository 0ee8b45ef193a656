#include "korrin/drawing/symbol_drawing.h"

#include <algorithm>
#include <array>
#include <span>

#include "korrin/drawing/tint.h"

namespace korrin::drawing {
namespace {

/// Draws in fractions of the symbol's extent.
class Pen {
 public:
  Pen(SvgWriter& svg, double width, double height, std::string_view ownColour,
      const std::optional<Tint>& tint)
      : svg_(svg),
        width_(width),
        height_(height),
        bodyColour_(tint ? std::string_view(tint->colour) : ownColour),
        bodyOpacity_(tint ? tint->opacity : 1),
        detailColour_(tint && tint->isDark ? "#fff" : inkColour) {}

  void draw(const Shape& shape) {
    const Paint paint = paintOf(shape.ink);
    const auto& at = shape.at;
    switch (shape.form) {
      case Form::rectangle:
        svg_.rectangle(
            {at[0] * width_, at[1] * height_, (at[2] - at[0]) * width_, (at[3] - at[1]) * height_},
            paint, shape.rounding * shorter());
        break;
      case Form::ellipse:
        svg_.ellipse(place(at[0], at[1]), at[2] * width_, at[3] * height_, paint);
        break;
      case Form::circle:
        svg_.ellipse(place(at[0], at[1]), at[2] * shorter(), at[2] * shorter(), paint);
        break;
      case Form::line:
        svg_.line(place(at[0], at[1]), place(at[2], at[3]), paint);
        break;
      case Form::polygon: {
        std::array<Place, mostCorners> corners{};
        for (std::size_t i = 0; i < shape.corners; ++i)
          corners[i] = place(at[2 * i], at[2 * i + 1]);
        svg_.polygon(std::span(corners).first(shape.corners), paint);
        break;
      }
    }
  }

 private:
  static constexpr double outline = 0.35;
  static constexpr double detail = 0.25;

  Place place(double x, double y) const { return {x * width_, y * height_}; }
  double shorter() const { return std::min(width_, height_); }

  Paint body(std::string_view stroke, std::string_view dashes = "") const {
    return {.fill = bodyColour_,
            .stroke = stroke,
            .strokeWidth = outline,
            .fillOpacity = bodyOpacity_,
            .dashes = dashes};
  }

  Paint paintOf(Ink ink) const {
    switch (ink) {
      case Ink::body:
        return body(inkColour);
      case Ink::bodyDashed:
        return body(inkColour, "1.4 0.8");
      case Ink::bodyBare:
        return body("");
      case Ink::solid:
        return {.fill = detailColour_};
      case Ink::lines:
        return {.stroke = detailColour_, .strokeWidth = detail};
      case Ink::boldLines:
        return {.stroke = detailColour_, .strokeWidth = 0.6};
      case Ink::rods:
        return {.stroke = inkColour, .strokeWidth = 0.6};
      case Ink::light:
        return {.fill = "#fff", .stroke = inkColour, .strokeWidth = detail, .fillOpacity = 0.9};
      case Ink::keys:
        return {.fill = "#fff", .stroke = inkColour, .strokeWidth = 0.2};
      case Ink::keyGaps:
        return {.stroke = inkColour, .strokeWidth = 0.15};
      case Ink::dark:
        return {.fill = inkColour};
      case Ink::brass:
        return {.fill = "#f3d27a", .stroke = inkColour, .strokeWidth = detail, .fillOpacity = 0.9};
    }
    return {};
  }

  SvgWriter& svg_;
  double width_;
  double height_;
  std::string_view bodyColour_;
  double bodyOpacity_;
  std::string_view detailColour_;
};

}  // namespace

void drawLook(SvgWriter& svg, LookIndex look, double width, double height,
              const std::optional<Text>& tintHex) {
  const std::optional<Tint> tint = tintOf(tintHex);
  Pen pen(svg, width, height, lookAt(look).colour, tint);
  for (const Shape& shape : lookAt(look).shapes) pen.draw(shape);
}

void drawOutline(SvgWriter& svg, LookIndex look, double width, double height,
                 const std::optional<Text>& tintHex) {
  const std::optional<Tint> tint = tintOf(tintHex);
  Pen(svg, width, height, lookAt(look).colour, tint)
      .draw(rectangle(-0.5, -0.5, 0.5, 0.5, Ink::body));
}

}  // namespace korrin::drawing
