#pragma once

// Builds nlohmann's ordered tree from plain records, as a program would before it prints them.

#include <nlohmann/json.hpp>

#include "korrin/coding/instant_text.h"

#include "benchmarks/support/plain_records.h"

namespace korrin::benchmarks::plain {

using Tree = nlohmann::ordered_json;

inline Tree tree(const StagePoint& point) { return {{"x", point.x}, {"y", point.y}}; }
inline Tree tree(const StageSize& size) { return {{"width", size.width}, {"height", size.height}}; }

inline void addLink(Tree& tree, const std::optional<UUID>& link) {
  if (link) tree["plotItemID"] = link->text();
}

inline Tree tree(const Item& item) {
  Tree tree = {{"id", item.id.text()}, {"kind", rawValue(item.kind)}, {"assetID", item.assetID}};
  tree["position"] = plain::tree(item.position);
  tree["size"] = plain::tree(item.size);
  tree["rotationDegrees"] = item.rotationDegrees;
  tree["isFlippedHorizontally"] = item.isFlippedHorizontally;
  tree["isFlippedVertically"] = item.isFlippedVertically;
  tree["layerID"] = item.layerID.text();
  if (item.groupID) tree["groupID"] = item.groupID->text();
  tree["isLocked"] = item.isLocked;
  tree["label"] = item.label;
  if (item.riserHeightMillimeters) tree["riserHeightMillimeters"] = *item.riserHeightMillimeters;
  Tree style = Tree::object();
  if (item.style.tintHex) style["tintHex"] = *item.style.tintHex;
  style["labelVisible"] = item.style.labelVisible;
  style["labelScale"] = item.style.labelScale;
  tree["style"] = std::move(style);
  return tree;
}

inline Tree tree(const Layer& layer) {
  return {{"id", layer.id.text()},
          {"name", layer.name},
          {"isVisible", layer.isVisible},
          {"isLocked", layer.isLocked},
          {"zIndex", layer.zIndex}};
}

inline Tree tree(const Group& group) {
  Tree members = Tree::array();
  for (const UUID& id : group.itemIDs) members.push_back(id.text());
  return {{"id", group.id.text()}, {"name", group.name}, {"itemIDs", std::move(members)}};
}

inline Tree tree(const Input& input) {
  Tree tree = {{"id", input.id.text()}};
  if (input.channel) tree["channel"] = *input.channel;
  tree["source"] = input.source;
  tree["microphoneOrDI"] = input.microphoneOrDI;
  tree["stand"] = input.stand;
  tree["phantomPower"] = input.phantomPower;
  tree["notes"] = input.notes;
  addLink(tree, input.plotItemID);
  return tree;
}

inline Tree tree(const Mix& mix) {
  Tree tree = {{"id", mix.id.text()}};
  if (mix.number) tree["number"] = *mix.number;
  tree["name"] = mix.name;
  tree["type"] = mix.type;
  tree["outputPatch"] = mix.outputPatch;
  tree["notes"] = mix.notes;
  addLink(tree, mix.plotItemID);
  return tree;
}

inline Tree tree(const Equipment& line) {
  Tree tree = {{"id", line.id.text()},      {"category", line.category},     {"item", line.item},
               {"quantity", line.quantity}, {"suppliedBy", line.suppliedBy}, {"notes", line.notes}};
  addLink(tree, line.plotItemID);
  return tree;
}

inline Tree tree(const Note& note) {
  return {{"id", note.id.text()}, {"title", note.title}, {"body", note.body}};
}

inline Tree tree(const Asset& asset) {
  return {{"sha256", asset.sha256},
          {"filename", asset.filename},
          {"mediaType", asset.mediaType},
          {"byteCount", asset.byteCount}};
}

template <class Record>
Tree tree(const std::vector<Record>& records) {
  Tree array = Tree::array();
  for (const Record& record : records) array.push_back(plain::tree(record));
  return array;
}

inline Tree tree(const Project& project) {
  const Metadata& metadata = project.metadata;
  Tree head = {{"title", metadata.title}, {"artist", metadata.artist}, {"venue", metadata.venue}};
  if (metadata.eventDate) head["eventDate"] = instantText(*metadata.eventDate);
  head["preparedBy"] = metadata.preparedBy;
  head["contactEmail"] = metadata.contactEmail;
  head["revision"] = metadata.revision;
  head["createdAt"] = instantText(metadata.createdAt);
  head["modifiedAt"] = instantText(metadata.modifiedAt);
  const Stage& stage = project.stage;
  const ExportSettings& settings = project.exportSettings;
  Tree tree;
  tree["schemaVersion"] = project.schemaVersion;
  tree["minimumReaderVersion"] = project.minimumReaderVersion;
  tree["metadata"] = std::move(head);
  tree["stage"] = {{"name", stage.name},
                   {"size", plain::tree(stage.size)},
                   {"audienceEdge", rawValue(stage.audienceEdge)},
                   {"gridSpacingMillimeters", stage.gridSpacingMillimeters},
                   {"showGrid", stage.showGrid},
                   {"showDimensions", stage.showDimensions}};
  tree["layers"] = plain::tree(project.layers);
  tree["items"] = plain::tree(project.items);
  tree["groups"] = plain::tree(project.groups);
  tree["inputs"] = plain::tree(project.inputs);
  tree["monitorMixes"] = plain::tree(project.monitorMixes);
  tree["equipmentRequirements"] = plain::tree(project.equipmentRequirements);
  tree["notes"] = plain::tree(project.notes);
  tree["exportSettings"] = {{"paperSize", rawValue(settings.paperSize)},
                            {"includeInputList", settings.includeInputList},
                            {"includeMonitorMixes", settings.includeMonitorMixes},
                            {"includeEquipment", settings.includeEquipment},
                            {"includeNotes", settings.includeNotes}};
  tree["assetManifest"] = plain::tree(project.assetManifest);
  return tree;
}

}  // namespace korrin::benchmarks::plain
