#include "korrin/drawing/stage_frame.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "korrin/drawing/lengths.h"
#include "korrin/drawing/text_fit.h"
#include "korrin/validation/document_validation.h"

namespace korrin::drawing {
namespace {

constexpr double narrowestGrid = 1.2;
constexpr std::string_view audienceColour = "#b4232a";
constexpr double directionSize = 2.5;
// How far the rows of text are from what is seen.
constexpr double nearRow = 2.2;
constexpr double farRow = 6.2;
constexpr double audienceRow = 4.4;

}  // namespace

StageFrame::StageFrame(SvgWriter& svg, const StageDefinition& stage, const StageView& view)
    : svg_(svg), stage_(stage), view_(view) {}

StageFrame::Side StageFrame::audienceSide() const {
  switch (stage_.audienceEdge) {
    case AudienceEdge::top:
      return Side::top;
    case AudienceEdge::right:
      return Side::right;
    case AudienceEdge::left:
      return Side::left;
    case AudienceEdge::bottom:
      break;
  }
  return Side::bottom;
}

StageFrame::Side StageFrame::opposite(Side side) { return rightOf(rightOf(side)); }

/// The side at the right hand of somebody in the middle who looks at this one.
StageFrame::Side StageFrame::rightOf(Side side) {
  switch (side) {
    case Side::top:
      return Side::right;
    case Side::right:
      return Side::bottom;
    case Side::bottom:
      return Side::left;
    case Side::left:
      break;
  }
  return Side::top;
}

/// A place outside of what is seen: `along` the side from the stage's centre, to the right or down.
Place StageFrame::beside(Side side, double along, double away) const {
  const Place centre = view_.ground.centre();
  switch (side) {
    case Side::top:
      return {centre.x + along, view_.seen.y - away};
    case Side::right:
      return {view_.seen.right() + away, centre.y + along};
    case Side::bottom:
      return {centre.x + along, view_.seen.bottom() + away};
    case Side::left:
      break;
  }
  return {view_.seen.x - away, centre.y + along};
}

/// Texts beside the stage are read from below or from the right.
void StageFrame::write(Side side, double along, double away, std::string_view text,
                       const TextStyle& style) {
  const Place place = beside(side, along, away);
  const double width = textWidth(text, style.size, style.isBold);
  const double before = style.anchor == Anchor::start ? 0
                        : style.anchor == Anchor::end ? width
                                                      : width / 2;
  const double half = style.size / 2;
  if (isUpright(side)) {
    texts_.push_back({place.x - half, place.y - (width - before), style.size, width});
    svg_.beginPlaced(place, 270);
    svg_.text({0, 0.35 * style.size}, text, style);
    svg_.endGroup();
  } else {
    texts_.push_back({place.x - before, place.y - half, width, style.size});
    svg_.text({place.x, place.y + 0.35 * style.size}, text, style);
  }
}

void StageFrame::drawGround() {
  const Box& ground = view_.ground;
  svg_.rectangle(ground, {.fill = "#fbfaf7"});
  if (stage_.showGrid) {
    drawGridLines(stage_.size.width, [&ground](double at) {
      return std::array{Place{at + ground.centre().x, ground.y},
                        Place{at + ground.centre().x, ground.bottom()}};
    });
    drawGridLines(stage_.size.height, [&ground](double at) {
      return std::array{Place{ground.x, at + ground.centre().y},
                        Place{ground.right(), at + ground.centre().y}};
    });
  }
  drawCentreLine();
  svg_.rectangle(ground, {.stroke = inkColour, .strokeWidth = 0.6});
}

/// Lines too close to be told apart are left out evenly.
template <class LineAt>
void StageFrame::drawGridLines(double length, LineAt lineAt) {
  const double spacing = stage_.gridSpacingMillimeters;
  const std::vector<double> all =
      DocumentValidation::gridCoordinates(-length / 2, length / 2, spacing);
  const double every = std::max(1.0, std::ceil(narrowestGrid / (spacing / view_.scaleNumber)));
  const std::size_t step = every < 1e6 ? static_cast<std::size_t>(every) : all.size() + 1;
  for (std::size_t i = 0; i < all.size(); i += step) {
    const auto [from, to] = lineAt(all[i] / view_.scaleNumber);
    svg_.line(from, to, {.stroke = "#d9dde1", .strokeWidth = 0.15});
  }
}

/// From upstage to downstage, and a little beyond.
void StageFrame::drawCentreLine() {
  const Box& ground = view_.ground;
  const Place centre = ground.centre();
  const Paint paint = {.stroke = "#8a94a0", .strokeWidth = 0.25, .dashes = "4 1 0.8 1"};
  if (isUpright(audienceSide())) {
    svg_.line({ground.x, centre.y}, {ground.right(), centre.y}, paint);
  } else {
    svg_.line({centre.x, ground.y}, {centre.x, ground.bottom()}, paint);
  }
}

void StageFrame::drawSurroundings() {
  drawAudience();
  drawDirections();
  if (stage_.showDimensions) drawDimensions();
}

/// A thick edge, arrows that point away from the stage, and the word.
void StageFrame::drawAudience() {
  const Side side = audienceSide();
  const Box& ground = view_.ground;
  const Paint edge = {.stroke = audienceColour, .strokeWidth = 1.4};
  if (isUpright(side)) {
    const double x = side == Side::left ? ground.x : ground.right();
    svg_.line({x, ground.y}, {x, ground.bottom()}, edge);
  } else {
    const double y = side == Side::top ? ground.y : ground.bottom();
    svg_.line({ground.x, y}, {ground.right(), y}, edge);
  }
  for (const double at : {-15.0, 15.0})
    svg_.polygon(
        std::array{beside(side, at - 2, 3), beside(side, at + 2, 3), beside(side, at, 5.6)},
        {.fill = audienceColour});
  write(side, 0, audienceRow, "AUDIENCE",
        {.size = 3.2, .isBold = true, .anchor = Anchor::middle, .colour = audienceColour});
}

/// As performers say it who look at the audience.
void StageFrame::drawDirections() {
  const Side audience = audienceSide();
  const Side back = opposite(audience);
  // What is read from the right runs upward.
  const double forward = isUpright(audience) ? -1 : 1;
  const auto style = [](Anchor anchor) {
    return TextStyle{.size = directionSize, .anchor = anchor, .colour = mutedColour};
  };
  write(audience, -20 * forward, audienceRow, "downstage", style(Anchor::end));
  write(back, -1.4 * forward, nearRow, "upstage", style(Anchor::end));
  write(back, 1.4 * forward, nearRow, "centre line", style(Anchor::start));
  write(rightOf(audience), 0, nearRow, "stage right", style(Anchor::middle));
  write(opposite(rightOf(audience)), 0, nearRow, "stage left", style(Anchor::middle));
}

/// On the sides where the audience is not.
void StageFrame::drawDimensions() {
  const Side audience = audienceSide();
  drawDimension(audience == Side::bottom ? Side::top : Side::bottom, view_.ground.width,
                metres(stage_.size.width));
  drawDimension(audience == Side::left ? Side::right : Side::left, view_.ground.height,
                metres(stage_.size.height));
}

void StageFrame::drawDimension(Side side, double length, const std::string& text) {
  const Paint thin = {.stroke = mutedColour, .strokeWidth = 0.2};
  const double gap = textWidth(text, 3) / 2 + 1;
  for (const double sign : {-1.0, 1.0}) {
    const double end = sign * length / 2;
    svg_.line(beside(side, end, farRow - 1.5), beside(side, end, farRow + 1.5), thin);
    if (length / 2 > gap)
      svg_.line(beside(side, end, farRow), beside(side, sign * gap, farRow), thin);
  }
  const Place from = beside(side, -length / 2, farRow);
  const Place to = beside(side, length / 2, farRow);
  texts_.push_back(Box{from.x, from.y, to.x - from.x, to.y - from.y}.inset(-1));
  write(side, 0, farRow, text, {.size = 3, .anchor = Anchor::middle, .colour = mutedColour});
}

/// The longest customary length that takes little room. Returns where it begins.
double StageFrame::drawScaleBar(double right, double y) {
  constexpr double longest = 32;
  double length = std::pow(10, std::floor(std::log10(longest * view_.scaleNumber)));
  for (const double factor : {5.0, 2.0}) {
    if (factor * length / view_.scaleNumber > longest) continue;
    length *= factor;
    break;
  }
  const std::string text = metres(length);
  const double width = length / view_.scaleNumber;
  const double x = right - textWidth(text, 3) - 1.5 - width;
  const Paint rim = {.stroke = mutedColour, .strokeWidth = 0.2};
  svg_.rectangle({x, y - 1.9, width / 2, 1.3},
                 {.fill = mutedColour, .stroke = mutedColour, .strokeWidth = 0.2});
  svg_.rectangle({x + width / 2, y - 1.9, width / 2, 1.3}, rim);
  svg_.text({right, y}, text, {.size = 3, .anchor = Anchor::end, .colour = mutedColour});
  return x;
}

void StageFrame::drawCaption(const Box& box, bool hasScaleBar, ShortenedTexts& shortened) {
  std::string facts = metres(stage_.size.width) + " × " + metres(stage_.size.height);
  if (stage_.showGrid && stage_.gridSpacingMillimeters >= 4)
    facts += " · grid " + metres(stage_.gridSpacingMillimeters);
  facts += " · scale 1:" + svgNumber(view_.scaleNumber);
  const double y = box.bottom() - 1.5;
  svg_.text({box.right(), y}, facts, {.size = 3, .anchor = Anchor::end, .colour = mutedColour});
  double end = box.right() - textWidth(facts, 3) - 4;
  if (hasScaleBar) end = drawScaleBar(end, y) - 4;
  svg_.text({box.x, y}, shortened.fitLine(stage_.name, 3.8, end - box.x, true),
            {.size = 3.8, .isBold = true});
}

}  // namespace korrin::drawing
