// Identifiers, numbers, embedded images and the format.

#include <algorithm>
#include <map>
#include <set>
#include <span>
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

// Lets what links to the record that had the identifier `from` link to it as `to`. Links to an item
// are what rows and groups say; a link to a group is what items say. Nothing in a project links to
// a row or a note.
void moveLinks(KorrinProject& project, PlotLookup& plot, IdentifiedList list, const UUID& from,
               const UUID& to) {
  using Kind = fixes::Link::Kind;
  const bool isItem = list == IdentifiedList::items;
  if (!isItem && list != IdentifiedList::groups) return;
  for (const fixes::Link& link : plot.linksTo(from)) {
    if ((link.kind != Kind::groupOfItem) != isItem) continue;
    switch (link.kind) {
      case Kind::input:
        project.inputs.edit(link.place).plotItemID = to;
        break;
      case Kind::mix:
        project.monitorMixes.edit(link.place).plotItemID = to;
        break;
      case Kind::equipment:
        project.equipmentRequirements.edit(link.place).plotItemID = to;
        break;
      case Kind::member: {
        List<UUID>& members = project.groups.edit(link.place).itemIDs;
        for (std::size_t i = 0; i < members.size(); ++i)
          if (members[i] == from) members.edit(i) = to;
        break;
      }
      case Kind::groupOfItem:
        project.items.edit(link.place).groupID = to;
        break;
    }
  }
}

// An identifier that no record of the plot has. An environment that repeats itself is asked no more
// often than the plot has records.
std::optional<UUID> freshIdentifier(const PlotLookup& plot, const Environment& environment) {
  for (std::size_t tries = plot.ids().size() + 1; tries > 0; --tries)
    if (const UUID fresh = environment.makeUUID(); !plot.ids().contains(fresh)) return fresh;
  return std::nullopt;
}

template <class Row>
bool isBelowOne(const Row& row, std::optional<std::int64_t> Row::*number) {
  return row.*number && *(row.*number) < 1;
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

using Places = std::span<const std::pair<Text, std::size_t>>;

// The entries with the digest that follows the colon of a finding's id.
Places assetPlaces(const PlotLookup& plot, const AuditFinding& finding) {
  const std::string_view id = finding.id;
  return plot.ids().places(keyOf(&KorrinProject::assetManifest),
                           Text(id.substr(rawValue(finding.rule).size() + 1)));
}

DocumentCommand withoutEntries(const KorrinProject& project, Places places) {
  List<AssetManifestEntry> entries = project.assetManifest;
  for (std::size_t i = places.size(); i > 0; --i) entries.erase(places[i - 1].second);
  return DocumentCommand::replaceAssetManifest(std::move(entries));
}

}  // namespace

std::optional<std::string_view> listOf(const AuditFinding& finding) {
  switch (finding.rule) {
    case AuditRule::hiddenItems:
      return keyOf(&KorrinProject::layers);
    case AuditRule::missingLayer:
    case AuditRule::missingGroup:
    case AuditRule::unencodableNumber:
    case AuditRule::rotatedOutsideStage:
    case AuditRule::unreadableTint:
      return keyOf(&KorrinProject::items);
    case AuditRule::oneSidedMembership:
    case AuditRule::unknownMember:
    case AuditRule::repeatedMember:
    case AuditRule::emptyGroup:
      return keyOf(&KorrinProject::groups);
    case AuditRule::numberBelowOne:
      return finding.title == channelBelowOne ? keyOf(&KorrinProject::inputs)
                                              : keyOf(&KorrinProject::monitorMixes);
    case AuditRule::sharedIdentifier:
    case AuditRule::unusedAsset:
    case AuditRule::repeatedAsset:
    case AuditRule::newerFormat:
      break;
  }
  return std::nullopt;
}

void sharedIdentifiers(const KorrinProject& project, Findings& findings) {
  for (const auto& [id, lists] : sharedOnes(project)) {
    const bool isItem = std::find(lists.begin(), lists.end(), IdentifiedList::items) != lists.end();
    findings.push_back(finding(AuditRule::sharedIdentifier,
                               "One identifier stands in " + joined(lists) + ".", id.text(),
                               isItem ? List<UUID>{id} : List<UUID>(), id));
  }
}

std::optional<Fix> freshIdentifiers(PlotLookup& plot, const AuditFinding& finding,
                                    const Environment& environment) {
  const UUID shared = *finding.recordID;
  KorrinProject changed = plot.project();
  std::vector<IdentifiedList> given;
  bool isFirst = true;
  bool isPossible = true;
  forEachIdentifiedList([&](IdentifiedList list, auto member) {
    const auto places = plot.ids().places(keyOf(member), shared);
    if (places.empty() || std::exchange(isFirst, false) || !isPossible) return;
    const std::optional<UUID> fresh = freshIdentifier(plot, environment);
    // Which of two records of one list a link means, nobody can tell. And an error or a warning
    // about the record would appear under the fresh identifier as a new one.
    isPossible = places.size() == 1 && fresh && !plot.hasSeriousFinding(keyOf(member), shared);
    if (!isPossible) return;
    (changed.*member).edit(places.front().second).id = *fresh;
    moveLinks(changed, plot, list, shared, *fresh);
    given.push_back(list);
  });
  if (!isPossible) return std::nullopt;
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

std::optional<Fix> noNumber(PlotLookup& plot, const AuditFinding& finding, const Environment&) {
  if (finding.title == channelBelowOne) {
    const auto place = plot.firstWith(
        &KorrinProject::inputs, *finding.recordID,
        [](const InputChannel& input) { return isBelowOne(input, &InputChannel::channel); });
    return fixes::noChannel(plot, *place);
  }
  const auto place =
      plot.firstWith(&KorrinProject::monitorMixes, *finding.recordID,
                     [](const MonitorMix& mix) { return isBelowOne(mix, &MonitorMix::number); });
  return fixes::noMixNumber(plot, *place);
}

void unusedAssets(const KorrinProject& project, Findings& findings) {
  std::set<Text> settled;
  for (const PlotItem& item : project.items) settled.insert(item.assetID);
  for (const AssetManifestEntry& entry : project.assetManifest)
    if (settled.insert(entry.sha256).second)
      findings.push_back(finding(AuditRule::unusedAsset, "No symbol shows this image.",
                                 entry.sha256, {}, std::nullopt));
}

std::optional<Fix> withoutAsset(PlotLookup& plot, const AuditFinding& finding, const Environment&) {
  const auto places = assetPlaces(plot, finding);
  const std::string name = nameOf(plot.project().assetManifest[places.front().second]);
  const std::string count =
      places.size() == 1 ? "" : ", all " + std::to_string(places.size()) + " entries";
  return Fix{.title = "Remove the unused " + name + count,
             .command = withoutEntries(plot.project(), places)};
}

void repeatedAssets(const KorrinProject& project, Findings& findings) {
  std::map<Text, std::size_t> counts;
  for (const AssetManifestEntry& entry : project.assetManifest)
    if (++counts[entry.sha256] == 2)
      findings.push_back(finding(AuditRule::repeatedAsset,
                                 "The list of embedded images names this one more than once.",
                                 entry.sha256, {}, std::nullopt));
}

std::optional<Fix> assetOnce(PlotLookup& plot, const AuditFinding& finding, const Environment&) {
  const auto places = assetPlaces(plot, finding);
  const std::string name = nameOf(plot.project().assetManifest[places.front().second]);
  return Fix{.title = "Keep only the first entry of " + name,
             .command = withoutEntries(plot.project(), places.subspan(1))};
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
