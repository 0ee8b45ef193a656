#include "korrin/drawing/item_drawing.h"

#include <algorithm>
#include <cmath>

#include "korrin/drawing/text_fit.h"

namespace korrin::drawing {
namespace {

// Beyond so many different looks, on a sheet that nobody can read, outlines must do.
constexpr std::size_t mostLooks = 20'000;

std::int64_t thousandths(double length) {
  constexpr double largest = 1e9;
  return std::llround(std::clamp(length * 1000, 0.0, largest));
}

}  // namespace

ItemDrawing::ItemDrawing(SvgWriter& svg, const KorrinProject& project,
                         const DrawingOptions& options, const StageView& view,
                         ShortenedTexts& shortened)
    : svg_(svg), view_(view), shortened_(shortened), artwork_(project, options) {}

bool ItemDrawing::draw(const PlotItem& item) {
  const Artwork::Image* image = artwork_.imageOf(item, svg_);
  if (image != nullptr) {
    drawImage(item, *image);
  } else {
    drawSymbol(item);
  }
  return image == nullptr;
}

void ItemDrawing::drawSymbol(const PlotItem& item) {
  const LookIndex look = lookOf(item);
  const double width = item.size.width / view_.scaleNumber;
  const double height = item.size.height / view_.scaleNumber;
  const std::optional<Text>& tint = item.style.tintHex;
  const Place place = view_.onPaper(item.position);
  const bool flipX = item.isFlippedHorizontally;
  const bool flipY = item.isFlippedVertically;
  LookKey key(look, thousandths(width), thousandths(height), tintText(tint));
  const auto known = drawn_.find(key);
  if (known != drawn_.end()) {
    svg_.reuse(known->second, place, item.rotationDegrees, flipX, flipY);
    return;
  }
  svg_.beginPlaced(place, item.rotationDegrees, flipX, flipY);
  if (drawn_.size() < mostLooks) {
    const std::size_t name = drawn_.size();
    drawn_.emplace(std::move(key), name);
    svg_.beginNamed(name);
    drawLook(svg_, look, width, height, tint);
    svg_.endGroup();
  } else {
    drawOutline(svg_, look, width, height, tint);
  }
  svg_.endGroup();
}

void ItemDrawing::drawImage(const PlotItem& item, const Artwork::Image& image) {
  const double width = item.size.width / view_.scaleNumber;
  const double height = item.size.height / view_.scaleNumber;
  const bool hasFrame = !image.kept || !image.isWidelyShown;
  svg_.beginTitled(image.title);
  svg_.beginPlaced(view_.onPaper(item.position), item.rotationDegrees, item.isFlippedHorizontally,
                   item.isFlippedVertically);
  if (hasFrame) drawFrame(svg_, width, height);
  if (image.kept) svg_.image(*image.kept, {-width / 2, -height / 2, width, height});
  svg_.endGroup();
  if (!image.kept) drawName(item, image);
  svg_.endGroup();
}

void ItemDrawing::drawName(const PlotItem& item, const Artwork::Image& image) {
  constexpr double size = 2.2;
  constexpr double step = 1.2 * size;
  const Box box = view_.around(item);
  const auto [lines, isShortened] =
      fitted(image.name, size, std::clamp(box.width, 40.0, 120.0), 3, true);
  // Once: to look up a long name takes time for each item that shows it.
  if (isShortened && shortenedNames_.insert(&image).second) shortened_.note(image.name, lines);
  double y = box.centre().y - step * static_cast<double>(lines.size()) / 2 + 0.8 * size;
  svg_.beginHaloTexts();
  for (const std::string& line : lines) {
    const double width = textWidth(line, size, true);
    names_.push_back({box.centre().x - width / 2, y - 0.8 * size, width, size});
    svg_.haloText({box.centre().x, y}, line, {.size = size, .colour = mutedColour});
    y += step;
  }
  svg_.endGroup();
}

void drawFrame(SvgWriter& svg, double width, double height) {
  const Box box = {-width / 2, -height / 2, width, height};
  svg.rectangle(box, {.fill = "#eef1f4",
                      .stroke = mutedColour,
                      .strokeWidth = 0.35,
                      .fillOpacity = 0.8,
                      .dashes = "1.4 0.8"});
  const Paint cross = {.stroke = "#c9d1d9", .strokeWidth = 0.25};
  svg.line({box.x, box.y}, {box.right(), box.bottom()}, cross);
  svg.line({box.right(), box.y}, {box.x, box.bottom()}, cross);
}

}  // namespace korrin::drawing
