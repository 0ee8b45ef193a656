#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "korrin/session/selected_items.h"
#include "korrin/session/structural_edits.h"

namespace korrin {
namespace {

// Whether there is a layer with the identifier that is not locked. Layers that share it are one.
bool isOpenLayer(const KorrinProject& project, const UUID& id) {
  const auto isSo = [&id](const PlotLayer& layer) { return layer.id == id; };
  const auto isLocked = [&id](const PlotLayer& layer) { return layer.id == id && layer.isLocked; };
  return std::any_of(project.layers.begin(), project.layers.end(), isSo) &&
         std::none_of(project.layers.begin(), project.layers.end(), isLocked);
}

// Whether an item of the layer can't be told from another item by its identifier.
bool sharesIdentifiers(const List<PlotItem>& items, const UUID& layerID) {
  std::vector<UUID> ids;
  for (const PlotItem& item : items)
    if (item.layerID == layerID) ids.push_back(item.id);
  const std::size_t count = ids.size();
  const SortedIDs onLayer(std::move(ids));
  return static_cast<std::size_t>(std::count_if(
             items.begin(), items.end(),
             [&onLayer](const PlotItem& item) { return onLayer.contains(item.id); })) != count ||
         onLayer.hasRepeated();
}

}  // namespace

std::optional<DocumentCommand> layerAssigningCommand(const KorrinProject& project,
                                                     const IDSet& selection, UUID layerID) {
  if (!isOpenLayer(project, layerID)) return std::nullopt;
  List<PlotItem> assigned;
  for (const std::size_t place : editablePlaces(project, selection))
    if (project.items[place].layerID != layerID)
      assigned.emplace_back(project.items[place]).layerID = layerID;
  if (assigned.empty()) return std::nullopt;
  return DocumentCommand::replaceItems(std::move(assigned));
}

std::optional<DocumentCommand> layerDeletingCommand(const KorrinProject& project, UUID layerID,
                                                    std::optional<UUID> moveItemsTo) {
  if (!isOpenLayer(project, layerID)) return std::nullopt;
  if (moveItemsTo && (*moveItemsTo == layerID || !isOpenLayer(project, *moveItemsTo)))
    return std::nullopt;
  List<PlotLayer> layers = project.layers;
  layers.eraseIf([&layerID](const PlotLayer& layer) { return layer.id == layerID; });
  if (layers.empty() || sharesIdentifiers(project.items, layerID)) return std::nullopt;

  List<PlotItem> moved;
  IDSet deleted;
  for (const PlotItem& item : project.items) {
    if (item.layerID != layerID) continue;
    if (item.isLocked) return std::nullopt;
    if (moveItemsTo)
      moved.emplace_back(item).layerID = *moveItemsTo;
    else
      deleted.insert(item.id);
  }
  std::vector<DocumentCommand> commands;
  if (!moved.empty()) commands.push_back(DocumentCommand::replaceItems(std::move(moved)));
  if (!deleted.empty()) commands.push_back(DocumentCommand::deleteItems(std::move(deleted)));
  commands.push_back(DocumentCommand::replaceLayers(std::move(layers)));
  return combined(std::move(commands));
}

}  // namespace korrin
