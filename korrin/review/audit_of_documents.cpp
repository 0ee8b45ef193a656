// Identifiers, numbers, embedded images and the format.

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

// The lists whose records have identifiers, in the order of the project's fields.
enum class IdentifiedList { layers, items, groups, inputs, monitorMixes, equipment, notes };

template <class Visit>
void forEachIdentifiedList(Visit visit) {
  visit(IdentifiedList::layers, &KorrinProject::layers);
  visit(IdentifiedList::items, &KorrinProject::items);
  visit(IdentifiedList::groups, &KorrinProject::groups);
  visit(IdentifiedList::inputs, &KorrinProject::inputs);
  visit(IdentifiedList::monitorMixes, &KorrinProject::monitorMixes);
  visit(IdentifiedList::equipment, &KorrinProject::equipmentRequirements);
  visit(IdentifiedList::notes, &KorrinProject::notes);
}

// "symbols, inputs and notes"
std::string joined(const std::vector<IdentifiedList>& lists) {
  static constexpr std::string_view words[] = {"layers", "symbols",   "groups", "inputs",
                                               "mixes",  "equipment", "notes"};
  std::string text;
  for (std::size_t i = 0; i < lists.size(); ++i) {
    if (i > 0) text += i + 1 == lists.size() ? " and " : ", ";
    text += words[static_cast<std::size_t>(lists[i])];
  }
  return text;
}

// The lists that hold each identifier, where there are two or more, each list once.
std::map<UUID, std::vector<IdentifiedList>> sharedOnes(const KorrinProject& project) {
  std::vector<std::pair<UUID, IdentifiedList>> places;
  forEachIdentifiedList([&](IdentifiedList list, auto member) {
    for (const auto& record : project.*member) places.emplace_back(record.id, list);
  });
  std::sort(places.begin(), places.end());
  places.erase(std::unique(places.begin(), places.end()), places.end());
  std::map<UUID, std::vector<IdentifiedList>> shared;
  for (std::size_t i = 0; i < places.size(); ++i) {
    const bool isShared = (i > 0 && places[i - 1].first == places[i].first) ||
                          (i + 1 < places.size() && places[i + 1].first == places[i].first);
    if (isShared) shared[places[i].first].push_back(places[i].second);
  }
  return shared;
}

template <class Row>
void relink(List<Row>& rows, const UUID& from, const UUID& to) {
  for (std::size_t i = 0; i < rows.size(); ++i)
    if (rows[i].plotItemID == from) rows.edit(i).plotItemID = to;
}

// Links to an item are what rows and groups say; a link to a group is what items say. Nothing in a
// project links to a row or a note.
void moveLinks(KorrinProject& project, IdentifiedList list, const UUID& from, const UUID& to) {
  if (list == IdentifiedList::items) {
    relink(project.inputs, from, to);
    relink(project.monitorMixes, from, to);
    relink(project.equipmentRequirements, from, to);
    for (std::size_t i = 0; i < project.groups.size(); ++i) {
      const List<UUID>& members = project.groups[i].itemIDs;
      if (std::find(members.begin(), members.end(), from) == members.end()) continue;
      List<UUID>& changed = project.groups.edit(i).itemIDs;
      for (std::size_t k = 0; k < changed.size(); ++k)
        if (changed[k] == from) changed.edit(k) = to;
    }
  }
  if (list == IdentifiedList::groups)
    for (std::size_t i = 0; i < project.items.size(); ++i)
      if (project.items[i].groupID == from) project.items.edit(i).groupID = to;
}

template <class Row>
bool isBelowOne(const Row& row, std::optional<std::int64_t> Row::*number) {
  return row.*number && *(row.*number) < 1;
}

template <class Row>
std::optional<std::size_t> firstBelowOne(const List<Row>& rows, const std::optional<UUID>& id,
                                         std::optional<std::int64_t> Row::*number) {
  const auto found = std::find_if(rows.begin(), rows.end(), [&](const Row& row) {
    return row.id == id && isBelowOne(row, number);
  });
  if (found == rows.end()) return std::nullopt;
  return static_cast<std::size_t>(found - rows.begin());
}

constexpr const char* channelBelowOne = "Channel is below 1";
constexpr const char* mixBelowOne = "Mix number is below 1";

// An input and a mix may share their identifier: the title tells them apart.
AuditFinding belowOne(const char* title, const UUID& row) {
  AuditFinding result =
      finding(AuditRule::numberBelowOne, "Consoles count their channels and mixes from 1.",
              row.text(), {}, row);
  result.title = title;
  return result;
}

// What follows the colon of a finding's id.
std::string_view placeOf(const AuditFinding& finding) {
  return std::string_view(finding.id).substr(rawValue(finding.rule).size() + 1);
}

}  // namespace

void sharedIdentifiers(const KorrinProject& project, Findings& findings) {
  for (const auto& [id, lists] : sharedOnes(project)) {
    const bool isItem = std::find(lists.begin(), lists.end(), IdentifiedList::items) != lists.end();
    findings.push_back(finding(AuditRule::sharedIdentifier,
                               "One identifier stands in " + joined(lists) + ".", id.text(),
                               isItem ? List<UUID>{id} : List<UUID>(), id));
  }
}

