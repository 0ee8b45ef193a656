#include "korrin/model/project.h"

#include <utility>

namespace korrin {

KorrinProject KorrinProject::newDocument(const Environment& environment) {
  // What can fail is made before the project: g++ 12 destroys parts of a nested aggregate twice
  // when a later part of its initialiser throws.
  const Instant createdAt = environment.now();
  const Instant modifiedAt = environment.now();
  List<PlotLayer> layers = {PlotLayer{.id = environment.makeUUID(),
                                      .name = "Stage",
                                      .isVisible = true,
                                      .isLocked = false,
                                      .zIndex = 0}};
  Text title = "Untitled Stage Plot";
  Text revision = "1";
  Text stageName = "Main Stage";
  return {
      .schemaVersion = currentSchemaVersion,
      .minimumReaderVersion = currentMinimumReaderVersion,
      .metadata = {.title = std::move(title),
                   .artist = {},
                   .venue = {},
                   .eventDate = std::nullopt,
                   .preparedBy = {},
                   .contactEmail = {},
                   .revision = std::move(revision),
                   .createdAt = createdAt,
                   .modifiedAt = modifiedAt},
      .stage = {.name = std::move(stageName),
                .size = {.width = 12000, .height = 8000},
                .audienceEdge = AudienceEdge::top,
                .gridSpacingMillimeters = 500,
                .showGrid = true,
                .showDimensions = true},
      .layers = std::move(layers),
      .items = {},
      .groups = {},
      .inputs = {},
      .monitorMixes = {},
      .equipmentRequirements = {},
      .notes = {},
      .exportSettings = {.paperSize = PaperSize::a4,
                         .includeInputList = true,
                         .includeMonitorMixes = true,
                         .includeEquipment = true,
                         .includeNotes = true},
      .assetManifest = {},
  };
}

}  // namespace korrin
