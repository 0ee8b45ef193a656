#include "korrin/drawing/stage_drawing.h"

#include <cmath>
#include <map>

#include "korrin/drawing/item_drawing.h"
#include "korrin/drawing/label_drawing.h"
#include "korrin/drawing/left_out_items.h"
#include "korrin/drawing/lengths.h"
#include "korrin/drawing/mark_drawing.h"
#include "korrin/drawing/stage_frame.h"
#include "korrin/drawing/text_fit.h"
#include "korrin/model/stacking.h"

namespace korrin::drawing {
namespace {

std::string layerReason(const PlotLayer* layer, ShortenedTexts& shortened) {
  if (layer == nullptr) return "its layer does not exist";
  const std::string name = shortened.fitLine(layer->name, 1, longestRepeated);
  return name.empty() ? "its layer is hidden" : "its layer “" + name + "” is hidden";
}

// The items that no visible layer holds, and why they are not drawn.
std::vector<MissingItem> missingFrom(const KorrinProject& project, ShortenedTexts& shortened) {
  std::vector<MissingItem> missing;
  std::map<const PlotLayer*, std::string> reasons;
  for (const LeftOutItem& left : leftOutItems(project)) {
    const auto [reason, isNew] = reasons.try_emplace(left.layer);
    if (isNew) reason->second = layerReason(left.layer, shortened);
    missing.push_back({left.item, reason->second});
  }
  return missing;
}

std::string distanceReason(const StagePoint& position) {
  std::string text = "off the sheet";
  if (!std::isfinite(position.x) || !std::isfinite(position.y)) return text;
  text += ": " + metres(std::fabs(position.x)) + (position.x < 0 ? " left of" : " right of") +
          " and " + metres(std::fabs(position.y)) + (position.y < 0 ? " above" : " below") +
          " the stage’s centre";
  return text;
}

bool isInside(const Box& inner, const Box& outer) {
  constexpr double rim = 0.01;
  return inner.x >= outer.x - rim && inner.y >= outer.y - rim &&
         inner.right() <= outer.right() + rim && inner.bottom() <= outer.bottom() + rim;
}

std::string riserText(const PlotItem& item) {
  const std::string text = paperLine(item.legendText());
  // A height alone does not say of what.
  return item.label.isBlank() && !text.empty() ? nameOf(item) + " · " + text : text;
}

}  // namespace

std::string nameOf(const PlotItem& item) {
  std::string label = paperLine(item.label);
  return label.empty() ? std::string(lookAt(lookOf(item)).name) : label;
}

DrawnStage drawStage(SvgWriter& svg, const KorrinProject& project, const DrawingOptions& options,
                     const Box& box, ShortenedTexts& shortened, const RevisionMarks* marks) {
  const std::vector<const PlotItem*> visible = visibleItemsInStackingOrder(project);
  const Box canvas = {box.x, box.y, box.width, box.height - captionHeight};
  const StageView view = viewOf(project.stage, visible, canvas, frameWidth);
  DrawnStage drawn = {.looks = {}, .risers = {}, .missing = missingFrom(project, shortened)};
  std::set<std::string> risers;

  StageFrame frame(svg, project.stage, view);
  frame.drawGround();
  frame.drawSurroundings();
  svg.beginClipped(canvas);
  ItemDrawing items(svg, project, options, view, shortened);
  for (const PlotItem* item : visible) {
    const Box around = view.around(*item);
    if (!touches(around, canvas)) {
      drawn.missing.push_back({item, distanceReason(item->position)});
      continue;
    }
    if (!isInside(around, canvas))
      drawn.missing.push_back({item, "cut off at the edge of the drawing"});
    if (item->kind == PlotItemKind::riser)
      if (std::string text = riserText(*item); !text.empty() && risers.insert(text).second)
        drawn.risers.push_back(std::move(text));
    if (items.draw(*item)) drawn.looks.insert(lookOf(*item));
  }
  std::vector<Box> texts = frame.texts();
  texts.insert(texts.end(), items.names().begin(), items.names().end());
  LabelDrawing(svg, options, view, texts, shortened).draw(project, visible);
  if (marks != nullptr) drawMarks(svg, view, visible, *marks);
  svg.endClipped();
  frame.drawCaption(box, options.scaleBar, shortened);
  return drawn;
}

}  // namespace korrin::drawing
