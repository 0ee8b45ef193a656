#include "korrin/drawing/outlines.h"

#include <algorithm>
#include <cmath>

#include "korrin/drawing/stage_view.h"
#include "korrin/model/stacking.h"

namespace korrin {

std::array<StagePoint, 4> outlineOf(const PlotItem& item) {
  const drawing::Turn turn(item.rotationDegrees);
  const double x = item.size.width / 2;
  const double y = item.size.height / 2;
  std::array<StagePoint, 4> corners = {
      {{.x = -x, .y = -y}, {.x = x, .y = -y}, {.x = x, .y = y}, {.x = -x, .y = y}}};
  for (StagePoint& corner : corners)
    corner = {.x = item.position.x + corner.x * turn.cosine - corner.y * turn.sine,
              .y = item.position.y + corner.x * turn.sine + corner.y * turn.cosine};
  return corners;
}

std::vector<UUID> itemsAt(const KorrinProject& project, StagePoint point) {
  // Corners are rounded, and must lie under themselves.
  constexpr double rim = 1e-6;
  std::vector<UUID> found;
  for (const PlotItem* item : visibleItemsInStackingOrder(project)) {
    // An infinite extent would lie under every point.
    if (!std::isfinite(item->size.width) || !std::isfinite(item->size.height)) continue;
    const drawing::Turn turn(item->rotationDegrees);
    const double x = point.x - item->position.x;
    const double y = point.y - item->position.y;
    const bool isUnder = std::fabs(x * turn.cosine + y * turn.sine) <= item->size.width / 2 + rim &&
                         std::fabs(y * turn.cosine - x * turn.sine) <= item->size.height / 2 + rim;
    if (isUnder) found.push_back(item->id);
  }
  std::reverse(found.begin(), found.end());
  return found;
}

}  // namespace korrin
