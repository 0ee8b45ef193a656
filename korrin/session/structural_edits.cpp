#include "korrin/session/structural_edits.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

#include "korrin/session/selected_items.h"

namespace korrin {
namespace {

// A sum with a not-a-number is one again, and nothing to be seen.
bool differ(double before, double after) {
  return before != after && !(std::isnan(before) && std::isnan(after));
}

bool listsAnyOf(const PlotGroup& group, const SortedIDs& ids) {
  return std::any_of(group.itemIDs.begin(), group.itemIDs.end(),
                     [&ids](const UUID& id) { return ids.contains(id); });
}

SortedIDs identifiersAt(const List<PlotItem>& items, const std::vector<std::size_t>& places) {
  std::vector<UUID> ids;
  ids.reserve(places.size());
  for (const std::size_t place : places) ids.push_back(items[place].id);
  return SortedIDs(std::move(ids));
}

SortedIDs identifiersNotEditable(const KorrinProject& project) {
  const EditableItems editable(project);
  std::vector<UUID> ids;
  for (const PlotItem& item : project.items)
    if (!editable.contains(item)) ids.push_back(item.id);
  return SortedIDs(std::move(ids));
}

// The items that name one of the groups, in a state in which they name none.
List<PlotItem> itemsWithoutGroups(const List<PlotItem>& items, const SortedIDs& groupIDs) {
  std::vector<UUID> ids;
  for (const PlotItem& item : items)
    if (item.groupID && groupIDs.contains(*item.groupID)) ids.push_back(item.id);
  const SortedIDs namers(std::move(ids));
  std::vector<std::size_t> places;
  std::size_t place = 0;
  for (const PlotItem& item : items) {
    if (namers.contains(item.id)) places.push_back(place);
    ++place;
  }
  List<PlotItem> ungrouped;
  for (const std::size_t at : firstOfEachIdentifier(items, std::move(places))) {
    PlotItem item = items[at];
    if (!item.groupID || !groupIDs.contains(*item.groupID)) continue;
    item.groupID = std::nullopt;
    ungrouped.push_back(std::move(item));
  }
  return ungrouped;
}

}  // namespace

std::optional<DocumentCommand> movingCommand(const KorrinProject& project, const IDSet& selection,
                                             StagePoint by) {
  List<PlotItem> moved;
  bool anyMoves = false;
  for (const std::size_t place : editablePlaces(project, selection)) {
    const StagePoint from = project.items[place].position;
    PlotItem& item = moved.emplace_back(project.items[place]);
    item.position = {.x = from.x + by.x, .y = from.y + by.y};
    anyMoves |= differ(from.x, item.position.x) || differ(from.y, item.position.y);
  }
  if (!anyMoves) return std::nullopt;
  return DocumentCommand::replaceItems(std::move(moved));
}

std::optional<DocumentCommand> deletingCommand(const KorrinProject& project,
                                               const IDSet& selection) {
  IDSet ids;
  for (const std::size_t place : editablePlaces(project, selection))
    ids.insert(project.items[place].id);
  if (ids.empty()) return std::nullopt;
  return DocumentCommand::deleteItems(std::move(ids));
}

std::optional<DocumentCommand> ungroupingCommand(const KorrinProject& project,
                                                 const IDSet& selection) {
  const SortedIDs selected = identifiersAt(project.items, editablePlaces(project, selection));
  if (selected.empty()) return std::nullopt;
  const SortedIDs refused = identifiersNotEditable(project);
  List<PlotGroup> kept;
  std::vector<UUID> dissolved;
  for (const PlotGroup& group : project.groups) {
    if (listsAnyOf(group, selected) && !listsAnyOf(group, refused))
      dissolved.push_back(group.id);
    else
      kept.push_back(group);
  }
  if (dissolved.empty()) return std::nullopt;

  std::vector<DocumentCommand> commands;
  List<PlotItem> ungrouped = itemsWithoutGroups(project.items, SortedIDs(std::move(dissolved)));
  if (!ungrouped.empty()) commands.push_back(DocumentCommand::replaceItems(std::move(ungrouped)));
  commands.push_back(DocumentCommand::replaceGroups(std::move(kept)));
  return combined(std::move(commands));
}

std::optional<DocumentCommand> exportSettingsCommand(const KorrinProject& project,
                                                     ExportSettings settings,
                                                     const Environment& environment) {
  if (project.exportSettings == settings) return std::nullopt;
  KorrinProject next = project;
  next.exportSettings = settings;
  next.metadata.modifiedAt = environment.now();
  return DocumentCommand::replaceProject(std::move(next));
}

std::optional<Paste> duplicatingCommand(const KorrinProject& project, const IDSet& selection,
                                        StagePoint by, const Environment& environment) {
  return pastingCommand(project, fragmentOf(project, selection),
                        {.offset = by, .layerID = std::nullopt}, environment);
}

}  // namespace korrin
