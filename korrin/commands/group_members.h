#pragma once

// Taking items out of groups, as deletion and regrouping do.

#include <cstddef>
#include <utility>
#include <vector>

#include "korrin/commands/places.h"
#include "korrin/model/plot_items.h"

namespace korrin {

/// The groups without the members that have these identifiers, and without the groups that are
/// empty then or were before. The rest keeps its order and shares its storage with the argument.
inline List<PlotGroup> withoutMembers(List<PlotGroup> groups, const IDFilter& itemIDs) {
  std::vector<std::size_t> concerned;
  bool anyIsEmpty = false;
  forEachCandidate(itemIDs, groups, [&](std::size_t place, const PlotGroup& group) {
    if (itemIDs.containsAnyOf(group.itemIDs)) concerned.push_back(place);
    anyIsEmpty |= group.itemIDs.empty();
  });
  for (const std::size_t index : concerned) {
    PlotGroup group = groups[index];
    group.itemIDs.eraseIf([&itemIDs](const UUID& id) { return itemIDs.contains(id); });
    anyIsEmpty |= group.itemIDs.empty();
    groups.replace(index, std::move(group));
  }
  if (anyIsEmpty) groups.eraseIf([](const PlotGroup& group) { return group.itemIDs.empty(); });
  return groups;
}

}  // namespace korrin
