#include <algorithm>

#include "korrin/foundation/precondition.h"
#include "korrin/templates/plot_tables.h"

namespace korrin::templates {
namespace {

ProjectMetadata metadata(const PlotTables& tables, const Environment& environment) {
  return {
      .title = tables.title,
      .artist = tables.artist,
      .venue = tables.venue,
      .eventDate = std::nullopt,
      .preparedBy = "Production",
      .contactEmail = tables.contactEmail,
      .revision = "1",
      .createdAt = environment.now(),
      .modifiedAt = environment.now(),
  };
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
  const auto found = std::ranges::find_if(
      items, [label](const PlotItem& candidate) { return candidate.label.str() == label; });
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
  // Braced initialisers are evaluated in order, so the metadata's two instants come first.
  KorrinProject project = {
      .schemaVersion = KorrinProject::currentSchemaVersion,
      .minimumReaderVersion = KorrinProject::currentMinimumReaderVersion,
      .metadata = metadata(tables, environment),
      .stage = {.name = tables.stageName,
                .size = tables.stageSize,
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
  const UUID layerID = project.layers.front().id;
  const auto link = [&project](std::string_view label) { return idOf(project.items, label); };
  for (const ItemRow& row : tables.items) project.items.push_back(item(row, layerID, environment));
  for (const InputRow& row : tables.inputs)
    project.inputs.push_back(input(row, link(row.plotItem), environment));
  for (const MixRow& row : tables.monitorMixes)
    project.monitorMixes.push_back(mix(row, link(row.plotItem), environment));
  for (const EquipmentRow& row : tables.equipment)
    project.equipmentRequirements.push_back(equipment(row, link(row.plotItem), environment));
  for (const NoteRow& row : tables.notes)
    project.notes.push_back({.id = environment.makeUUID(), .title = row.title, .body = row.body});
  return project;
}

}  // namespace korrin::templates
