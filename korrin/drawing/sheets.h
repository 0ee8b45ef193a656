#pragma once

// The sheets that a venue receives.

#include <string>
#include <vector>

#include "korrin/drawing/plot_drawing.h"
#include "korrin/drawing/revision_marks.h"

namespace korrin::drawing {

enum class Binding { separate, stacked };

/// A picture for each sheet, or one with all of them one below the other; with the marks of a
/// revision where there are any.
std::vector<std::string> drawSheets(const KorrinProject& project, const DrawingOptions& options,
                                    Binding binding, const RevisionMarks* marks = nullptr);

}  // namespace korrin::drawing
