#include "editor/canvas/snapping.h"

#include <algorithm>
#include <cmath>

#include "korrin/model/stacking.h"

#include "editor/canvas/symbol_view.h"

namespace korrin::editor {

SnapTargets::SnapTargets(const KorrinProject& project, const IDSet& moving)
    : stage_(project.stage.size), grid_(project.stage.gridSpacingMillimeters) {
  add({-stage_.width / 2, -stage_.height / 2, stage_.width, stage_.height});
  for (const PlotItem* item : visibleItemsInStackingOrder(project))
    if (!moving.contains(item->id)) add(boundsOf(*item));
  const auto byPlace = [](const Line& a, const Line& b) { return a.at < b.at; };
  std::sort(upright_.begin(), upright_.end(), byPlace);
  std::sort(level_.begin(), level_.end(), byPlace);
}

void SnapTargets::add(const QRectF& box) {
  for (const double x : {box.left(), box.center().x(), box.right()})
    upright_.push_back({.at = x, .from = box.top(), .to = box.bottom()});
  for (const double y : {box.top(), box.center().y(), box.bottom()})
    level_.push_back({.at = y, .from = box.left(), .to = box.right()});
}

SnapTargets::Hit SnapTargets::nearest(const std::vector<Line>& lines, double low, double high,
                                      double reach) {
  Hit best;
  for (const double own : {(low + high) / 2, low, high}) {
    const auto above = std::lower_bound(lines.begin(), lines.end(), own,
                                        [](const Line& line, double at) { return line.at < at; });
    for (auto line : {above, above == lines.begin() ? above : above - 1}) {
      if (line == lines.end()) continue;
      const double by = line->at - own;
      if (std::fabs(by) > reach || (best.isFound && std::fabs(by) >= std::fabs(best.by))) continue;
      best = {.by = by, .line = &*line, .isFound = true};
    }
  }
  return best;
}

// Grid lines are counted from the stage's upper left corner, as they are drawn.
SnapTargets::Hit SnapTargets::orGrid(Hit hit, double centre, double edge, double reach) const {
  constexpr double finest = 4;  // a finer grid is not drawn
  if (hit.isFound || !(grid_ >= finest)) return hit;
  const double by = edge + std::round((centre - edge) / grid_) * grid_ - centre;
  if (std::fabs(by) <= reach) hit = {.by = by, .line = nullptr, .isFound = true};
  return hit;
}

Snap SnapTargets::snap(const QRectF& box, double reach) const {
  const Hit x = orGrid(nearest(upright_, box.left(), box.right(), reach), box.center().x(),
                       -stage_.width / 2, reach);
  const Hit y = orGrid(nearest(level_, box.top(), box.bottom(), reach), box.center().y(),
                       -stage_.height / 2, reach);
  Snap snap{.by = {x.by, y.by}, .guides = {}};
  const QRectF moved = box.translated(snap.by);
  if (x.line != nullptr)
    snap.guides.push_back({.from = {x.line->at, std::min(x.line->from, moved.top())},
                           .to = {x.line->at, std::max(x.line->to, moved.bottom())}});
  if (y.line != nullptr)
    snap.guides.push_back({.from = {std::min(y.line->from, moved.left()), y.line->at},
                           .to = {std::max(y.line->to, moved.right()), y.line->at}});
  return snap;
}

}  // namespace korrin::editor
