#include "korrin/drawing/stage_view.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace korrin::drawing {
namespace {

/// What a rounding error, or the eye, takes for the edge.
constexpr double tolerance = 0.5;

double usable(double extent) {
  constexpr double metre = 1000;
  constexpr double largest = 1e6;
  return extent > 0 && extent <= largest ? extent : metre;
}

/// The stage and all items that lie near it.
Box seenOnStage(const Box& stage, std::span<const PlotItem* const> items) {
  const double reach = std::max(stage.width, stage.height) / 2;
  const Box farthest = stage.inset(-reach);
  Box seen = stage;
  for (const PlotItem* item : items) {
    const Box bounds = boundsOf(*item);
    const bool isNear = bounds.x >= farthest.x && bounds.right() <= farthest.right() &&
                        bounds.y >= farthest.y && bounds.bottom() <= farthest.bottom();
    const bool isBeside = bounds.x < stage.x - tolerance || bounds.y < stage.y - tolerance ||
                          bounds.right() > stage.right() + tolerance ||
                          bounds.bottom() > stage.bottom() + tolerance;
    if (!isNear || !isBeside) continue;
    const double right = std::max(seen.right(), bounds.right());
    const double bottom = std::max(seen.bottom(), bounds.bottom());
    seen.x = std::min(seen.x, bounds.x);
    seen.y = std::min(seen.y, bounds.y);
    seen.width = right - seen.x;
    seen.height = bottom - seen.y;
  }
  return seen;
}

}  // namespace

StageSize usableSize(const StageSize& size) {
  return {.width = usable(size.width), .height = usable(size.height)};
}

Turn::Turn(double degrees) {
  const double turn = std::fmod(degrees, 360.0);
  const double quarters = turn / 90;
  if (quarters == std::floor(quarters)) {
    constexpr std::array<double, 4> cosines = {1, 0, -1, 0};
    const auto quarter = static_cast<std::size_t>(quarters < 0 ? quarters + 4 : quarters);
    cosine = cosines[quarter];
    sine = cosines[(quarter + 3) % 4];
    return;
  }
  const double angle = turn * std::numbers::pi / 180;
  cosine = std::cos(angle);
  sine = std::sin(angle);
}

Box boundsOf(const PlotItem& item) {
  const Turn turn(item.rotationDegrees);
  const double cosine = std::fabs(turn.cosine);
  const double sine = std::fabs(turn.sine);
  const double width = item.size.width * cosine + item.size.height * sine;
  const double height = item.size.width * sine + item.size.height * cosine;
  return {item.position.x - width / 2, item.position.y - height / 2, width, height};
}

Place StageView::onPaper(const StagePoint& point) const {
  const Place centre = ground.centre();
  return {centre.x + point.x / scaleNumber, centre.y + point.y / scaleNumber};
}

Box StageView::around(const PlotItem& item) const {
  const Box bounds = boundsOf(item);
  const Place corner = onPaper({.x = bounds.x, .y = bounds.y});
  return {corner.x, corner.y, bounds.width / scaleNumber, bounds.height / scaleNumber};
}

StageView viewOf(const StageDefinition& stage, std::span<const PlotItem* const> items,
                 const Box& canvas, double rim) {
  const StageSize size = usableSize(stage.size);
  const Box onStage = {-size.width / 2, -size.height / 2, size.width, size.height};
  const Box seen = seenOnStage(onStage, items);
  const Box room = canvas.inset(rim);
  const double scale =
      std::max(scaleNumber(seen.width, room.width), scaleNumber(seen.height, room.height));
  const double width = seen.width / scale;
  const double height = seen.height / scale;
  const Box onPaper = {room.x + (room.width - width) / 2, room.y + (room.height - height) / 2,
                       width, height};
  return {
      .canvas = canvas,
      .ground = {onPaper.x + (onStage.x - seen.x) / scale, onPaper.y + (onStage.y - seen.y) / scale,
                 size.width / scale, size.height / scale},
      .seen = onPaper,
      .scaleNumber = scale};
}

double scaleNumber(double length, double room) {
  constexpr std::array customary = {1.0, 1.25, 1.5, 2.0, 2.5, 3.0, 4.0, 5.0, 6.0, 7.5, 8.0, 10.0};
  constexpr double smallest = 0.1;
  const double needed = std::max(length / room, smallest);
  const double decade = std::pow(10, std::floor(std::log10(needed)));
  // The quotient may lie a rounding error above a number that fits exactly.
  for (const double number : customary)
    if (number * decade >= needed * (1 - 1e-9)) return number * decade;
  return 10 * decade;
}

}  // namespace korrin::drawing
