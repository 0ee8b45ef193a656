#include "tests/support/sample_project.h"

#include <chrono>
#include <utility>

namespace korrin::test {
namespace {

PlotItem symbol(UUID id, PlotItemKind kind, Text assetID, Text label, StagePoint position,
                StageSize size) {
  return {.id = id,
          .kind = kind,
          .assetID = std::move(assetID),
          .position = position,
          .size = size,
          .rotationDegrees = 0,
          .isFlippedHorizontally = false,
          .isFlippedVertically = false,
          .layerID = sample::front,
          .groupID = std::nullopt,
          .isLocked = false,
          .label = std::move(label),
          .riserHeightMillimeters = std::nullopt,
          .style = {.tintHex = std::nullopt, .labelVisible = true, .labelScale = 1}};
}

List<PlotItem> sampleItems() {
  PlotItem vocal = symbol(sample::vocal, PlotItemKind::microphone, "krn.mic.vocal.v1", "Lead vocal",
                          {.x = 0, .y = -2500}, {.width = 300, .height = 300});
  vocal.groupID = sample::groupOfTwo;
  PlotItem guitar = symbol(sample::guitar, PlotItemKind::amplifier, "krn.amp.combo.v1",
                           "Guitar amp", {.x = -3000, .y = 800}, {.width = 700, .height = 350});
  guitar.groupID = sample::groupOfThree;
  PlotItem wedge = symbol(sample::wedge, PlotItemKind::monitor, "krn.audio.wedge.v1", "Mix 1",
                          {.x = 0, .y = -3400}, {.width = 600, .height = 450});
  wedge.groupID = sample::groupOfTwo;
  PlotItem kick = symbol(sample::kick, PlotItemKind::microphone, "krn.mic.kick.v1", "Kick",
                         {.x = 0, .y = 1800}, {.width = 300, .height = 200});
  kick.groupID = sample::groupOfThree;
  PlotItem riser = symbol(sample::drumRiser, PlotItemKind::riser, "krn.stage.riser.v1", "Drums",
                          {.x = 0, .y = 2200}, {.width = 3000, .height = 2000});
  riser.groupID = sample::groupOfThree;
  riser.riserHeightMillimeters = 400;
  PlotItem keys = symbol(sample::keys, PlotItemKind::instrument, "krn.instrument.keys.v1", "Keys",
                         {.x = 3200, .y = 600}, {.width = 1400, .height = 450});
  keys.isLocked = true;
  PlotItem truss = symbol(sample::truss, PlotItemKind::custom, "e3b0c44298fc1c14", "Truss",
                          {.x = 0, .y = 0}, {.width = 10000, .height = 300});
  truss.layerID = sample::rigging;
  PlotItem spareAmp = symbol(sample::spareAmp, PlotItemKind::amplifier, "krn.amp.combo.v1",
                             "Spare amp", {.x = 5200, .y = 3000}, {.width = 700, .height = 350});
  spareAmp.layerID = sample::archive;
  return {vocal, guitar, wedge, kick, riser, keys, truss, spareAmp};
}

InputChannel input(UUID id, std::int64_t channel, Text source, std::optional<UUID> plotItemID) {
  return {.id = id,
          .channel = channel,
          .source = std::move(source),
          .microphoneOrDI = "Dynamic",
          .stand = "Tall boom",
          .phantomPower = false,
          .notes = {},
          .plotItemID = plotItemID};
}

MonitorMix mix(UUID id, std::int64_t number, Text name, std::optional<UUID> plotItemID) {
  return {.id = id,
          .number = number,
          .name = std::move(name),
          .type = "Wedge",
          .outputPatch = "Out 1",
          .notes = {},
          .plotItemID = plotItemID};
}

EquipmentRequirement equipment(UUID id, Text category, Text item, std::optional<UUID> plotItemID) {
  return {.id = id,
          .category = std::move(category),
          .item = std::move(item),
          .quantity = 1,
          .suppliedBy = "Venue",
          .notes = {},
          .plotItemID = plotItemID};
}

}  // namespace

UUID identifier(std::uint64_t number) {
  UUID::Bytes bytes{};
  for (std::size_t i = 0; i < 8; ++i)
    bytes[15 - i] = static_cast<std::uint8_t>(number >> (8 * i) & 0xFF);
  return UUID(bytes);
}

Instant instant(int seconds) {
  using namespace std::chrono;
  return sys_days(year(2031) / May / 4) + std::chrono::seconds(seconds);
}

TestEnvironment::TestEnvironment()
    : environment_{.now = [this] { return instantOfRead(++clockReads_); },
                   .makeUUID = [this] { return identifierMade(++identifiersMade_); }} {}

PlotItem microphone(UUID id, double x, double y) {
  return symbol(id, PlotItemKind::microphone, "krn.mic.vocal.v1", "Mic", {.x = x, .y = y},
                {.width = 200, .height = 200});
}

KorrinProject sampleProject() {
  return {
      .schemaVersion = 1,
      .minimumReaderVersion = 1,
      .metadata = {.title = "Summer tour",
                   .artist = "The Lanterns",
                   .venue = "Old Harbour Hall",
                   .eventDate = instant(864000),
                   .preparedBy = "Mo",
                   .contactEmail = "mo@example.org",
                   .revision = "3",
                   .createdAt = instant(0),
                   .modifiedAt = instant(60)},
      .stage = {.name = "Main Stage",
                .size = {.width = 12000, .height = 8000},
                .audienceEdge = AudienceEdge::top,
                .gridSpacingMillimeters = 500,
                .showGrid = true,
                .showDimensions = true},
      .layers = {PlotLayer{.id = sample::front,
                           .name = "Stage",
                           .isVisible = true,
                           .isLocked = false,
                           .zIndex = 0},
                 PlotLayer{.id = sample::rigging,
                           .name = "Rigging",
                           .isVisible = true,
                           .isLocked = true,
                           .zIndex = 1},
                 PlotLayer{.id = sample::archive,
                           .name = "Archive",
                           .isVisible = false,
                           .isLocked = false,
                           .zIndex = -1}},
      .items = sampleItems(),
      .groups = {PlotGroup{.id = sample::groupOfTwo,
                           .name = "Group 1",
                           .itemIDs = {sample::vocal, sample::wedge}},
                 PlotGroup{.id = sample::groupOfThree,
                           .name = "Group 2",
                           .itemIDs = {sample::kick, sample::drumRiser, sample::guitar}}},
      .inputs = {input(identifier(0x301), 1, "Kick", sample::kick),
                 input(identifier(0x302), 2, "Lead vocal", sample::vocal),
                 input(identifier(0x303), 3, "Playback", std::nullopt)},
      .monitorMixes = {mix(identifier(0x401), 1, "Lead vocal", sample::wedge),
                       mix(identifier(0x402), 2, "Keys", std::nullopt)},
      .equipmentRequirements = {equipment(identifier(0x501), "Staging", "Drum riser",
                                          sample::drumRiser),
                                equipment(identifier(0x502), "Power", "Clean 230 V power",
                                          std::nullopt)},
      .notes = {ProjectNote{.id = identifier(0x601), .title = "Soundcheck", .body = "At four."}},
      .exportSettings = {.paperSize = PaperSize::a4,
                         .includeInputList = true,
                         .includeMonitorMixes = true,
                         .includeEquipment = true,
                         .includeNotes = true},
      .assetManifest = {AssetManifestEntry{.sha256 = "e3b0c44298fc1c14",
                                           .filename = "truss.png",
                                           .mediaType = "image/png",
                                           .byteCount = 20480}},
  };
}

}  // namespace korrin::test
