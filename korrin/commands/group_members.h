#pragma once

// Taking items out of groups, as deletion and regrouping do.

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "korrin/commands/places.h"
#include "korrin/model/plot_items.h"

namespace korrin {

/// The groups without the members that have these identifiers, and without the groups that are
/// empty then or were before. The rest keeps its order and shares its storage with the argument.
inline List<PlotGroup> withoutMembers(List<PlotGroup> groups, const IDSet& itemIDs) {
  std::vector<std::size_t> concerned;
  bool anyIsEmpty = false;
  const auto isTaken = [&itemIDs](const UUID& id) { return itemIDs.contains(id); };
  groups.forEachCandidate(itemIDs, [&](std::size_t place, const PlotGroup& group) {
    if (std::any_of(group.itemIDs.begin(), group.itemIDs.end(), isTaken))
      concerned.push_back(place);
    anyIsEmpty |= group.itemIDs.empty();
  });
  for (const std::size_t index : concerned) {
    PlotGroup group = groups[index];
    group.itemIDs.eraseIf(isTaken);
    anyIsEmpty |= group.itemIDs.empty();
    groups.replace(index, std::move(group));
  }
  if (anyIsEmpty) groups.eraseIf([](const PlotGroup& group) { return group.itemIDs.empty(); });
  return groups;
}

}  // namespace korrin
