#include <algorithm>
#include <utility>

#include "korrin/foundation/precondition.h"
#include "korrin/templates/plot_tables.h"

namespace korrin::templates {
namespace {

ProjectMetadata metadata(const PlotTables& tables, Instant createdAt, Instant modifiedAt) {
  return {
      .title = tables.title,
      .artist = tables.artist,
      .venue = tables.venue,
      .eventDate = std::nullopt,
      .preparedBy = "Production",
      .contactEmail = tables.contactEmail,
      .revision = "1",
      .createdAt = createdAt,
      .modifiedAt = modifiedAt,
  };
}

StageDefinition stage(const PlotTables& tables) {
  return {
      .name = tables.stageName,
      .size = tables.stageSize,
      .audienceEdge = AudienceEdge::top,
      .gridSpacingMillimeters = 500,
      .showGrid = true,
      .showDimensions = true,
  };
}

PlotLayer layer(UUID id) {
  return {.id = id, .name = "Stage", .isVisible = true, .isLocked = false, .zIndex = 0};
}

PlotItem item(const ItemRow& row, UUID layerID, const Environment& environment) {
  return {
      .id = environment.makeUUID(),
      .kind = row.kind,
      .assetID = row.assetID,
      .position = row.position,
      .size = row.size,
      .rotationDegrees = row.rotationDegrees,
      .isFlippedHorizontally = false,
      .isFlippedVertically = false,
      .layerID = layerID,
      .groupID = std::nullopt,
      .isLocked = false,
      .label = row.label,
      .riserHeightMillimeters = std::nullopt,
      .style = {.tintHex = std::nullopt, .labelVisible = true, .labelScale = 1},
  };
}

UUID idOf(const List<PlotItem>& items, std::string_view label) {
  const auto found = std::find_if(items.begin(), items.end(), [label](const PlotItem& candidate) {
    return std::string_view(candidate.label) == label;
  });
  precondition(found != items.end(), "a line of a template names no item");
  return found->id;
}

InputChannel input(const InputRow& row, UUID plotItemID, const Environment& environment) {
  return {
      .id = environment.makeUUID(),
      .channel = row.channel,
      .source = row.source,
      .microphoneOrDI = row.microphoneOrDI,
      .stand = row.stand,
      .phantomPower = row.phantomPower == Phantom::on,
      .notes = row.notes,
      .plotItemID = plotItemID,
  };
}

MonitorMix mix(const MixRow& row, UUID plotItemID, const Environment& environment) {
  return {
      .id = environment.makeUUID(),
      .number = row.number,
      .name = row.name,
      .type = row.type,
      .outputPatch = row.outputPatch,
      .notes = row.notes,
      .plotItemID = plotItemID,
  };
}

EquipmentRequirement equipment(const EquipmentRow& row, UUID plotItemID,
                               const Environment& environment) {
  return {
      .id = environment.makeUUID(),
      .category = row.category,
      .item = row.item,
      .quantity = row.quantity,
      .suppliedBy = row.suppliedBy,
      .notes = row.notes,
      .plotItemID = plotItemID,
  };
}

}  // namespace

KorrinProject build(const PlotTables& tables, const Environment& environment) {
  const Instant createdAt = environment.now();
  const Instant modifiedAt = environment.now();
  const UUID layerID = environment.makeUUID();
  List<PlotItem> items;
  for (const ItemRow& row : tables.items) items.push_back(item(row, layerID, environment));
  const auto link = [&items](std::string_view label) { return idOf(items, label); };
  List<InputChannel> inputs;
  for (const InputRow& row : tables.inputs)
    inputs.push_back(input(row, link(row.plotItem), environment));
  List<MonitorMix> mixes;
  for (const MixRow& row : tables.monitorMixes)
    mixes.push_back(mix(row, link(row.plotItem), environment));
  List<EquipmentRequirement> requirements;
  for (const EquipmentRow& row : tables.equipment)
    requirements.push_back(equipment(row, link(row.plotItem), environment));
  List<ProjectNote> notes;
  for (const NoteRow& row : tables.notes)
    notes.push_back({.id = environment.makeUUID(), .title = row.title, .body = row.body});

  // Whatever may fail is made before the project: g++ 12 destroys the parts of a record twice when
  // a later field of the record around it fails.
  ProjectMetadata header = metadata(tables, createdAt, modifiedAt);
  StageDefinition ground = stage(tables);
  List<PlotLayer> layers = {layer(layerID)};
  return {
      .schemaVersion = KorrinProject::currentSchemaVersion,
      .minimumReaderVersion = KorrinProject::currentMinimumReaderVersion,
      .metadata = std::move(header),
      .stage = std::move(ground),
      .layers = std::move(layers),
      .items = std::move(items),
      .groups = {},
      .inputs = std::move(inputs),
      .monitorMixes = std::move(mixes),
      .equipmentRequirements = std::move(requirements),
      .notes = std::move(notes),
      .exportSettings = {.paperSize = PaperSize::a4,
                         .includeInputList = true,
                         .includeMonitorMixes = true,
                         .includeEquipment = true,
                         .includeNotes = true},
      .assetManifest = {},
  };
}

}  // namespace korrin::templates
