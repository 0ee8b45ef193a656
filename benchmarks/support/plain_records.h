#pragma once

// The records of a plot as a program without this library would have them: strings and vectors that
// copy. Peers of the benchmarks fill these.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "korrin/model/project.h"

namespace korrin::benchmarks::plain {

struct Stage {
  std::string name;
  StageSize size;
  AudienceEdge audienceEdge;
  double gridSpacingMillimeters;
  bool showGrid;
  bool showDimensions;
};

struct Style {
  std::optional<std::string> tintHex;
  bool labelVisible;
  double labelScale;
};

struct Item {
  UUID id;
  PlotItemKind kind;
  std::string assetID;
  StagePoint position;
  StageSize size;
  double rotationDegrees;
  bool isFlippedHorizontally;
  bool isFlippedVertically;
  UUID layerID;
  std::optional<UUID> groupID;
  bool isLocked;
  std::string label;
  std::optional<double> riserHeightMillimeters;
  Style style;
};

struct Layer {
  UUID id;
  std::string name;
  bool isVisible;
  bool isLocked;
  std::int64_t zIndex;
};

struct Group {
  UUID id;
  std::string name;
  std::vector<UUID> itemIDs;
};

struct Input {
  UUID id;
  std::optional<std::int64_t> channel;
  std::string source;
  std::string microphoneOrDI;
  std::string stand;
  bool phantomPower;
  std::string notes;
  std::optional<UUID> plotItemID;
};

struct Mix {
  UUID id;
  std::optional<std::int64_t> number;
  std::string name;
  std::string type;
  std::string outputPatch;
  std::string notes;
  std::optional<UUID> plotItemID;
};

struct Equipment {
  UUID id;
  std::string category;
  std::string item;
  std::int64_t quantity;
  std::string suppliedBy;
  std::string notes;
  std::optional<UUID> plotItemID;
};

struct Note {
  UUID id;
  std::string title;
  std::string body;
};

struct Metadata {
  std::string title;
  std::string artist;
  std::string venue;
  std::optional<Instant> eventDate;
  std::string preparedBy;
  std::string contactEmail;
  std::string revision;
  Instant createdAt;
  Instant modifiedAt;
};

struct Asset {
  std::string sha256;
  std::string filename;
  std::string mediaType;
  std::int64_t byteCount;
};

struct Project {
  std::int64_t schemaVersion;
  std::int64_t minimumReaderVersion;
  Metadata metadata;
  Stage stage;
  std::vector<Layer> layers;
  std::vector<Item> items;
  std::vector<Group> groups;
  std::vector<Input> inputs;
  std::vector<Mix> monitorMixes;
  std::vector<Equipment> equipmentRequirements;
  std::vector<Note> notes;
  ExportSettings exportSettings;
  std::vector<Asset> assetManifest;
};

}  // namespace korrin::benchmarks::plain
