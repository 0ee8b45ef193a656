#pragma once

// Plots of any size for the benchmarks: what a festival's production office would draw, only more.

#include <cstddef>

#include "korrin/model/project.h"

namespace korrin::benchmarks {

/// A plot with `itemCount` items on 4 layers; half of the items in groups of four; one input for
/// every two items, one monitor mix for every ten and one line of equipment for every ten, each
/// linked to an item; a note for every fifty. The same plot at every call.
KorrinProject generatedPlot(std::size_t itemCount);

}  // namespace korrin::benchmarks
