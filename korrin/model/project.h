#pragma once

// The project: everything that one document holds and a host keeps per open plot.

#include <cstdint>
#include <optional>

#include "korrin/foundation/environment.h"
#include "korrin/model/plot_items.h"
#include "korrin/model/technical_lists.h"

#pragma GCC visibility push(default)

namespace korrin {

class DocumentCommand;
enum class KorrinTemplateID;

/// Who and what a plot is for.
struct ProjectMetadata {
  Text title;                        ///< Heads the printed plot.
  Text artist;                       ///< The act.
  Text venue;                        ///< Where it is played; empty while that is open.
  std::optional<Instant> eventDate;  ///< Absent while no date is set.
  Text preparedBy;                   ///< Who drew the plot.
  Text contactEmail;                 ///< Stored as given, never checked.
  Text revision;                     ///< A label, not a number; "1" for a new document.
  Instant createdAt;                 ///< When the document was made.
  Instant modifiedAt;                ///< Set by every edit; see `DocumentCommand`.

  friend bool operator==(const ProjectMetadata&, const ProjectMetadata&) = default;
};

template <>
constexpr auto fieldsOf<ProjectMetadata>() {
  return std::tuple{
      Field{"title", &ProjectMetadata::title},
      Field{"artist", &ProjectMetadata::artist},
      Field{"venue", &ProjectMetadata::venue},
      Field{"eventDate", &ProjectMetadata::eventDate},
      Field{"preparedBy", &ProjectMetadata::preparedBy},
      Field{"contactEmail", &ProjectMetadata::contactEmail},
      Field{"revision", &ProjectMetadata::revision},
      Field{"createdAt", &ProjectMetadata::createdAt},
      Field{"modifiedAt", &ProjectMetadata::modifiedAt},
  };
}
static_assert(tableIsComplete<ProjectMetadata>);

/// The paper that a plot is printed on.
enum class PaperSize { a4, letter };

template <>
struct CaseTable<PaperSize> {
  static constexpr std::array cases = {Case{PaperSize::a4, "a4"},
                                       Case{PaperSize::letter, "letter"}};
};

/// What a printed or exported plot includes beside the drawing.
struct ExportSettings {
  PaperSize paperSize;       ///< Of every page.
  bool includeInputList;     ///< Whether `inputs` are printed.
  bool includeMonitorMixes;  ///< Whether `monitorMixes` are printed.
  bool includeEquipment;     ///< Whether `equipmentRequirements` are printed.
  bool includeNotes;         ///< Whether `notes` are printed.

  friend bool operator==(const ExportSettings&, const ExportSettings&) = default;
};

template <>
constexpr auto fieldsOf<ExportSettings>() {
  return std::tuple{
      Field{"paperSize", &ExportSettings::paperSize},
      Field{"includeInputList", &ExportSettings::includeInputList},
      Field{"includeMonitorMixes", &ExportSettings::includeMonitorMixes},
      Field{"includeEquipment", &ExportSettings::includeEquipment},
      Field{"includeNotes", &ExportSettings::includeNotes},
  };
}
static_assert(tableIsComplete<ExportSettings>);

/// One embedded image or PDF. Its bytes are kept by the host, not here.
struct AssetManifestEntry {
  Text sha256;             ///< Digest of the bytes, and the identifier that items refer to.
  Text filename;           ///< The file's name when it was imported.
  Text mediaType;          ///< Such as "image/png".
  std::int64_t byteCount;  ///< Size of the asset in bytes.

  /// The entry's identity: its digest.
  const Text& id() const { return sha256; }

