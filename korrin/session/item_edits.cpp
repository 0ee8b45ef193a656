#include "korrin/session/item_edits.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "korrin/commands/places.h"
#include "korrin/foundation/same_bits.h"
#include "korrin/geometry/korrin_geometry.h"
#include "korrin/session/selected_items.h"

namespace korrin {
namespace {

std::optional<DocumentCommand> changingItemsAt(const List<PlotItem>& items,
                                               const std::vector<std::size_t>& places,
                                               const std::function<void(PlotItem&)>& change) {
  List<PlotItem> changed;
  for (const std::size_t place : places) {
    PlotItem item = items[place];
    change(item);
    item.id = items[place].id;
    if (!sameBits(item, items[place])) changed.push_back(std::move(item));
  }
  if (changed.empty()) return std::nullopt;
  return DocumentCommand::replaceItems(std::move(changed));
}

}  // namespace

std::optional<DocumentCommand> changingCommand(const KorrinProject& project, const IDSet& selection,
                                               const std::function<void(PlotItem&)>& change) {
  return changingItemsAt(project.items, editablePlaces(project, selection), change);
}

std::optional<DocumentCommand> aligningCommand(const KorrinProject& project, const IDSet& selection,
                                               ItemAlignment alignment) {
  List<PlotItem> items;
  for (const std::size_t place : editablePlaces(project, selection))
    items.push_back(project.items[place]);
  const List<PlotItem> aligned = KorrinGeometry::applying(alignment, items);
  if (sameBits(aligned, items)) return std::nullopt;
  return DocumentCommand::replaceItems(aligned);
}

std::optional<DocumentCommand> lockingCommand(const KorrinProject& project, const IDSet& selection,
                                              bool isLocked) {
  // As if no item were locked itself, so that the layer alone decides.
  KorrinProject unlocked = project;
  for (const std::size_t place : placesOf(selection, project.items))
    if (project.items[place].isLocked) unlocked.items.edit(place).isLocked = false;
  return changingItemsAt(project.items, editablePlaces(unlocked, selection),
                         [isLocked](PlotItem& item) { item.isLocked = isLocked; });
}

IDSet withGroupMembers(const KorrinProject& project, const IDSet& selection) {
  IDSet wanted = selection;
  for (const PlotGroup& group : project.groups)
    if (std::any_of(group.itemIDs.begin(), group.itemIDs.end(),
                    [&](const UUID& id) { return selection.contains(id); }))
      wanted.insert(group.itemIDs.begin(), group.itemIDs.end());
  IDSet found;
  for (const std::size_t place : placesOf(wanted, project.items))
    if (project.canSelectItem(project.items[place])) found.insert(project.items[place].id);
  return found;
}

}  // namespace korrin
