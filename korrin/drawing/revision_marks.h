#pragma once

// What changed since an earlier revision, marked upon a drawing. Each mark has a word beside it:
// sheets are copied in black and white.

#include <string>
#include <vector>

#include "korrin/drawing/plot_drawing.h"
#include "korrin/foundation/list.h"

#pragma GCC visibility push(default)

namespace korrin {

/// What to mark. Items that the drawing does not show get no mark; identifiers that no item has are
/// passed over.
struct RevisionMarks {
  std::vector<UUID> added = {};      ///< Items that are new.
  std::vector<UUID> changed = {};    ///< Items that changed where they stand.
  List<PlotItem> moved = {};         ///< Items that stand elsewhere, as they were before.
  List<PlotItem> gone = {};          ///< Items that are gone, as they were.
  std::vector<Text> sentences = {};  ///< Everything that changed, for a list behind the others.
};

/// `drawPlot` with the marks.
std::string drawMarkedPlot(const KorrinProject& project, const RevisionMarks& marks,
                           const DrawingOptions& options = {});

/// `drawPages` with the marks on the first sheet, and the sentences as a list.
std::vector<std::string> drawMarkedPages(const KorrinProject& project, const RevisionMarks& marks,
                                         const DrawingOptions& options = {});

/// `drawStackedPages` with the same.
std::string drawMarkedStackedPages(const KorrinProject& project, const RevisionMarks& marks,
                                   const DrawingOptions& options = {});

}  // namespace korrin

#pragma GCC visibility pop
