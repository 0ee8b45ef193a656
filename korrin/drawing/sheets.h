#pragma once

// The sheets that a venue receives.

#include <string>
#include <vector>

#include "korrin/drawing/plot_drawing.h"

namespace korrin::drawing {

enum class Binding { separate, stacked };

/// A picture for each sheet, or one with all of them one below the other.
std::vector<std::string> drawSheets(const KorrinProject& project, const DrawingOptions& options,
                                    Binding binding);

}  // namespace korrin::drawing
