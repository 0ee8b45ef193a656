#pragma once

// What became of each item between two states of a plot: what a drawing marks. An item is named
// once, by what matters most on a stage.

#include <span>
#include <vector>

#include "korrin/review/difference.h"

#pragma GCC visibility push(default)

namespace korrin {

/// The items that differ, each in one of the four lists, in the order of the differences.
struct ItemChanges {
  std::vector<UUID> added = {};    ///< Items that are new.
  std::vector<UUID> changed = {};  ///< Items with other values that stand where they stood.
  List<PlotItem> moved = {};       ///< Items that stand elsewhere, as they were.
  List<PlotItem> gone = {};        ///< Items that are gone, as they were.
};

/// What the differences say of items. `before` is the earlier of the two projects that they were
/// found in; what was not drawn there, on a hidden or missing layer, is neither moved nor gone. An
/// item that only came to stand above or below others is left out. O(n log n).
ItemChanges itemChanges(std::span<const Difference> differences, const KorrinProject& before);

}  // namespace korrin

#pragma GCC visibility pop
