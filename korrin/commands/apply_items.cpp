#include <cstddef>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "korrin/commands/apply_cases.h"
#include "korrin/commands/group_members.h"
#include "korrin/commands/id_filter.h"

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
List<Row> withoutLinks(List<Row> rows, const IDFilter& itemIDs) {
  std::vector<std::size_t> concerned;
  std::size_t place = 0;
  for (const Row& row : rows) {
    if (row.plotItemID && itemIDs.contains(*row.plotItemID)) concerned.push_back(place);
    ++place;
  }
  for (const std::size_t index : concerned) rows.edit(index).plotItemID = std::nullopt;
  return rows;
}

}  // namespace

CommandResult applyCase(const InsertItems& insert, KorrinProject& project,
                        const Environment& environment) {
  IDSet ids = identifiersOf(insert.items);
  const IDFilter isInserted(ids);
  List<PlotItem> items = project.items;
  items.eraseIf([&](const PlotItem& item) { return isInserted.contains(item.id); });
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
  const IDFilter isDeleted(deletion.itemIDs);
  List<PlotItem> items = project.items;
  items.eraseIf([&](const PlotItem& item) { return isDeleted.contains(item.id); });
  auto inputs = withoutLinks(project.inputs, isDeleted);
  auto monitorMixes = withoutLinks(project.monitorMixes, isDeleted);
  auto equipmentRequirements = withoutLinks(project.equipmentRequirements, isDeleted);
  List<PlotGroup> groups = withoutMembers(project.groups, isDeleted);
  CommandResult result = {.inverse = DocumentCommand::replaceProject(project),
                          .changes = {.changedItemIDs = deletion.itemIDs,
                                      .affectsTechnicalData = true,
                                      .affectsDocumentStructure = true}};

  project.metadata.modifiedAt = environment.now();
  project.items = std::move(items);
  project.inputs = std::move(inputs);
  project.monitorMixes = std::move(monitorMixes);
  project.equipmentRequirements = std::move(equipmentRequirements);
  project.groups = std::move(groups);
  return result;
}

CommandResult applyCase(const ReplaceItems& replacement, KorrinProject& project,
                        const Environment& environment) {
  IDSet ids = identifiersOf(replacement.items);
  const IDFilter isReplaced(ids);
  // Overwriting an item leaves its identifier where it is, so that one walk before the first change
  // tells every place.
  List<PlotItem> formerItems;
  std::unordered_map<UUID, std::size_t> firstPlaces;
  std::size_t place = 0;
  for (const PlotItem& item : project.items) {
    if (isReplaced.contains(item.id)) {
      formerItems.push_back(item);
      firstPlaces.emplace(item.id, place);
    }
    ++place;
  }
  List<PlotItem> items = project.items;
  for (const PlotItem& item : replacement.items) {
    const auto found = firstPlaces.find(item.id);
    if (found != firstPlaces.end()) items.edit(found->second) = item;
  }
  DocumentCommand inverse = DocumentCommand::replaceItems(std::move(formerItems));

  project.metadata.modifiedAt = environment.now();
  project.items = std::move(items);
  return {.inverse = std::move(inverse),
          .changes = {.changedItemIDs = std::move(ids),
                      .affectsTechnicalData = false,
                      .affectsDocumentStructure = false}};
}

}  // namespace korrin
