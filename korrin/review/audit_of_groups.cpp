// Groups, and what items say about them.

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "korrin/review/audit_rules.h"
#include "korrin/review/fix_rules.h"
#include "korrin/review/record_names.h"

namespace korrin::auditing {
namespace {

using names::nameOf;

// In ascending order, so that a document with identifiers of its own choosing takes no longer than
// any other.
class Identifiers {
 public:
  void add(const UUID& id) { ids_.push_back(id); }
  void sort() { std::sort(ids_.begin(), ids_.end()); }
  bool contains(const UUID& id) const { return std::binary_search(ids_.begin(), ids_.end(), id); }

 private:
  std::vector<UUID> ids_;
};

template <class Record>
Identifiers identifiersOf(const List<Record>& records) {
  Identifiers ids;
  for (const Record& record : records) ids.add(record.id);
  ids.sort();
  return ids;
}

List<UUID> eachOnce(List<UUID> members) {
  std::set<UUID> seen;
  members.eraseIf([&](const UUID& member) { return !seen.insert(member).second; });
  return members;
}

// What groups list and what items name. Where groups share an identifier, what one of them lists is
// listed.
class Memberships {
 public:
  explicit Memberships(const KorrinProject& project) : items_(identifiersOf(project.items)) {
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

  // Whether the member is an item that does not name the group that lists it.
  bool isStray(const PlotGroup& group, const UUID& member) const {
    return items_.contains(member) &&
           !std::binary_search(named_.begin(), named_.end(), std::pair(group.id, member));
  }

  // The items that name the group and are not listed, in the project's order.
  List<UUID> unlisted(const PlotGroup& group) const {
    const auto found = unlisted_.find(group.id);
    return found == unlisted_.end() ? List<UUID>() : found->second;
  }

  bool agree(const PlotGroup& group) const {
    return unlisted(group).empty() &&
           std::none_of(group.itemIDs.begin(), group.itemIDs.end(),
                        [&](const UUID& member) { return isStray(group, member); });
  }

 private:
  using Pairs = std::vector<std::pair<UUID, UUID>>;  // a group and an item, in ascending order

  Identifiers items_;
  Pairs listed_;
  Pairs named_;
  std::map<UUID, List<UUID>> unlisted_;
};

bool listsUnknown(const PlotGroup& group, const Identifiers& items) {
  return std::any_of(group.itemIDs.begin(), group.itemIDs.end(),
                     [&](const UUID& member) { return !items.contains(member); });
}

// The members that stand more than once, each once.
List<UUID> repeatedOnes(const List<UUID>& members) {
  std::map<UUID, std::size_t> counts;
  List<UUID> repeated;
  for (const UUID& member : members)
    if (++counts[member] == 2) repeated.push_back(member);
  return repeated;
}

AuditFinding about(AuditRule rule, const char* detail, const PlotGroup& group, List<UUID> itemIDs) {
  return finding(rule, detail, group.id.text(), std::move(itemIDs), group.id);
}

// The place of the group that the finding is about: the first with its identifier and its fault.
template <class Predicate>
std::size_t placeOf(const AuditFinding& finding, const KorrinProject& project, Predicate holds) {
  const auto found = std::find_if(
      project.groups.begin(), project.groups.end(),
      [&](const PlotGroup& group) { return group.id == finding.recordID && holds(group); });
  return static_cast<std::size_t>(found - project.groups.begin());
}

// The group with other members; none where it would be left without any.
std::optional<Fix> listing(const KorrinProject& project, std::size_t place, List<UUID> members,
                           std::string title) {
  if (members.empty()) return std::nullopt;
  PlotGroup group = project.groups[place];
  group.itemIDs = std::move(members);
  List<PlotGroup> groups = project.groups;
  groups.replace(place, std::move(group));
  return Fix{.title = std::move(title),
             .command = DocumentCommand::replaceGroups(std::move(groups))};
}

}  // namespace

void missingGroups(const KorrinProject& project, Findings& findings) {
  const Identifiers groups = identifiersOf(project.groups);
  for (const PlotItem& item : project.items)
    if (item.groupID && !groups.contains(*item.groupID))
      findings.push_back(finding(AuditRule::missingGroup,
                                 "The group of this symbol does not exist.", item.id.text(),
                                 {item.id}, std::nullopt));
}

std::optional<Fix> noGroup(const KorrinProject& project, const AuditFinding& finding,
                           const Environment& environment) {
  const Identifiers groups = identifiersOf(project.groups);
  const auto found =
      std::find_if(project.items.begin(), project.items.end(), [&](const PlotItem& item) {
        return item.id == finding.itemIDs.front() && item.groupID &&
               !groups.contains(*item.groupID);
      });
  PlotItem item = *found;
  item.groupID = std::nullopt;
  const std::string title = "Take " + nameOf(item) + " out of a group that does not exist";
  return Fix{.title = title,
             .command = fixes::replacingItem(
                 project, static_cast<std::size_t>(found - project.items.begin()), std::move(item),
                 environment)};
}

void oneSidedMemberships(const KorrinProject& project, Findings& findings) {
  const Memberships memberships(project);
  std::set<UUID> seen;
  for (const PlotGroup& group : project.groups) {
    List<UUID> concerned;
    for (const UUID& member : group.itemIDs)
      if (memberships.isStray(group, member)) concerned.push_back(member);
    // Of groups that share an identifier, the first answers for the items that none of them lists.
    if (seen.insert(group.id).second)
      for (const UUID& item : memberships.unlisted(group)) concerned.push_back(item);
    if (concerned.empty()) continue;
    findings.push_back(about(AuditRule::oneSidedMembership,
                             "The group does not list exactly the symbols that name it.", group,
                             eachOnce(std::move(concerned))));
  }
}

std::optional<Fix> followedGroup(const KorrinProject& project, const AuditFinding& finding,
                                 const Environment&) {
  const Memberships memberships(project);
  const std::size_t place =
      placeOf(finding, project, [&](const PlotGroup& group) { return !memberships.agree(group); });
  const PlotGroup& group = project.groups[place];
  List<UUID> members = group.itemIDs;
  members.eraseIf([&](const UUID& member) { return memberships.isStray(group, member); });
  for (const UUID& item : memberships.unlisted(group)) members.push_back(item);
  return listing(project, place, std::move(members),
                 "Let " + nameOf(group) + " list the symbols that name it");
}

void unknownMembers(const KorrinProject& project, Findings& findings) {
  const Identifiers items = identifiersOf(project.items);
  for (const PlotGroup& group : project.groups) {
    if (!listsUnknown(group, items)) continue;
    List<UUID> unknown = group.itemIDs;
    unknown.eraseIf([&](const UUID& member) { return items.contains(member); });
    findings.push_back(about(AuditRule::unknownMember,
                             "The group lists an identifier that no symbol has.", group,
                             eachOnce(std::move(unknown))));
  }
}

std::optional<Fix> knownMembers(const KorrinProject& project, const AuditFinding& finding,
                                const Environment&) {
  const Identifiers items = identifiersOf(project.items);
  const std::size_t place =
      placeOf(finding, project, [&](const PlotGroup& group) { return listsUnknown(group, items); });
  const PlotGroup& group = project.groups[place];
  List<UUID> members = group.itemIDs;
  members.eraseIf([&](const UUID& member) { return !items.contains(member); });
  return listing(project, place, std::move(members),
                 "Take what is no symbol out of " + nameOf(group));
}

void repeatedMembers(const KorrinProject& project, Findings& findings) {
  for (const PlotGroup& group : project.groups) {
    List<UUID> repeated = repeatedOnes(group.itemIDs);
    if (!repeated.empty())
      findings.push_back(about(AuditRule::repeatedMember,
                               "The group lists a symbol more than once.", group,
                               std::move(repeated)));
  }
}

std::optional<Fix> membersOnce(const KorrinProject& project, const AuditFinding& finding,
                               const Environment&) {
  const std::size_t place = placeOf(finding, project, [](const PlotGroup& group) {
    return !repeatedOnes(group.itemIDs).empty();
  });
  const PlotGroup& group = project.groups[place];
  return listing(project, place, eachOnce(group.itemIDs),
                 "List each symbol of " + nameOf(group) + " once");
}

void emptyGroups(const KorrinProject& project, Findings& findings) {
  for (const PlotGroup& group : project.groups)
    if (group.itemIDs.empty())
      findings.push_back(about(AuditRule::emptyGroup, "The group lists no symbols.", group, {}));
}

std::optional<Fix> withoutGroup(const KorrinProject& project, const AuditFinding& finding,
                                const Environment&) {
  const bool isNamed =
      std::any_of(project.items.begin(), project.items.end(),
                  [&](const PlotItem& item) { return item.groupID == finding.recordID; });
  if (isNamed) return std::nullopt;
  const std::size_t place =
      placeOf(finding, project, [](const PlotGroup& group) { return group.itemIDs.empty(); });
  List<PlotGroup> groups = project.groups;
  const std::string title = "Remove the empty " + nameOf(groups[place]);
  groups.erase(place);
  return Fix{.title = title, .command = DocumentCommand::replaceGroups(std::move(groups))};
}

}  // namespace korrin::auditing
