#include "korrin/drawing/mark_drawing.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <string_view>

#include "korrin/drawing/outlines.h"
#include "korrin/drawing/stage_drawing.h"
#include "korrin/drawing/text_fit.h"

namespace korrin::drawing {
namespace {

constexpr double wordSize = 2.4;
constexpr std::string_view addedColour = "#1a7f37";
constexpr std::string_view changedColour = "#0550ae";
constexpr std::string_view movedColour = "#953800";
constexpr std::string_view goneColour = "#a40e26";
constexpr std::string_view dashes = "1.2 0.8";

class MarkDrawing {
 public:
  MarkDrawing(SvgWriter& svg, const StageView& view) : svg_(svg), view_(view) {}

  void outline(const PlotItem& item, std::string_view colour, std::string_view word) {
    const std::array<Place, 4> corners = cornersOf(item);
    svg_.polygon(corners, {.stroke = colour, .strokeWidth = 0.6});
    say(corners, colour, word);
  }
  /// Where an item is no more.
  void former(const PlotItem& item, std::string_view colour) {
    svg_.polygon(cornersOf(item), {.stroke = colour, .strokeWidth = 0.4, .dashes = dashes});
  }
  void crossedOut(const PlotItem& item, std::string_view colour) {
    const std::array<Place, 4> corners = cornersOf(item);
    former(item, colour);
    svg_.line(corners[0], corners[2], {.stroke = colour, .strokeWidth = 0.4});
    svg_.line(corners[1], corners[3], {.stroke = colour, .strokeWidth = 0.4});
    const Text name = "gone: " + nameOf(item);
    constexpr double widest = 40;
    say(corners, colour, fittedLine(name, wordSize, widest, true));
  }
  void way(const StagePoint& from, const StagePoint& to, std::string_view colour) {
    svg_.line(view_.onPaper(from), view_.onPaper(to),
              {.stroke = colour, .strokeWidth = 0.4, .dashes = dashes});
  }

 private:
  std::array<Place, 4> cornersOf(const PlotItem& item) const {
    const std::array<StagePoint, 4> outline = outlineOf(item);
    std::array<Place, 4> corners{};
    std::transform(outline.begin(), outline.end(), corners.begin(),
                   [this](const StagePoint& point) { return view_.onPaper(point); });
    return corners;
  }
  /// Above the highest corner.
  void say(const std::array<Place, 4>& corners, std::string_view colour, std::string_view word) {
    const Place top = *std::min_element(corners.begin(), corners.end(),
                                        [](const Place& a, const Place& b) { return a.y < b.y; });
    svg_.beginHaloTexts();
    svg_.haloText({top.x, top.y - 0.8}, word, {.size = wordSize, .colour = colour});
    svg_.endGroup();
  }

  SvgWriter& svg_;
  const StageView& view_;
};

}  // namespace

void drawMarks(SvgWriter& svg, const StageView& view, std::span<const PlotItem* const> drawn,
               const RevisionMarks& marks) {
  std::map<UUID, const PlotItem*> items;
  for (const PlotItem* item : drawn) items.emplace(item->id, item);
  const auto itemCalled = [&items](const UUID& id) -> const PlotItem* {
    const auto found = items.find(id);
    return found == items.end() ? nullptr : found->second;
  };
  MarkDrawing drawing(svg, view);
  for (const PlotItem& item : marks.gone) drawing.crossedOut(item, goneColour);
  for (const PlotItem& former : marks.moved) {
    const PlotItem* const item = itemCalled(former.id);
    if (item == nullptr) continue;
    drawing.former(former, movedColour);
    drawing.way(former.position, item->position, movedColour);
    drawing.outline(*item, movedColour, "moved");
  }
  for (const UUID& id : marks.changed)
    if (const PlotItem* item = itemCalled(id)) drawing.outline(*item, changedColour, "changed");
  for (const UUID& id : marks.added)
    if (const PlotItem* item = itemCalled(id)) drawing.outline(*item, addedColour, "new");
}

}  // namespace korrin::drawing
