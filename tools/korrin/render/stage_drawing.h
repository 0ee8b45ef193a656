#pragma once

// The drawing of a plot: the stage to scale, what stands on it, and where the audience is.

#include <cstddef>
#include <string>
#include <vector>

#include "korrin/model/project.h"

#include "svg_writer.h"
#include "symbols.h"

namespace korrin::host {

/// The items on visible layers, those of lower layers first, otherwise in their own order.
std::vector<const PlotItem*> drawnItems(const KorrinProject& project);

/// What a drawing shows, for a legend to explain.
struct DrawnStage {
  std::vector<Symbol> symbols;      ///< Each once, in the order of `Symbol`.
  std::vector<std::string> risers;  ///< The legend texts of the risers that have one.
  std::size_t itemsOutOfSight = 0;  ///< Items that lie wholly beyond the drawing.
};

/// Draws the stage as large as a customary scale allows into the box, with its name, measures and
/// scale below. The project must be valid.
DrawnStage drawStage(SvgWriter& svg, const KorrinProject& project, const Box& box);

/// The smallest number of a customary scale "1:number" at which `length` millimetres, above 0, take
/// up at most `room` millimetres: 20, 25, 30, 40, 50, 60, 75, 80, 100 and so on. At least 0.1.
double scaleNumber(double length, double room);

/// A length in metres as people write it: "12 m", "8.5 m", "0.25 m".
std::string metres(double millimeters);

}  // namespace korrin::host
