#pragma once

// The cases that put another value in the place of one part of the project, and nothing else: a
// table says which part, and one function applies them all.

#include <type_traits>
#include <utility>

#include "korrin/commands/document_command.h"

namespace korrin {

/// What such a case replaces, where it carries the new value, and which flags it raises.
template <class Case, class Value>
struct ReplacedPart {
  Value KorrinProject::*part;
  Value Case::*value;
  bool affectsTechnicalData;
  bool affectsDocumentStructure;
};

template <class Case, class Value>
consteval auto plainPart(Value KorrinProject::*part, Value Case::*value) {
  return ReplacedPart<Case, Value>{part, value, false, false};
}
template <class Case, class Value>
consteval auto technicalPart(Value KorrinProject::*part, Value Case::*value) {
  return ReplacedPart<Case, Value>{part, value, true, false};
}
template <class Case, class Value>
consteval auto structuralPart(Value KorrinProject::*part, Value Case::*value) {
  return ReplacedPart<Case, Value>{part, value, false, true};
}

template <class Case>
inline constexpr auto partOf = nullptr;
template <>
inline constexpr auto partOf<ReplaceGroups> = structuralPart(&KorrinProject::groups,
                                                             &ReplaceGroups::groups);
template <>
inline constexpr auto partOf<ReplaceLayers> = structuralPart(&KorrinProject::layers,
                                                             &ReplaceLayers::layers);
template <>
inline constexpr auto partOf<ReplaceAssetManifest> = structuralPart(&KorrinProject::assetManifest,
                                                                    &ReplaceAssetManifest::entries);
template <>
inline constexpr auto partOf<ReplaceMetadata> = plainPart(&KorrinProject::metadata,
                                                          &ReplaceMetadata::metadata);
template <>
inline constexpr auto partOf<ReplaceStage> = structuralPart(&KorrinProject::stage,
                                                            &ReplaceStage::stage);
template <>
inline constexpr auto partOf<ReplaceInputs> = technicalPart(&KorrinProject::inputs,
                                                            &ReplaceInputs::inputs);
template <>
inline constexpr auto partOf<ReplaceMonitorMixes> =
    technicalPart(&KorrinProject::monitorMixes, &ReplaceMonitorMixes::monitorMixes);
template <>
inline constexpr auto partOf<ReplaceEquipment> =
    technicalPart(&KorrinProject::equipmentRequirements, &ReplaceEquipment::equipmentRequirements);
template <>
inline constexpr auto partOf<ReplaceNotes> = technicalPart(&KorrinProject::notes,
                                                           &ReplaceNotes::notes);

/// A case with a row in the table.
template <class Case>
concept ReplacesOnePart = !std::is_null_pointer_v<std::remove_cv_t<decltype(partOf<Case>)>>;

/// The items that such a case names.
template <ReplacesOnePart Case>
IDSet itemsNamedBy(const Case&) {
  return {};
}
inline IDSet itemsNamedBy(const ReplaceGroups& replacement) {
  IDSet members;
  for (const PlotGroup& group : replacement.groups)
    members.insert(group.itemIDs.begin(), group.itemIDs.end());
  return members;
}

template <ReplacesOnePart Case>
CommandResult applyCase(const Case& replacement, KorrinProject& project,
                        const Environment& environment) {
  constexpr auto row = partOf<Case>;
  auto value = replacement.*row.value;
  CommandResult result = {.inverse = DocumentCommand(Case{project.*row.part}),
                          .changes = {.changedItemIDs = itemsNamedBy(replacement),
                                      .affectsTechnicalData = row.affectsTechnicalData,
                                      .affectsDocumentStructure = row.affectsDocumentStructure}};
  const Instant now = environment.now();
  project.*row.part = std::move(value);
  // Last, so that metadata gets the current instant whatever instant it brought along.
  project.metadata.modifiedAt = now;
  return result;
}

}  // namespace korrin
