#include <cstddef>
#include <optional>
#include <unordered_map>
#include <utility>

#include "korrin/commands/apply_cases.h"
#include "korrin/commands/group_members.h"

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
void clearLinks(List<Row>& rows, const IDSet& itemIDs) {
  std::size_t index = 0;
  for (const Row& row : List<Row>(rows)) {
    if (row.plotItemID && itemIDs.contains(*row.plotItemID))
      rows.edit(index).plotItemID = std::nullopt;
    ++index;
  }
}

}  // namespace

CommandResult applyCase(const InsertItems& insert, KorrinProject& project,
                        const Environment& environment) {
  IDSet ids = identifiersOf(insert.items);
  project.items.eraseIf([&ids](const PlotItem& item) { return ids.contains(item.id); });
  for (const PlotItem& item : insert.items) project.items.push_back(item);
  touch(project, environment);
  // Deliberately no more than a deletion, although the insert may have replaced items.
  DocumentCommand inverse = DocumentCommand::deleteItems(ids);
  return {.inverse = std::move(inverse),
          .changes = {.changedItemIDs = std::move(ids),
                      .affectsTechnicalData = false,
                      .affectsDocumentStructure = true}};
}

CommandResult applyCase(const DeleteItems& deletion, KorrinProject& project,
                        const Environment& environment) {
  const IDSet& ids = deletion.itemIDs;
  DocumentCommand inverse = DocumentCommand::replaceProject(project);
  project.items.eraseIf([&ids](const PlotItem& item) { return ids.contains(item.id); });
  clearLinks(project.inputs, ids);
  clearLinks(project.monitorMixes, ids);
  clearLinks(project.equipmentRequirements, ids);
  removeMembers(project.groups, ids);
  touch(project, environment);
  return {
      .inverse = std::move(inverse),
      .changes = {
          .changedItemIDs = ids, .affectsTechnicalData = true, .affectsDocumentStructure = true}};
}

CommandResult applyCase(const ReplaceItems& replacement, KorrinProject& project,
                        const Environment& environment) {
  IDSet ids = identifiersOf(replacement.items);
  List<PlotItem> formerItems;
  // Overwriting an item leaves its identifier where it is, so that one walk before the first change
  // tells every place.
  std::unordered_map<UUID, std::size_t> firstPlaces;
  std::size_t place = 0;
  for (const PlotItem& item : project.items) {
    if (ids.contains(item.id)) {
      formerItems.push_back(item);
      firstPlaces.emplace(item.id, place);
    }
    ++place;
  }
  for (const PlotItem& item : replacement.items) {
    const auto found = firstPlaces.find(item.id);
    if (found != firstPlaces.end()) project.items.edit(found->second) = item;
  }
  touch(project, environment);
  DocumentCommand inverse = DocumentCommand::replaceItems(std::move(formerItems));
  return {.inverse = std::move(inverse),
          .changes = {.changedItemIDs = std::move(ids),
                      .affectsTechnicalData = false,
                      .affectsDocumentStructure = false}};
}

}  // namespace korrin
