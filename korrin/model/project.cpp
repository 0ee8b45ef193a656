#include "korrin/model/project.h"

namespace korrin {

KorrinProject KorrinProject::newDocument(const Environment& environment) {
  // Braced initialisers are evaluated in order: the layer's identifier comes after both instants.
  return {
      .schemaVersion = currentSchemaVersion,
      .minimumReaderVersion = currentMinimumReaderVersion,
      .metadata = {.title = "Untitled Stage Plot",
                   .artist = {},
                   .venue = {},
                   .eventDate = std::nullopt,
                   .preparedBy = {},
                   .contactEmail = {},
                   .revision = "1",
                   .createdAt = environment.now(),
                   .modifiedAt = environment.now()},
      .stage = {.name = "Main Stage",
                .size = {.width = 12000, .height = 8000},
                .audienceEdge = AudienceEdge::top,
                .gridSpacingMillimeters = 500,
                .showGrid = true,
                .showDimensions = true},
      .layers = {PlotLayer{.id = environment.makeUUID(),
                           .name = "Stage",
                           .isVisible = true,
                           .isLocked = false,
                           .zIndex = 0}},
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
