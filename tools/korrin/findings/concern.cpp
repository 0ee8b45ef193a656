#include "findings/concern.h"

#include <cstdint>
#include <optional>
#include <string_view>

#include "terminal/display_text.h"

namespace korrin::host {
namespace {

/// "channel 2: Kick Out"; without a number "input: Kick Out", without a name "channel 2".
std::string numbered(std::string_view numberedKind, std::string_view kind,
                     const std::optional<std::int64_t>& number, const Text& name) {
  std::string text(number ? numberedKind : kind);
  if (number) text += " " + std::to_string(*number);
  if (!name.isBlank()) text += ": " + name.str();
  return text;
}

template <class Index, class Record>
void add(Index& index, const List<Record>& records) {
  for (const Record& record : records) index.try_emplace(record.id, &record);
}

template <class Index>
std::string found(const Index& index, const std::optional<UUID>& id) {
  if (!id) return {};
  const auto entry = index.find(*id);
  return entry == index.end() ? std::string() : description(*entry->second);
}

}  // namespace

std::string description(const InputChannel& input) {
  return numbered("channel", "input", input.channel, input.source);
}

std::string description(const MonitorMix& mix) {
  return numbered("mix", "mix", mix.number, mix.name);
}

std::string description(const EquipmentRequirement& requirement) {
  const Text& name = requirement.item.isBlank() ? requirement.category : requirement.item;
  return numbered("equipment", "equipment", std::nullopt, name);
}

std::string description(const PlotItem& item) {
  const std::string kind(rawValue(item.kind));
  if (!item.label.isBlank()) return kind + ": " + item.label.str();
  return kind + " at " + shortNumber(item.position.x, 6) + ", " + shortNumber(item.position.y, 6) +
         " mm";
}

std::string description(const PlotLayer& layer) {
  return numbered("layer", "layer", std::nullopt, layer.name);
}

std::string description(const PlotGroup& group) {
  return numbered("group", "group", std::nullopt, group.name);
}

Concerns::Concerns(const KorrinProject& project) : project_(project), subjects_(project) {
  add(inputs_, project.inputs);
  add(mixes_, project.monitorMixes);
  add(items_, project.items);
  add(layers_, project.layers);
  add(groups_, project.groups);
}

std::string Concerns::of(const PreflightIssue& issue) const {
  const std::optional<IssueSubject> subject = subjects_(issue);
  if (!subject) return {};
  switch (subject->list) {
    case ProjectList::items:
      return description(project_.items[subject->index]);
    case ProjectList::inputs:
      return description(project_.inputs[subject->index]);
    case ProjectList::monitorMixes:
      return description(project_.monitorMixes[subject->index]);
    case ProjectList::equipmentRequirements:
      return description(project_.equipmentRequirements[subject->index]);
  }
  return {};
}

std::string Concerns::of(const AuditFinding& finding) const {
  switch (finding.rule) {
    case AuditRule::hiddenItems:
      return found(layers_, finding.recordID);
    case AuditRule::oneSidedMembership:
    case AuditRule::unknownMember:
    case AuditRule::repeatedMember:
    case AuditRule::emptyGroup:
      return found(groups_, finding.recordID);
    case AuditRule::numberBelowOne: {
      const std::string input = found(inputs_, finding.recordID);
      const bool isMix = finding.title.str().starts_with("Mix") || input.empty();
      return isMix ? found(mixes_, finding.recordID) : input;
    }
    case AuditRule::missingLayer:
    case AuditRule::missingGroup:
    case AuditRule::unencodableNumber:
    case AuditRule::rotatedOutsideStage:
    case AuditRule::unreadableTint:
      return found(items_, finding.itemIDs.front());
    case AuditRule::sharedIdentifier:
      return finding.recordID->text();
    case AuditRule::unusedAsset:
    case AuditRule::repeatedAsset:
    case AuditRule::newerFormat:
      break;
  }
  const std::string& id = finding.id.str();
  return id.substr(id.find(':') + 1);
}

}  // namespace korrin::host
