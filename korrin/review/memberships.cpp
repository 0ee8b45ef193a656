#include "korrin/review/memberships.h"

#include <algorithm>
#include <set>

namespace korrin::auditing {

void Identifiers::sort() { std::sort(ids_.begin(), ids_.end()); }

bool Identifiers::contains(const UUID& id) const {
  return std::binary_search(ids_.begin(), ids_.end(), id);
}

Memberships::Memberships(const KorrinProject& project) : items_(project.items) {
  for (const PlotGroup& group : project.groups)
    for (const UUID& member : group.itemIDs) listed_.emplace_back(group.id, member);
  std::sort(listed_.begin(), listed_.end());
  for (const PlotItem& item : project.items) {
    if (!item.groupID) continue;
    named_.emplace_back(*item.groupID, item.id);
    if (!std::binary_search(listed_.begin(), listed_.end(), named_.back()))
      unlisted_[*item.groupID].push_back(item.id);
  }
  std::sort(named_.begin(), named_.end());
  for (auto& [group, items] : unlisted_) items = eachOnce(std::move(items));
}

bool Memberships::isStray(const PlotGroup& group, const UUID& member) const {
  return items_.contains(member) &&
         !std::binary_search(named_.begin(), named_.end(), std::pair(group.id, member));
}

List<UUID> Memberships::unlisted(const PlotGroup& group) const {
  const auto found = unlisted_.find(group.id);
  return found == unlisted_.end() ? List<UUID>() : found->second;
}

bool Memberships::agree(const PlotGroup& group) const {
  return unlisted(group).empty() &&
         std::none_of(group.itemIDs.begin(), group.itemIDs.end(),
                      [&](const UUID& member) { return isStray(group, member); });
}

bool Memberships::isNamed(const UUID& group) const {
  const auto found =
      std::lower_bound(named_.begin(), named_.end(), group,
                       [](const auto& pair, const UUID& id) { return pair.first < id; });
  return found != named_.end() && found->first == group;
}

List<UUID> eachOnce(List<UUID> members) {
  std::set<UUID> seen;
  members.eraseIf([&](const UUID& member) { return !seen.insert(member).second; });
  return members;
}

}  // namespace korrin::auditing
