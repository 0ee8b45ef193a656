#pragma once

// The fourteen edits of a project, one payload each. What a case does to the project and what its
// inverse is stands here; how commands are made, kept and applied stands in document_command.h.
// Each has the name under which `DocumentCommand` makes it. Identifiers that the project does not
// hold are passed over, nothing is validated, and every case but `ReplaceProject` and `Compound`
// sets `metadata.modifiedAt` to the current instant.

#include <string_view>
#include <variant>
#include <vector>

#include "korrin/model/project.h"

#pragma GCC visibility push(default)

namespace korrin {

/// Appends items at the end, in the order given. Items that have one of their identifiers are
/// removed first, so that inserting an item again moves it to the end.
///
///     items  A B C        insert B' D   ->   A C B' D        inverse   ->   A C
///
/// The inverse deletes the inserted identifiers, with all that a deletion entails: what an inserted
/// item replaced does not come back.
struct InsertItems {
  static constexpr std::string_view name = "insertItems";  ///< As `caseName()` gives it.
  List<PlotItem> items;  ///< In the order in which they are appended.
};

/// Removes items, clears the links of inputs, monitor mixes and equipment to them, takes them out
/// of all groups and drops the groups that are empty then; a group of one stays.
///
///     items  A B C D      delete B D   ->   A C
///     groups (A B) (D)                 ->   (A)
///
/// The inverse is the whole former project, its `modifiedAt` included.
struct DeleteItems {
  static constexpr std::string_view name = "deleteItems";  ///< As `caseName()` gives it.
  IDSet itemIDs;                                           ///< Unknown ones are passed over.
};

/// Overwrites items in their places, every field. Where the project holds an identifier more than
/// once, the first such item is overwritten.
///
///     items  A B C        replace C' X A'   ->   A' B C'
struct ReplaceItems {
  static constexpr std::string_view name = "replaceItems";  ///< As `caseName()` gives it.
  List<PlotItem> items;                                     ///< Each in its new state.
};

/// Puts another list of groups in the place of the present one. The `groupID` of items stays.
struct ReplaceGroups {
  static constexpr std::string_view name = "replaceGroups";  ///< As `caseName()` gives it.
  List<PlotGroup> groups;                                    ///< All groups from then on.
};

/// Puts another list of layers in the place of the present one. The `layerID` of items stays.
struct ReplaceLayers {
  static constexpr std::string_view name = "replaceLayers";  ///< As `caseName()` gives it.
  List<PlotLayer> layers;                                    ///< All layers from then on.
};

/// Puts another list of embedded images and PDFs in the place of the present one.
struct ReplaceAssetManifest {
  static constexpr std::string_view name = "replaceAssetManifest";  ///< As `caseName()` gives it.
  List<AssetManifestEntry> entries;                                 ///< All entries from then on.
};

/// Replaces the metadata, all but `modifiedAt`, which is the current instant afterwards.
struct ReplaceMetadata {
  static constexpr std::string_view name = "replaceMetadata";  ///< As `caseName()` gives it.
  ProjectMetadata metadata;                                    ///< Its `modifiedAt` is not used.
};

/// Replaces the stage.
struct ReplaceStage {
  static constexpr std::string_view name = "replaceStage";  ///< As `caseName()` gives it.
  StageDefinition stage;                                    ///< The stage from then on.
};

/// Puts another input list in the place of the present one.
struct ReplaceInputs {
  static constexpr std::string_view name = "replaceInputs";  ///< As `caseName()` gives it.
  List<InputChannel> inputs;                                 ///< All inputs from then on.
};

/// Puts another list of monitor mixes in the place of the present one.
struct ReplaceMonitorMixes {
  static constexpr std::string_view name = "replaceMonitorMixes";  ///< As `caseName()` gives it.
  List<MonitorMix> monitorMixes;                                   ///< All mixes from then on.
};

/// Puts another list of equipment in the place of the present one.
struct ReplaceEquipment {
  static constexpr std::string_view name = "replaceEquipment";  ///< As `caseName()` gives it.
  List<EquipmentRequirement> equipmentRequirements;             ///< All lines from then on.
};

/// Puts another list of notes in the place of the present one.
struct ReplaceNotes {
  static constexpr std::string_view name = "replaceNotes";  ///< As `caseName()` gives it.
  List<ProjectNote> notes;                                  ///< All notes from then on.
};

/// Puts another project in the place of the present one, its `modifiedAt` included.
struct ReplaceProject {
  static constexpr std::string_view name = "replaceProject";  ///< As `caseName()` gives it.
  KorrinProject project;                                      ///< The project from then on, whole.
};

/// Applies commands one after the other. Compounds nest to any depth. The inverse holds the
/// inverses in reverse order:
///
///     compound (A B)   ->   inverse   compound (inverse of B, inverse of A)
///
/// An empty compound changes nothing.
struct Compound {
  static constexpr std::string_view name = "compound";  ///< As `caseName()` gives it.
  std::vector<DocumentCommand> commands;                ///< In the order in which they are applied.
};

/// One of the cases; `index()` counts them from 0 in this order.
using CommandPayload =
    std::variant<InsertItems, DeleteItems, ReplaceItems, ReplaceGroups, ReplaceLayers,
                 ReplaceAssetManifest, ReplaceMetadata, ReplaceStage, ReplaceInputs,
                 ReplaceMonitorMixes, ReplaceEquipment, ReplaceNotes, ReplaceProject, Compound>;

}  // namespace korrin

#pragma GCC visibility pop
