#pragma once

// The stage below everything that stands on it: floor, grid, centre line and where the audience is.

#include <QPainter>

#include "korrin/model/stage_values.h"

namespace korrin::editor {

/// Draws what lies within `exposed`. A unit of the painter is a millimetre on stage, of which
/// `zoom` pixels make one.
void drawGround(QPainter& painter, const StageDefinition& stage, const QRectF& exposed,
                double zoom);

}  // namespace korrin::editor
