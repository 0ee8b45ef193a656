#pragma once

// Edits of a plot on plain vectors, step for step what the commands do. For undo they copy the
// whole project beforehand, as a program would whose values share nothing.

#include <algorithm>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "korrin/commands/document_command.h"

#include "benchmarks/support/mirror.h"

namespace korrin::benchmarks {

using VectorProject = Mirror<KorrinProject>;
using VectorItem = Mirror<PlotItem>;

/// What an edit leaves behind: the former project and the items to draw again.
struct VectorResult {
  VectorProject inverse;
  IDSet changedItemIDs;
};

inline void noteModification(VectorProject& project) {
  field<&ProjectMetadata::modifiedAt>(field<&KorrinProject::metadata>(project)) =
      Environment::system().now();
}

template <auto list, auto link>
void clearLinks(VectorProject& project, const IDSet& ids) {
  for (auto& row : field<list>(project)) {
    auto& itemID = field<link>(row);
    if (itemID && ids.contains(*itemID)) itemID = std::nullopt;
  }
}

inline void removeMembers(VectorProject& project, const IDSet& ids) {
  auto& groups = field<&KorrinProject::groups>(project);
  for (auto& group : groups)
    std::erase_if(field<&PlotGroup::itemIDs>(group),
                  [&ids](const UUID& id) { return ids.contains(id); });
  std::erase_if(groups,
                [](const auto& group) { return field<&PlotGroup::itemIDs>(group).empty(); });
}

inline VectorResult deleteItems(VectorProject& project, const IDSet& ids) {
  VectorProject former = project;
  std::erase_if(field<&KorrinProject::items>(project),
                [&ids](const auto& item) { return ids.contains(field<&PlotItem::id>(item)); });
  clearLinks<&KorrinProject::inputs, &InputChannel::plotItemID>(project, ids);
  clearLinks<&KorrinProject::monitorMixes, &MonitorMix::plotItemID>(project, ids);
  clearLinks<&KorrinProject::equipmentRequirements, &EquipmentRequirement::plotItemID>(project,
                                                                                       ids);
  removeMembers(project, ids);
  noteModification(project);
  return {.inverse = std::move(former), .changedItemIDs = ids};
}

/// The undo of any edit: the former project takes its place again, without a copy.
inline VectorResult putBack(VectorProject& project, VectorProject former) {
  IDSet ids;
  ids.reserve(field<&KorrinProject::items>(former).size());
  for (const auto& item : field<&KorrinProject::items>(former))
    ids.insert(field<&PlotItem::id>(item));
  std::swap(project, former);
  return {.inverse = std::move(former), .changedItemIDs = std::move(ids)};
}

inline VectorItem* find(VectorProject& project, const UUID& id) {
  auto& items = field<&KorrinProject::items>(project);
  const auto found = std::find_if(items.begin(), items.end(), [&id](const auto& item) {
    return field<&PlotItem::id>(item) == id;
  });
  return found == items.end() ? nullptr : &*found;
}

inline VectorResult replaceItem(VectorProject& project, const VectorItem& item) {
  VectorProject former = project;
  const UUID id = field<&PlotItem::id>(item);
  if (VectorItem* const place = find(project, id)) *place = item;
  noteModification(project);
  return {.inverse = std::move(former), .changedItemIDs = {id}};
}

inline VectorResult replaceItems(VectorProject& project, const std::vector<VectorItem>& items) {
  VectorProject former = project;
  std::unordered_map<UUID, const VectorItem*> replacements;
  IDSet ids;
  for (const VectorItem& item : items) {
    replacements.insert_or_assign(field<&PlotItem::id>(item), &item);
    ids.insert(field<&PlotItem::id>(item));
  }
  for (VectorItem& item : field<&KorrinProject::items>(project)) {
    const auto found = replacements.find(field<&PlotItem::id>(item));
    if (found != replacements.end()) item = *found->second;
  }
  noteModification(project);
  return {.inverse = std::move(former), .changedItemIDs = std::move(ids)};
}

/// The leanest replacement there is: it keeps the one former item and nothing else.
inline VectorItem exchangeItem(VectorProject& project, VectorItem item) {
  if (VectorItem* const place = find(project, field<&PlotItem::id>(item))) std::swap(*place, item);
  noteModification(project);
  return item;
}

inline VectorResult groupItems(VectorProject& project, const IDSet& selection) {
  const auto& layers = field<&KorrinProject::layers>(project);
  const auto canEdit = [&layers](const VectorItem& item) {
    return !field<&PlotItem::isLocked>(item) &&
           std::any_of(layers.begin(), layers.end(), [&item](const auto& layer) {
             return field<&PlotLayer::id>(layer) == field<&PlotItem::layerID>(item) &&
                    field<&PlotLayer::isVisible>(layer) && !field<&PlotLayer::isLocked>(layer);
           });
  };
  IDSet members;
  std::vector<UUID> memberList;
  for (const auto& item : field<&KorrinProject::items>(project)) {
    const UUID id = field<&PlotItem::id>(item);
    if (selection.contains(id) && canEdit(item) && members.insert(id).second)
      memberList.push_back(id);
  }
  VectorProject former = project;
  Mirror<PlotGroup> group;
  field<&PlotGroup::id>(group) = Environment::system().makeUUID();
  field<&PlotGroup::name>(group) =
      "Group " + std::to_string(field<&KorrinProject::groups>(project).size() + 1);
  field<&PlotGroup::itemIDs>(group) = std::move(memberList);
  for (auto& item : field<&KorrinProject::items>(project))
    if (members.contains(field<&PlotItem::id>(item)))
      field<&PlotItem::groupID>(item) = field<&PlotGroup::id>(group);
  removeMembers(project, members);
  field<&KorrinProject::groups>(project).push_back(std::move(group));
  noteModification(project);
  return {.inverse = std::move(former), .changedItemIDs = std::move(members)};
}

}  // namespace korrin::benchmarks
