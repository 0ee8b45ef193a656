#pragma once

// When a symbol counts as outside the stage. A header alone, so that whoever mends the finding does
// the very arithmetic that reports it.

#include <cmath>

#include "korrin/model/project.h"

namespace korrin {

/// Whether a box with this centre and extent reaches beyond a stage along one axis, whose origin is
/// the middle of the stage. An edge that lies on the stage's edge is inside, and so is what cannot
/// be compared.
inline bool reachesBeyond(double stageExtent, double position, double extent) {
  return stageExtent * 0.5 < std::fabs(position) + extent * 0.5;
}

/// Whether the item's box, not turned, reaches beyond the stage.
inline bool reachesBeyond(const StageSize& stage, const PlotItem& item) {
  return reachesBeyond(stage.width, item.position.x, item.size.width) ||
         reachesBeyond(stage.height, item.position.y, item.size.height);
}

}  // namespace korrin
