#pragma once

// Taking items out of groups, as deletion and regrouping do.

#include <cstddef>
#include <utility>

#include "korrin/model/plot_items.h"

namespace korrin {

/// Removes the members with these identifiers from every group and then all empty groups. The rest
/// keeps its order and goes on sharing its storage with copies of the list.
inline void removeMembers(List<PlotGroup>& groups, const IDSet& itemIDs) {
  const auto isRemoved = [&itemIDs](const UUID& id) { return itemIDs.contains(id); };
  std::size_t index = 0;
  for (const PlotGroup& group : List<PlotGroup>(groups)) {
    List<UUID> remaining = group.itemIDs;
    if (remaining.eraseIf(isRemoved) > 0) groups.edit(index).itemIDs = std::move(remaining);
    ++index;
  }
  groups.eraseIf([](const PlotGroup& group) { return group.itemIDs.empty(); });
}

}  // namespace korrin