std::optional<Fix> freshIdentifiers(const KorrinProject& project, const AuditFinding& finding,
                                    const Environment& environment) {
  const UUID shared = *finding.recordID;
  KorrinProject changed = project;
  std::vector<IdentifiedList> given;
  bool isFirst = true;
  bool isAmbiguous = false;
  forEachIdentifiedList([&](IdentifiedList list, auto member) {
    std::optional<std::size_t> place;
    for (std::size_t i = 0; const auto& record : project.*member) {
      if (record.id == shared) {
        // Which of two records of one list a link means, nobody can tell.
        if (place && !isFirst) isAmbiguous = true;
        place = i;
      }
      ++i;
    }
    if (!place || std::exchange(isFirst, false)) return;
    const UUID fresh = environment.makeUUID();
    (changed.*member).edit(*place).id = fresh;
    moveLinks(changed, list, shared, fresh);
    given.push_back(list);
  });
  if (isAmbiguous) return std::nullopt;
  const std::string title = "Give the record in " + joined(given) + " with the identifier " +
                            shared.text() + " a fresh one, its links following";
  return Fix{.title = title, .command = fixes::replacingProject(std::move(changed), environment)};
}

void numbersBelowOne(const KorrinProject& project, Findings& findings) {
  for (const InputChannel& input : project.inputs)
    if (isBelowOne(input, &InputChannel::channel))
      findings.push_back(belowOne(channelBelowOne, input.id));
  for (const MonitorMix& mix : project.monitorMixes)
    if (isBelowOne(mix, &MonitorMix::number)) findings.push_back(belowOne(mixBelowOne, mix.id));
}

std::optional<Fix> noNumber(const KorrinProject& project, const AuditFinding& finding,
                            const Environment&) {
  if (finding.title == channelBelowOne) {
    const auto place = firstBelowOne(project.inputs, finding.recordID, &InputChannel::channel);
    return place ? fixes::noChannel(project, *place) : std::nullopt;
  }
  const auto place = firstBelowOne(project.monitorMixes, finding.recordID, &MonitorMix::number);
  return place ? fixes::noMixNumber(project, *place) : std::nullopt;
}

void unusedAssets(const KorrinProject& project, Findings& findings) {
  std::set<Text> settled;
  for (const PlotItem& item : project.items) settled.insert(item.assetID);
  for (const AssetManifestEntry& entry : project.assetManifest)
    if (settled.insert(entry.sha256).second)
      findings.push_back(finding(AuditRule::unusedAsset, "No symbol shows this image.",
                                 entry.sha256, {}, std::nullopt));
}

std::optional<Fix> withoutAsset(const KorrinProject& project, const AuditFinding& finding,
                                const Environment&) {
  const Text digest = placeOf(finding);
  List<AssetManifestEntry> entries = project.assetManifest;
  const auto named =
      std::find_if(entries.begin(), entries.end(),
                   [&](const AssetManifestEntry& entry) { return entry.sha256 == digest; });
  const std::string name = nameOf(*named);
  const std::size_t removed =
      entries.eraseIf([&](const AssetManifestEntry& entry) { return entry.sha256 == digest; });
  const std::string count = removed == 1 ? "" : ", all " + std::to_string(removed) + " entries";
  return Fix{.title = "Remove the unused " + name + count,
             .command = DocumentCommand::replaceAssetManifest(std::move(entries))};
}

void repeatedAssets(const KorrinProject& project, Findings& findings) {
  std::map<Text, std::size_t> counts;
  for (const AssetManifestEntry& entry : project.assetManifest)
    if (++counts[entry.sha256] == 2)
      findings.push_back(finding(AuditRule::repeatedAsset,
                                 "The list of embedded images names this one more than once.",
                                 entry.sha256, {}, std::nullopt));
}

std::optional<Fix> assetOnce(const KorrinProject& project, const AuditFinding& finding,
                             const Environment&) {
  const Text digest = placeOf(finding);
  List<AssetManifestEntry> entries = project.assetManifest;
  std::string name;
  entries.eraseIf([&](const AssetManifestEntry& entry) {
    if (entry.sha256 != digest) return false;
    if (!name.empty()) return true;
    name = nameOf(entry);
    return false;
  });
  return Fix{.title = "Keep only the first entry of " + name,
             .command = DocumentCommand::replaceAssetManifest(std::move(entries))};
}

void newerFormat(const KorrinProject& project, Findings& findings) {
  if (project.schemaVersion <= KorrinProject::currentSchemaVersion) return;
  findings.push_back(finding(AuditRule::newerFormat,
                             "The document says version " + std::to_string(project.schemaVersion) +
                                 " of the format, and version " +
                                 std::to_string(KorrinProject::currentSchemaVersion) +
                                 " is the newest known here.",
                             std::get<0>(fieldsOf<KorrinProject>()).key, {}, std::nullopt));
}

}  // namespace korrin::auditing
