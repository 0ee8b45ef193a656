#include <cstddef>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "korrin/commands/apply_cases.h"
#include "korrin/commands/group_members.h"
#include "korrin/commands/places.h"

namespace korrin {
namespace {

IDSet identifiersOf(const List<PlotItem>& items) {
  IDSet ids;
  ids.reserve(items.size());
  for (const PlotItem& item : items) ids.insert(item.id);
  return ids;
}

// Only rows that lose their link are copied; a list without such a row stays shared whole.
template <class Row>
List<Row> withoutLinks(List<Row> rows, const IDSet& itemIDs) {
  for (const std::size_t place : placesOf(itemIDs, rows)) {
    Row row = rows[place];
    row.plotItemID = std::nullopt;
    rows.replace(place, std::move(row));
  }
  return rows;
}

List<PlotItem> withoutItems(List<PlotItem> items, const IDSet& itemIDs) {
  const std::vector<std::size_t> places = placesOf(itemIDs, items);
  return withoutPlaces(std::move(items), places);
}

}  // namespace

CommandResult applyCase(const InsertItems& insert, KorrinProject& project,
                        const Environment& environment) {
  IDSet ids = identifiersOf(insert.items);
  List<PlotItem> items = withoutItems(project.items, ids);
  for (const PlotItem& item : insert.items) items.push_back(item);
  // Deliberately no more than a deletion, although the insert may have replaced items.
  DocumentCommand inverse = DocumentCommand::deleteItems(ids);

  project.metadata.modifiedAt = environment.now();
  project.items = std::move(items);
  return {.inverse = std::move(inverse),
          .changes = {.changedItemIDs = std::move(ids),
                      .affectsTechnicalData = false,
                      .affectsDocumentStructure = true}};
}

CommandResult applyCase(const DeleteItems& deletion, KorrinProject& project,
                        const Environment& environment) {
  const IDSet& ids = deletion.itemIDs;
  List<PlotItem> items = withoutItems(project.items, ids);
  List<InputChannel> inputs = withoutLinks(project.inputs, ids);
  List<MonitorMix> monitorMixes = withoutLinks(project.monitorMixes, ids);
  List<EquipmentRequirement> equipment = withoutLinks(project.equipmentRequirements, ids);
  List<PlotGroup> groups = withoutMembers(project.groups, ids);
  CommandResult result = {.inverse = DocumentCommand::replaceProject(project),
                          .changes = {.changedItemIDs = deletion.itemIDs,
                                      .affectsTechnicalData = true,
                                      .affectsDocumentStructure = true}};

  project.metadata.modifiedAt = environment.now();
  project.items = std::move(items);
  project.inputs = std::move(inputs);
  project.monitorMixes = std::move(monitorMixes);
  project.equipmentRequirements = std::move(equipment);
  project.groups = std::move(groups);
  return result;
}

CommandResult applyCase(const ReplaceItems& replacement, KorrinProject& project,
                        const Environment& environment) {
  IDSet ids = identifiersOf(replacement.items);
  // Overwriting an item leaves its identifier where it is, so that one walk before the first change
  // tells every place.
  List<PlotItem> items = project.items;
  List<PlotItem> formerItems;
  std::unordered_map<UUID, std::size_t> firstPlaces;
  for (const std::size_t place : placesOf(ids, items)) {
    const PlotItem& item = items[place];
    formerItems.push_back(item);
    firstPlaces.emplace(item.id, place);
  }
  for (const PlotItem& item : replacement.items) {
    const auto found = firstPlaces.find(item.id);
    if (found != firstPlaces.end()) items.replace(found->second, item);
  }
  DocumentCommand inverse = DocumentCommand::replaceItems(std::move(formerItems));

  project.metadata.modifiedAt = environment.now();
  project.items = std::move(items);
  return {.inverse = std::move(inverse),
          .changes = {.changedItemIDs = std::move(ids),
                      .affectsTechnicalData = false,
                      .affectsDocumentStructure = false}};
}

// `modifiedAt` comes with the project, which is what makes undoing a deletion exact.
CommandResult applyCase(const ReplaceProject& replacement, KorrinProject& project,
                        const Environment&) {
  IDSet ids = identifiersOf(replacement.project.items);
  DocumentCommand inverse = DocumentCommand::replaceProject(project);
  project = replacement.project;
  return {.inverse = std::move(inverse),
          .changes = {.changedItemIDs = std::move(ids),
                      .affectsTechnicalData = true,
                      .affectsDocumentStructure = true}};
}

}  // namespace korrin
