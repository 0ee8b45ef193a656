#include <utility>

#include "korrin/commands/apply_cases.h"

namespace korrin {
namespace {

struct Flags {
  bool technicalData;
  bool documentStructure;
};
constexpr Flags none = {.technicalData = false, .documentStructure = false};
constexpr Flags technical = {.technicalData = true, .documentStructure = false};
constexpr Flags structural = {.technicalData = false, .documentStructure = true};

// Every replacement of one part of the project: what it replaces, what it carries, how its inverse
// is made and which flags it raises. The inverse carries the very value moved out. The touch comes
// last, so that metadata gets the current instant whatever instant it brought along.
template <class Part>
CommandResult replacePart(KorrinProject& project, Part KorrinProject::*part, Part value,
                          DocumentCommand (*makeInverse)(Part), Flags flags,
                          const Environment& environment) {
  Part former = std::exchange(project.*part, std::move(value));
  touch(project, environment);
  return {.inverse = makeInverse(std::move(former)),
          .changes = {.changedItemIDs = {},
                      .affectsTechnicalData = flags.technicalData,
                      .affectsDocumentStructure = flags.documentStructure}};
}

}  // namespace

CommandResult applyCase(const ReplaceGroups& replacement, KorrinProject& project,
                        const Environment& environment) {
  CommandResult result = replacePart(project, &KorrinProject::groups, replacement.groups,
                                     &DocumentCommand::replaceGroups, structural, environment);
  for (const PlotGroup& group : replacement.groups)
    result.changes.changedItemIDs.insert(group.itemIDs.begin(), group.itemIDs.end());
  return result;
}

CommandResult applyCase(const ReplaceLayers& replacement, KorrinProject& project,
                        const Environment& environment) {
  return replacePart(project, &KorrinProject::layers, replacement.layers,
                     &DocumentCommand::replaceLayers, structural, environment);
}

CommandResult applyCase(const ReplaceAssetManifest& replacement, KorrinProject& project,
                        const Environment& environment) {
  return replacePart(project, &KorrinProject::assetManifest, replacement.entries,
                     &DocumentCommand::replaceAssetManifest, structural, environment);
}

CommandResult applyCase(const ReplaceMetadata& replacement, KorrinProject& project,
                        const Environment& environment) {
  return replacePart(project, &KorrinProject::metadata, replacement.metadata,
                     &DocumentCommand::replaceMetadata, none, environment);
}

CommandResult applyCase(const ReplaceStage& replacement, KorrinProject& project,
                        const Environment& environment) {
  return replacePart(project, &KorrinProject::stage, replacement.stage,
                     &DocumentCommand::replaceStage, structural, environment);
}

CommandResult applyCase(const ReplaceInputs& replacement, KorrinProject& project,
                        const Environment& environment) {
  return replacePart(project, &KorrinProject::inputs, replacement.inputs,
                     &DocumentCommand::replaceInputs, technical, environment);
}

CommandResult applyCase(const ReplaceMonitorMixes& replacement, KorrinProject& project,
                        const Environment& environment) {
  return replacePart(project, &KorrinProject::monitorMixes, replacement.monitorMixes,
                     &DocumentCommand::replaceMonitorMixes, technical, environment);
}

CommandResult applyCase(const ReplaceEquipment& replacement, KorrinProject& project,
                        const Environment& environment) {
  return replacePart(project, &KorrinProject::equipmentRequirements,
                     replacement.equipmentRequirements, &DocumentCommand::replaceEquipment,
                     technical, environment);
}

CommandResult applyCase(const ReplaceNotes& replacement, KorrinProject& project,
                        const Environment& environment) {
  return replacePart(project, &KorrinProject::notes, replacement.notes,
                     &DocumentCommand::replaceNotes, technical, environment);
}

// No touch: the project that comes in keeps its instants, which is what makes undoing a deletion
// exact.
CommandResult applyCase(const ReplaceProject& replacement, KorrinProject& project,
                        const Environment&) {
  KorrinProject former = std::exchange(project, replacement.project);
  IDSet ids;
  ids.reserve(project.items.size());
  for (const PlotItem& item : project.items) ids.insert(item.id);
  return {.inverse = DocumentCommand::replaceProject(std::move(former)),
          .changes = {.changedItemIDs = std::move(ids),
                      .affectsTechnicalData = true,
                      .affectsDocumentStructure = true}};
}

}  // namespace korrin
