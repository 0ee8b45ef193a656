#include "korrin/drawing/label_drawing.h"

#include <algorithm>
#include <numeric>

#include "korrin/drawing/text_fit.h"

namespace korrin::drawing {
namespace {

constexpr double labelSize = 2.7;
constexpr double numberSize = 2.2;
constexpr double largestLabel = 16;
constexpr double lineHeight = 1.2;
constexpr std::string_view numberColour = "#1f5fa8";

/// Where a symbol has most of its lines: corners are empty or look alike.
Box core(const Box& box) {
  constexpr double rim = 0.12;
  return {box.x + rim * box.width, box.y + rim * box.height, box.width * (1 - 2 * rim),
          box.height * (1 - 2 * rim)};
}

/// Below, above, right and left of the symbol; a riser's inside its lower or upper edge first,
/// since what stands on it covers its middle.
std::vector<LabelCandidate> candidates(const PlotItem& item, const Box& symbol, double width,
                                       double height) {
  constexpr double gap = 0.7;
  const Place centre = symbol.centre();
  const double x = centre.x - width / 2;
  const double y = centre.y - height / 2;
  std::vector<LabelCandidate> boxes;
  if (item.kind == PlotItemKind::riser && width < symbol.width && height * 3 < symbol.height) {
    boxes.push_back({{x, symbol.bottom() - height - gap, width, height}});
    boxes.push_back({{x, symbol.y + gap, width, height}});
  }
  boxes.push_back({{x, symbol.bottom() + gap, width, height}});
  boxes.push_back({{x, symbol.y - height - gap, width, height}});
  boxes.push_back({{symbol.right() + gap, y, width, height}});
  boxes.push_back({{symbol.x - width - gap, y, width, height}});
  for (const double away : {1.0, 2.0, 3.0}) {
    // Rather touch another symbol than stand where nobody knows whose label it is.
    const double cost = 30 * away;
    boxes.push_back({{x, symbol.bottom() + gap + away * height, width, height}, cost});
    boxes.push_back({{x, symbol.y - gap - (away + 1) * height, width, height}, cost});
  }
  return boxes;
}

}  // namespace

LabelDrawing::LabelDrawing(SvgWriter& svg, const DrawingOptions& options, const StageView& view,
                           std::span<const Box> texts, ShortenedTexts& shortened)
    : svg_(svg),
      options_(options),
      view_(view),
      shortened_(shortened),
      scale_(options.labelScale > 0 ? options.labelScale : 0),
      places_(view.canvas.inset(0.5)) {
  avoidEdges(view.ground);
  for (const Box& text : texts) places_.avoid(text);
}

/// What has room inside is left free at its edges only.
void LabelDrawing::avoidEdges(const Box& box) {
  constexpr double thick = 0.8;
  for (const double y : {box.y, box.bottom()})
    places_.avoid({box.x, y - thick / 2, box.width, thick});
  for (const double x : {box.x, box.right()})
    places_.avoid({x - thick / 2, box.y, thick, box.height});
}

void LabelDrawing::draw(const KorrinProject& project, std::span<const PlotItem* const> items) {
  for (const PlotItem* item : items) {
    if (item->kind == PlotItemKind::riser) {
      avoidEdges(view_.around(*item));
    } else {
      places_.avoid(core(view_.around(*item)));
    }
  }
  const PatchNumbers numbers(project);
  svg_.beginHaloTexts();
  for (const PlotItem* item : items) drawLabel(*item, numbers);
  svg_.endGroup();
}

std::vector<LabelDrawing::Line> LabelDrawing::linesOf(const PlotItem& item, const Box& symbol,
                                                      const PatchNumbers& numbers) {
  std::vector<Line> lines;
  const auto add = [&](const Text& text, double size, std::string_view colour) {
    if (!(size > 0)) return;
    const double room = std::min(std::max(symbol.width * 1.3, 11 * size), view_.canvas.width - 2);
    for (std::string& line : shortened_.fit(text, size, room, 2, true))
      lines.push_back({std::move(line), size, colour});
  };
  const auto sizeOf = [](double size) { return std::min(size, largestLabel); };
  if (item.style.labelVisible)
    add(item.legendText(), sizeOf(labelSize * scale_ * item.style.labelScale), "");
  if (!options_.patchNumbers) return lines;
  if (std::string text = numbers.of(item.id); !text.empty())
    add(std::move(text), sizeOf(numberSize * scale_), numberColour);
  return lines;
}

void LabelDrawing::drawLabel(const PlotItem& item, const PatchNumbers& numbers) {
  const Box symbol = view_.around(item);
  if (!touches(symbol, view_.canvas)) return;
  const std::vector<Line> lines = linesOf(item, symbol, numbers);
  if (lines.empty()) return;
  double width = 0;
  double height = 0;
  for (const Line& line : lines) {
    width = std::max(width, textWidth(line.text, line.size, true));
    height += line.size * lineHeight;
  }
  const Box place = places_.take(candidates(item, symbol, width, height));
  double y = place.y;
  for (const Line& line : lines) {
    svg_.haloText({place.centre().x, y + 0.95 * line.size}, line.text,
                  {.size = line.size, .colour = line.colour});
    y += line.size * lineHeight;
  }
}

}  // namespace korrin::drawing
