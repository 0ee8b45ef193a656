#include "tests/support/random_edits.h"

#include <string>

#include "tests/support/sample_project.h"

namespace korrin::test {

template <class Make>
auto RandomEdits::listOf(int limit, Make make) {
  List<decltype(make())> list;
  for (int count = chance_(limit); count > 0; --count) list.push_back(make());
  return list;
}

double RandomEdits::number() { return 0.25 * chance_(1000) - 100; }
Text RandomEdits::text() { return std::to_string(chance_(4)); }
UUID RandomEdits::pooled() { return identifier(static_cast<std::uint64_t>(chance_(12))); }
std::optional<UUID> RandomEdits::maybePooled() {
  if (coin()) return std::nullopt;
  return pooled();
}

UUID RandomEdits::known(const KorrinProject& project) {
  if (project.items.empty() || chance_(4) == 0) return pooled();
  return project.items[static_cast<std::size_t>(chance_(static_cast<int>(project.items.size())))]
      .id;
}

IDSet RandomEdits::identifiers(const KorrinProject& project) {
  IDSet ids;
  for (int count = chance_(5); count > 0; --count) ids.insert(known(project));
  return ids;
}

PlotItem RandomEdits::item(UUID id) {
  const double x = number();
  const double y = number();
  PlotItem item = microphone(id, x, y);
  item.layerID = pooled();
  item.groupID = maybePooled();
  item.isLocked = chance_(4) == 0;
  item.label = text();
  return item;
}

List<PlotItem> RandomEdits::distinctItems() {
  List<PlotItem> items;
  for (std::uint64_t i = 0; i < 12; ++i) {
    if (!coin()) continue;
    const std::size_t place = coin() ? 0 : items.size();
    items.insert(place, item(identifier(i)));
  }
  return items;
}

List<PlotItem> RandomEdits::itemsFor(const KorrinProject& project) {
  return listOf(4, [&] { return item(known(project)); });
}

List<PlotItem> RandomEdits::freshItems() {
  return listOf(4, [this] { return item(identifier(nextFresh_++)); });
}

PlotGroup RandomEdits::group() {
  List<UUID> members = listOf(4, [this] { return pooled(); });
  members.push_back(pooled());
  return {.id = pooled(), .name = text(), .itemIDs = members};
}

PlotLayer RandomEdits::layer() {
  return {.id = pooled(),
          .name = text(),
          .isVisible = chance_(4) != 0,
          .isLocked = chance_(4) == 0,
          .zIndex = chance_(3)};
}

ProjectMetadata RandomEdits::metadata() {
  ProjectMetadata metadata = sampleProject().metadata;
  metadata.title = text();
  metadata.modifiedAt = instant(chance_(1000));
  if (coin()) metadata.eventDate = std::nullopt;
  return metadata;
}

StageDefinition RandomEdits::stage() {
  StageDefinition stage = sampleProject().stage;
  stage.size.width = number();
  stage.showGrid = coin();
  return stage;
}

InputChannel RandomEdits::input() {
  return {.id = pooled(),
          .channel = chance_(3),
          .source = text(),
          .microphoneOrDI = text(),
          .stand = {},
          .phantomPower = coin(),
          .notes = {},
          .plotItemID = maybePooled()};
}

MonitorMix RandomEdits::monitorMix() {
  return {.id = pooled(),
          .number = std::nullopt,
          .name = text(),
          .type = {},
          .outputPatch = {},
          .notes = {},
          .plotItemID = maybePooled()};
}

EquipmentRequirement RandomEdits::equipment() {
  return {.id = pooled(),
          .category = text(),
          .item = text(),
          .quantity = chance_(3),
          .suppliedBy = {},
          .notes = {},
          .plotItemID = maybePooled()};
}

ProjectNote RandomEdits::note() { return {.id = pooled(), .title = text(), .body = text()}; }

AssetManifestEntry RandomEdits::asset() {
  return {.sha256 = text(), .filename = text(), .mediaType = "image/png", .byteCount = chance_(9)};
}

KorrinProject RandomEdits::project() {
  return {.schemaVersion = 1 + chance_(2),
          .minimumReaderVersion = 1,
          .metadata = metadata(),
          .stage = stage(),
          .layers = listOf(8, [this] { return layer(); }),
          .items = distinctItems(),
          .groups = listOf(4, [this] { return group(); }),
          .inputs = listOf(4, [this] { return input(); }),
          .monitorMixes = listOf(4, [this] { return monitorMix(); }),
          .equipmentRequirements = listOf(4, [this] { return equipment(); }),
          .notes = listOf(3, [this] { return note(); }),
          .exportSettings = sampleProject().exportSettings,
          .assetManifest = listOf(3, [this] { return asset(); })};
}

DocumentCommand RandomEdits::anyInsert() {
  return DocumentCommand::insertItems(listOf(5, [this] { return item(pooled()); }));
}

DocumentCommand RandomEdits::reversibleCommand(const KorrinProject& target, int depth) {
  using C = DocumentCommand;
  // The cases that change items come up twice as often as the others.
  switch (chance_(depth > 0 ? 17 : 16)) {
    case 0:
    case 1:
      return C::insertItems(freshItems());
    case 2:
    case 3:
      return C::deleteItems(identifiers(target));
    case 4:
    case 5:
      return C::replaceItems(itemsFor(target));
    case 6:
      return C::replaceGroups(listOf(4, [this] { return group(); }));
    case 7:
      return C::replaceLayers(listOf(8, [this] { return layer(); }));
    case 8:
      return C::replaceAssetManifest(listOf(3, [this] { return asset(); }));
    case 9:
      return C::replaceMetadata(metadata());
    case 10:
      return C::replaceStage(stage());
    case 11:
      return C::replaceInputs(listOf(4, [this] { return input(); }));
    case 12:
      return C::replaceMonitorMixes(listOf(4, [this] { return monitorMix(); }));
    case 13:
      return C::replaceEquipment(listOf(4, [this] { return equipment(); }));
    case 14:
      return C::replaceNotes(listOf(3, [this] { return note(); }));
    case 15:
      return C::replaceProject(project());
    default: {
      std::vector<C> commands;
      for (int count = chance_(5); count > 0; --count)
        commands.push_back(reversibleCommand(target, depth - 1));
      return C::compound(std::move(commands));
    }
  }
}

}  // namespace korrin::test
