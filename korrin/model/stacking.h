#pragma once

// What lies above what on a plot.

#include <vector>

#include "korrin/model/project.h"

#pragma GCC visibility push(default)

namespace korrin {

/// The items that are drawn, the lowest first: those on visible layers, by the `zIndex` of their
/// layer; where that is equal, in the order of `items`. Of visible layers that share an identifier
/// the first counts. Items on hidden or missing layers are left out. The pointers hold until the
/// project's items are changed.
std::vector<const PlotItem*> visibleItemsInStackingOrder(const KorrinProject& project);

}  // namespace korrin

#pragma GCC visibility pop
