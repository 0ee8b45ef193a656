#pragma once

// Taking items out of groups, as deletion and regrouping do.

#include <algorithm>
#include <cstddef>
#include <vector>

#include "korrin/commands/id_filter.h"
#include "korrin/model/plot_items.h"

namespace korrin {

/// The groups without the members that have these identifiers, and without the groups that are
/// empty then or were before. The rest keeps its order and shares its storage with the argument.
inline List<PlotGroup> withoutMembers(List<PlotGroup> groups, const IDFilter& itemIDs) {
  const auto isRemoved = [&itemIDs](const UUID& id) { return itemIDs.contains(id); };
  std::vector<std::size_t> concerned;
  bool anyIsEmpty = false;
  std::size_t place = 0;
  for (const PlotGroup& group : groups) {
    const List<UUID>& members = group.itemIDs;
    if (std::any_of(members.begin(), members.end(), isRemoved)) concerned.push_back(place);
    anyIsEmpty |= group.itemIDs.empty();
    ++place;
  }
  for (const std::size_t index : concerned) {
    List<UUID>& members = groups.edit(index).itemIDs;
    members.eraseIf(isRemoved);
    anyIsEmpty |= members.empty();
  }
  if (anyIsEmpty) groups.eraseIf([](const PlotGroup& group) { return group.itemIDs.empty(); });
  return groups;
}

}  // namespace korrin
