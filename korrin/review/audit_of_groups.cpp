// Groups, and what items say about them.

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "korrin/review/audit_rules.h"
#include "korrin/review/fix_rules.h"
#include "korrin/review/memberships.h"
#include "korrin/review/record_names.h"

namespace korrin::auditing {
namespace {

using names::nameOf;

// Whether the group lists what `isItem` denies.
template <class IsItem>
bool listsUnknown(const PlotGroup& group, IsItem isItem) {
  return !std::all_of(group.itemIDs.begin(), group.itemIDs.end(), isItem);
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
std::size_t faultyGroup(const AuditFinding& finding, PlotLookup& plot, Predicate holds) {
  return *plot.firstWith(&KorrinProject::groups, *finding.recordID, holds);
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
  const Identifiers groups(project.groups);
  for (const PlotItem& item : project.items)
    if (item.groupID && !groups.contains(*item.groupID))
      findings.push_back(finding(AuditRule::missingGroup,
                                 "The group of this symbol does not exist.", item.id.text(),
                                 {item.id}, std::nullopt));
}

std::optional<Fix> noGroup(PlotLookup& plot, const AuditFinding& finding,
                           const Environment& environment) {
  const std::optional<std::size_t> place =
      plot.firstWith(&KorrinProject::items, finding.itemIDs.front(), [&](const PlotItem& item) {
        return item.groupID && !plot.placeOf(&KorrinProject::groups, *item.groupID);
      });
  PlotItem item = plot.project().items[*place];
  item.groupID = std::nullopt;
  const std::string title = "Take " + nameOf(item) + " out of a group that does not exist";
  return Fix{.title = title,
             .command = fixes::replacingItem(plot, *place, std::move(item), environment)};
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

std::optional<Fix> followedGroup(PlotLookup& plot, const AuditFinding& finding,
                                 const Environment&) {
  const Memberships& memberships = plot.memberships();
  const std::size_t place =
      faultyGroup(finding, plot, [&](const PlotGroup& group) { return !memberships.agree(group); });
  const PlotGroup& group = plot.project().groups[place];
  List<UUID> members = group.itemIDs;
  members.eraseIf([&](const UUID& member) { return memberships.isStray(group, member); });
  for (const UUID& item : memberships.unlisted(group)) members.push_back(item);
  return listing(plot.project(), place, std::move(members),
                 "Let " + nameOf(group) + " list the symbols that name it");
}

void unknownMembers(const KorrinProject& project, Findings& findings) {
  const Identifiers items(project.items);
  const auto isItem = [&](const UUID& member) { return items.contains(member); };
  for (const PlotGroup& group : project.groups) {
    if (!listsUnknown(group, isItem)) continue;
    List<UUID> unknown = group.itemIDs;
    unknown.eraseIf(isItem);
    findings.push_back(about(AuditRule::unknownMember,
                             "The group lists an identifier that no symbol has.", group,
                             eachOnce(std::move(unknown))));
  }
}

std::optional<Fix> knownMembers(PlotLookup& plot, const AuditFinding& finding, const Environment&) {
  const auto isItem = [&](const UUID& member) {
    return plot.placeOf(&KorrinProject::items, member).has_value();
  };
  const std::size_t place = faultyGroup(
      finding, plot, [&](const PlotGroup& group) { return listsUnknown(group, isItem); });
  const PlotGroup& group = plot.project().groups[place];
  List<UUID> members = group.itemIDs;
  members.eraseIf([&](const UUID& member) { return !isItem(member); });
  return listing(plot.project(), place, std::move(members),
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

std::optional<Fix> membersOnce(PlotLookup& plot, const AuditFinding& finding, const Environment&) {
  const std::size_t place = faultyGroup(
      finding, plot, [](const PlotGroup& group) { return !repeatedOnes(group.itemIDs).empty(); });
  const PlotGroup& group = plot.project().groups[place];
  return listing(plot.project(), place, eachOnce(group.itemIDs),
                 "List each symbol of " + nameOf(group) + " once");
}

void emptyGroups(const KorrinProject& project, Findings& findings) {
  for (const PlotGroup& group : project.groups)
    if (group.itemIDs.empty())
      findings.push_back(about(AuditRule::emptyGroup, "The group lists no symbols.", group, {}));
}

std::optional<Fix> withoutGroup(PlotLookup& plot, const AuditFinding& finding, const Environment&) {
  if (plot.memberships().isNamed(*finding.recordID)) return std::nullopt;
  const std::size_t place =
      faultyGroup(finding, plot, [](const PlotGroup& group) { return group.itemIDs.empty(); });
  List<PlotGroup> groups = plot.project().groups;
  const std::string title = "Remove the empty " + nameOf(groups[place]);
  groups.erase(place);
  return Fix{.title = title, .command = DocumentCommand::replaceGroups(std::move(groups))};
}

}  // namespace korrin::auditing
