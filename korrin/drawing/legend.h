#pragma once

// What the symbols on a drawing mean.

#include "korrin/drawing/stage_drawing.h"

namespace korrin::drawing {

/// Draws the legend into the box, in as many columns as fit. The last line says how many there was
/// no room for.
void drawLegend(SvgWriter& svg, const DrawnStage& drawn, const Box& box, ShortenedTexts& shortened);

}  // namespace korrin::drawing
