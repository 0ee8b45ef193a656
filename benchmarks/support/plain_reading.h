#pragma once

// Fills plain records from a peer's JSON tree, with the checks that the library makes: every
// required key, every type, identifiers, dates, enumerations and integers that fit. `Node` is a
// peer's value behind one face: at(key), find(key) -> std::optional<Node> (nothing for null),
// text(), number(), integer(), boolean() and elements(visit), all of which throw on a mismatch.

#include <stdexcept>

#include "korrin/coding/instant_text.h"

#include "benchmarks/support/plain_records.h"

namespace korrin::benchmarks::plain {

template <class Value>
Value required(const std::optional<Value>& value) {
  if (!value) throw std::runtime_error("malformed value");
  return *value;
}

template <class Node>
std::string text(const Node& node) {
  return std::string(node.text());
}
template <class Node>
UUID identifier(const Node& node) {
  return required(UUID::fromText(node.text()));
}
template <class Node>
Instant instant(const Node& node) {
  return required(instantFromText(node.text()));
}
template <class Enumeration, class Node>
Enumeration word(const Node& node) {
  return required(fromRawValue<Enumeration>(node.text()));
}

template <class Node, class Read>
auto optionally(const std::optional<Node>& node, Read read)
    -> std::optional<decltype(read(*node))> {
  if (!node) return std::nullopt;
  return read(*node);
}

template <class Record, class Node, class Read>
std::vector<Record> list(const Node& node, Read read) {
  std::vector<Record> records;
  node.elements([&](const Node& element) { records.push_back(read(element)); });
  return records;
}

template <class Node>
StageSize size(const Node& node) {
  return {.width = node.at("width").number(), .height = node.at("height").number()};
}

template <class Node>
Item item(const Node& node) {
  const Node position = node.at("position");
  const Node style = node.at("style");
  return {
      .id = identifier(node.at("id")),
      .kind = word<PlotItemKind>(node.at("kind")),
      .assetID = text(node.at("assetID")),
      .position = {.x = position.at("x").number(), .y = position.at("y").number()},
      .size = size(node.at("size")),
      .rotationDegrees = node.at("rotationDegrees").number(),
      .isFlippedHorizontally = node.at("isFlippedHorizontally").boolean(),
      .isFlippedVertically = node.at("isFlippedVertically").boolean(),
      .layerID = identifier(node.at("layerID")),
      .groupID = optionally(node.find("groupID"), identifier<Node>),
      .isLocked = node.at("isLocked").boolean(),
      .label = text(node.at("label")),
      .riserHeightMillimeters = optionally(node.find("riserHeightMillimeters"),
                                           [](const Node& height) { return height.number(); }),
      .style = {.tintHex = optionally(style.find("tintHex"), text<Node>),
                .labelVisible = style.at("labelVisible").boolean(),
                .labelScale = style.at("labelScale").number()},
  };
}

template <class Node>
Project project(const Node& node) {
  const auto integer = [](const Node& number) { return number.integer(); };
  const Node metadata = node.at("metadata");
  const Node stage = node.at("stage");
  const Node settings = node.at("exportSettings");
  return {
      .schemaVersion = node.at("schemaVersion").integer(),
      .minimumReaderVersion = node.at("minimumReaderVersion").integer(),
      .metadata = {.title = text(metadata.at("title")),
                   .artist = text(metadata.at("artist")),
                   .venue = text(metadata.at("venue")),
                   .eventDate = optionally(metadata.find("eventDate"), instant<Node>),
                   .preparedBy = text(metadata.at("preparedBy")),
                   .contactEmail = text(metadata.at("contactEmail")),
                   .revision = text(metadata.at("revision")),
                   .createdAt = instant(metadata.at("createdAt")),
                   .modifiedAt = instant(metadata.at("modifiedAt"))},
      .stage = {.name = text(stage.at("name")),
                .size = size(stage.at("size")),
                .audienceEdge = word<AudienceEdge>(stage.at("audienceEdge")),
                .gridSpacingMillimeters = stage.at("gridSpacingMillimeters").number(),
                .showGrid = stage.at("showGrid").boolean(),
                .showDimensions = stage.at("showDimensions").boolean()},
      .layers = list<Layer>(node.at("layers"),
                            [](const Node& layer) {
                              return Layer{.id = identifier(layer.at("id")),
                                           .name = text(layer.at("name")),
                                           .isVisible = layer.at("isVisible").boolean(),
                                           .isLocked = layer.at("isLocked").boolean(),
                                           .zIndex = layer.at("zIndex").integer()};
                            }),
      .items = list<Item>(node.at("items"), item<Node>),
      .groups = list<Group>(node.at("groups"),
                            [](const Node& group) {
                              return Group{
                                  .id = identifier(group.at("id")),
                                  .name = text(group.at("name")),
                                  .itemIDs = list<UUID>(group.at("itemIDs"), identifier<Node>)};
                            }),
      .inputs = list<Input>(node.at("inputs"),
                            [&](const Node& input) {
                              return Input{.id = identifier(input.at("id")),
                                           .channel = optionally(input.find("channel"), integer),
                                           .source = text(input.at("source")),
                                           .microphoneOrDI = text(input.at("microphoneOrDI")),
                                           .stand = text(input.at("stand")),
                                           .phantomPower = input.at("phantomPower").boolean(),
                                           .notes = text(input.at("notes")),
                                           .plotItemID = optionally(input.find("plotItemID"),
                                                                    identifier<Node>)};
                            }),
      .monitorMixes = list<Mix>(node.at("monitorMixes"),
                                [&](const Node& mix) {
                                  return Mix{.id = identifier(mix.at("id")),
                                             .number = optionally(mix.find("number"), integer),
                                             .name = text(mix.at("name")),
                                             .type = text(mix.at("type")),
                                             .outputPatch = text(mix.at("outputPatch")),
                                             .notes = text(mix.at("notes")),
                                             .plotItemID = optionally(mix.find("plotItemID"),
                                                                      identifier<Node>)};
                                }),
      .equipmentRequirements = list<Equipment>(
          node.at("equipmentRequirements"),
          [](const Node& line) {
            return Equipment{.id = identifier(line.at("id")),
                             .category = text(line.at("category")),
                             .item = text(line.at("item")),
                             .quantity = line.at("quantity").integer(),
                             .suppliedBy = text(line.at("suppliedBy")),
                             .notes = text(line.at("notes")),
                             .plotItemID = optionally(line.find("plotItemID"), identifier<Node>)};
          }),
      .notes = list<Note>(node.at("notes"),
                          [](const Node& note) {
                            return Note{.id = identifier(note.at("id")),
                                        .title = text(note.at("title")),
                                        .body = text(note.at("body"))};
                          }),
      .exportSettings = {.paperSize = word<PaperSize>(settings.at("paperSize")),
                         .includeInputList = settings.at("includeInputList").boolean(),
                         .includeMonitorMixes = settings.at("includeMonitorMixes").boolean(),
                         .includeEquipment = settings.at("includeEquipment").boolean(),
                         .includeNotes = settings.at("includeNotes").boolean()},
      .assetManifest = list<Asset>(node.at("assetManifest"),
                                   [](const Node& asset) {
                                     return Asset{.sha256 = text(asset.at("sha256")),
                                                  .filename = text(asset.at("filename")),
                                                  .mediaType = text(asset.at("mediaType")),
                                                  .byteCount = asset.at("byteCount").integer()};
                                   }),
  };
}

}  // namespace korrin::benchmarks::plain