  friend bool operator==(const AssetManifestEntry&, const AssetManifestEntry&) = default;
};

template <>
constexpr auto fieldsOf<AssetManifestEntry>() {
  return std::tuple{
      Field{"sha256", &AssetManifestEntry::sha256},
      Field{"filename", &AssetManifestEntry::filename},
      Field{"mediaType", &AssetManifestEntry::mediaType},
      Field{"byteCount", &AssetManifestEntry::byteCount},
  };
}
static_assert(tableIsComplete<AssetManifestEntry>);

/// A whole document. Copies cost no allocation and share every list and text until one is changed.
struct KorrinProject {
  std::int64_t schemaVersion;         ///< Version of the format that wrote the document.
  std::int64_t minimumReaderVersion;  ///< Lowest format version that can read it.
  ProjectMetadata metadata;           ///< Who and what the plot is for.
  StageDefinition stage;              ///< What the plot is drawn on.
  List<PlotLayer> layers;             ///< What items are drawn on and locked by; may be empty.
  List<PlotItem> items;           ///< In stacking order within a layer; new items stand at the end.
  List<PlotGroup> groups;         ///< The newest stands at the end.
  List<InputChannel> inputs;      ///< In the order of the printed list.
  List<MonitorMix> monitorMixes;  ///< In the order of the printed list.
  List<EquipmentRequirement> equipmentRequirements;  ///< In the order of the printed list.
  List<ProjectNote> notes;                           ///< In the order in which they are printed.
  ExportSettings exportSettings;                     ///< How the plot is printed.
  List<AssetManifestEntry> assetManifest;            ///< The images and PDFs that came with it.

  /// The format version that this library writes and understands.
  static constexpr std::int64_t currentSchemaVersion = 1;
  /// The reader version that documents made by this library demand.
  static constexpr std::int64_t currentMinimumReaderVersion = 1;

  /// An empty document: a 12 m by 8 m stage with one layer. Makes one identifier and reads the
  /// clock twice, for `createdAt` and then for `modifiedAt`.
  static KorrinProject newDocument(const Environment& environment = Environment::system());

  /// A new document from a built-in template; see templates/.
  static KorrinProject template_(KorrinTemplateID id,
                                 const Environment& environment = Environment::system());

  /// A new festival plot that shows every part of a document; see templates/.
  static KorrinProject example(const Environment& environment = Environment::system());

  /// Whether the item may be selected: some layer with the item's `layerID` is visible and not
  /// locked. The item need not belong to the project, and its own lock does not matter.
  bool canSelectItem(const PlotItem& item) const;

  /// Whether the item may be edited: it is selectable and not itself locked.
  bool canEditItem(const PlotItem& item) const;

  /// The layer that new items go on: the requested one when it exists, hidden or locked as it may
  /// be; otherwise the first of the list; absent when there are no layers.
  std::optional<UUID> resolvedActiveLayerID(std::optional<UUID> requested) const;

  /// The command that makes a new group of the selected items that may be edited, taking them out
  /// of the groups they were in; groups left empty are dropped. Absent when fewer than two such
  /// items are selected; unknown identifiers are passed over. Makes one identifier, the group's;
  /// the members stand in the order of `items`.
  std::optional<DocumentCommand> groupingCommand(
      const IDSet& selection, const Environment& environment = Environment::system()) const;

  friend bool operator==(const KorrinProject&, const KorrinProject&) = default;
};

template <>
constexpr auto fieldsOf<KorrinProject>() {
  return std::tuple{
      Field{"schemaVersion", &KorrinProject::schemaVersion},
      Field{"minimumReaderVersion", &KorrinProject::minimumReaderVersion},
      Field{"metadata", &KorrinProject::metadata},
      Field{"stage", &KorrinProject::stage},
      Field{"layers", &KorrinProject::layers},
      Field{"items", &KorrinProject::items},
      Field{"groups", &KorrinProject::groups},
      Field{"inputs", &KorrinProject::inputs},
      Field{"monitorMixes", &KorrinProject::monitorMixes},
      Field{"equipmentRequirements", &KorrinProject::equipmentRequirements},
      Field{"notes", &KorrinProject::notes},
      Field{"exportSettings", &KorrinProject::exportSettings},
      Field{"assetManifest", &KorrinProject::assetManifest},
  };
}
static_assert(tableIsComplete<KorrinProject>);

}  // namespace korrin

#pragma GCC visibility pop
