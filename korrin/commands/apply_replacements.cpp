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
// is made and which flags it raises. The instant comes last, so that metadata gets the current one
// whatever instant it brought along.
template <class Part>
CommandResult replacePart(KorrinProject& project, Part KorrinProject::*part, Part value,
                          DocumentCommand (*makeInverse)(Part), Flags flags,
                          const Environment& environment) {
  CommandResult result = {.inverse = makeInverse(project.*part),
                          .changes = {.changedItemIDs = {},
                                      .affectsTechnicalData = flags.technicalData,
                                      .affectsDocumentStructure = flags.documentStructure}};
  const Instant now = environment.now();
  project.*part = std::move(value);
  project.metadata.modifiedAt = now;
  return result;
}

}  // namespace

CommandResult applyCase(const ReplaceGroups& replacement, KorrinProject& project,
                        const Environment& environment) {
  IDSet members;
  for (const PlotGroup& group : replacement.groups)
    members.insert(group.itemIDs.begin(), group.itemIDs.end());
  CommandResult result = replacePart(project, &KorrinProject::groups, replacement.groups,
                                     &DocumentCommand::replaceGroups, structural, environment);
  result.changes.changedItemIDs = std::move(members);
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

// `modifiedAt` comes with the project, which is what makes undoing a deletion exact.
CommandResult applyCase(const ReplaceProject& replacement, KorrinProject& project,
                        const Environment&) {
  IDSet ids;
  ids.reserve(replacement.project.items.size());
  for (const PlotItem& item : replacement.project.items) ids.insert(item.id);
  DocumentCommand inverse = DocumentCommand::replaceProject(project);
  project = replacement.project;
  return {.inverse = std::move(inverse),
          .changes = {.changedItemIDs = std::move(ids),
                      .affectsTechnicalData = true,
                      .affectsDocumentStructure = true}};
}

}  // namespace korrin
