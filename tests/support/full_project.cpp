#include "tests/support/full_project.h"

namespace korrin::test {
namespace {

using namespace std::chrono;

Instant instant(int y, unsigned m, unsigned d, nanoseconds time) {
  return sys_days(year(y) / month(m) / day(d)) + time;
}

}  // namespace

UUID numberedID(unsigned number) {
  UUID::Bytes bytes{0x5A, 0x10, 0xFF};
  bytes[6] = 0x40;
  bytes[8] = 0x80;
  bytes[14] = static_cast<std::uint8_t>(number >> 8);
  bytes[15] = static_cast<std::uint8_t>(number);
  return UUID(bytes);
}

KorrinProject fullProject() {
  return {
      .schemaVersion = 1,
      .minimumReaderVersion = 1,
      .metadata = {.title = "Winter Tour",
                   .artist = "The Überschall",
                   .venue = "Town Hall",
                   .eventDate = instant(2026, 12, 5, 20h),
                   .preparedBy = "Production",
                   .contactEmail = "crew@example.org",
                   .revision = "2a",
                   .createdAt = instant(2026, 1, 31, 8h + 15min + 250ms),
                   .modifiedAt = instant(2026, 2, 28, 23h + 59min + 59s + 123456789ns)},
      .stage = {.name = "Main Stage",
                .size = {.width = 12000, .height = 8000.5},
                .audienceEdge = AudienceEdge::bottom,
                .gridSpacingMillimeters = 500,
                .showGrid = true,
                .showDimensions = false},
      .layers = {PlotLayer{.id = numberedID(1),
                           .name = "Stage",
                           .isVisible = true,
                           .isLocked = false,
                           .zIndex = -3}},
      .items = {PlotItem{
          .id = numberedID(2),
          .kind = PlotItemKind::riser,
          .assetID = "krn.staging.riser.v1",
          .position = {.x = -1250, .y = 0.1},
          .size = {.width = 3000, .height = 2400},
          .rotationDegrees = 22.5,
          .isFlippedHorizontally = true,
          .isFlippedVertically = false,
          .layerID = numberedID(1),
          .groupID = numberedID(3),
          .isLocked = true,
          .label = "Drums",
          .riserHeightMillimeters = 600,
          .style = {.tintHex = "#3366CC", .labelVisible = true, .labelScale = 1.25}}},
      .groups = {PlotGroup{.id = numberedID(3), .name = "Rhythm", .itemIDs = {numberedID(2)}}},
      .inputs = {InputChannel{.id = numberedID(4),
                              .channel = 7,
                              .source = "Kick",
                              .microphoneOrDI = "Dynamic",
                              .stand = "Short boom",
                              .phantomPower = false,
                              .notes = "Inside the shell",
                              .plotItemID = numberedID(2)}},
      .monitorMixes = {MonitorMix{.id = numberedID(5),
                                  .number = 2,
                                  .name = "Drums",
                                  .type = "In-ear",
                                  .outputPatch = "Out 3/4",
                                  .notes = "Click and bass",
                                  .plotItemID = numberedID(2)}},
      .equipmentRequirements = {EquipmentRequirement{.id = numberedID(6),
                                                     .category = "Staging",
                                                     .item = "Riser 3 x 2 m",
                                                     .quantity = 4,
                                                     .suppliedBy = "Venue",
                                                     .notes = "Carpeted",
                                                     .plotItemID = numberedID(2)}},
      .notes = {ProjectNote{
          .id = numberedID(7), .title = "Load-in", .body = "Ramp at the rear.\nNo steps."}},
      .exportSettings = {.paperSize = PaperSize::letter,
                         .includeInputList = true,
                         .includeMonitorMixes = false,
                         .includeEquipment = true,
                         .includeNotes = false},
      .assetManifest = {AssetManifestEntry{.sha256 = "9f86d081",
                                           .filename = "logo.png",
                                           .mediaType = "image/png",
                                           .byteCount = 48213}},
  };
}

KorrinProject sparseProject() {
  KorrinProject project = fullProject();
  project.metadata.eventDate.reset();
  PlotItem& item = project.items.edit(0);
  item.groupID.reset();
  item.riserHeightMillimeters.reset();
  item.style.tintHex.reset();
  project.inputs.edit(0).channel.reset();
  project.inputs.edit(0).plotItemID.reset();
  project.monitorMixes.edit(0).number.reset();
  project.monitorMixes.edit(0).plotItemID.reset();
  project.equipmentRequirements.edit(0).plotItemID.reset();
  return project;
}

}  // namespace korrin::test
