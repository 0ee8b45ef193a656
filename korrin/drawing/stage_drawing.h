#pragma once

// The drawing of a plot: the stage to scale, what stands on it, and where the audience is.

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "korrin/drawing/plot_drawing.h"
#include "korrin/drawing/revision_marks.h"
#include "korrin/drawing/shortened_texts.h"
#include "korrin/drawing/stage_view.h"
#include "korrin/drawing/svg_writer.h"
#include "korrin/drawing/symbol_table.h"

namespace korrin::drawing {

/// An item that is not on the drawing, or not as a whole, and why.
struct MissingItem {
  const PlotItem* item;
  std::string reason;
};

/// What a drawing shows, for a legend and for lists to explain.
struct DrawnStage {
  std::set<LookIndex> looks;
  std::vector<std::string> risers;  ///< The legend texts of the risers that have one, each once.
  std::vector<MissingItem> missing;
};

/// Draws the stage as large as a customary scale allows into the box, with its name, measures and
/// scale below, and the marks of a revision where there are any. Texts that have to be shortened
/// are noted. The project must outlive the result.
DrawnStage drawStage(SvgWriter& svg, const KorrinProject& project, const DrawingOptions& options,
                     const Box& box, ShortenedTexts& shortened,
                     const RevisionMarks* marks = nullptr);

/// What lists call an item: its label or, where that is blank, what its symbol is called.
std::string nameOf(const PlotItem& item);

}  // namespace korrin::drawing
