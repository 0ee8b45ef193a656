#pragma once

// The marks of a revision upon a drawing.

#include <span>

#include "korrin/drawing/revision_marks.h"
#include "korrin/drawing/stage_view.h"
#include "korrin/drawing/svg_writer.h"

namespace korrin::drawing {

/// Draws the marks of the items that are drawn.
void drawMarks(SvgWriter& svg, const StageView& view, std::span<const PlotItem* const> drawn,
               const RevisionMarks& marks);

}  // namespace korrin::drawing
