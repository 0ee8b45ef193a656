#pragma once

// Where items lie on the stage plane, and what lies under a point.

#include <array>
#include <vector>

#include "korrin/model/project.h"

#pragma GCC visibility push(default)

namespace korrin {

/// The corners of the turned item on the stage plane, clockwise as it is drawn. The first is the
/// upper left one of the item that is not turned. Flips do not matter. Numbers that are not finite
/// give corners that are not.
std::array<StagePoint, 4> outlineOf(const PlotItem& item);

/// The identifiers of the items on visible layers that lie under the point, the topmost first.
/// Locked ones are among them. A point on an item's edge is under it, give or take a millionth of a
/// millimetre. Nothing lies under a point, or in an item, whose numbers are not finite.
std::vector<UUID> itemsAt(const KorrinProject& project, StagePoint point);

}  // namespace korrin

#pragma GCC visibility pop
