#include "korrin/session/selected_items.h"

#include <algorithm>
#include <utility>

namespace korrin {
namespace {

SortedIDs openLayers(const KorrinProject& project) {
  std::vector<UUID> ids;
  for (const PlotLayer& layer : project.layers)
    if (layer.isVisible && !layer.isLocked) ids.push_back(layer.id);
  return SortedIDs(std::move(ids));
}

}  // namespace

SortedIDs::SortedIDs(std::vector<UUID> ids) : ids_(std::move(ids)) {
  std::sort(ids_.begin(), ids_.end());
}

bool SortedIDs::contains(const UUID& id) const {
  return std::binary_search(ids_.begin(), ids_.end(), id);
}

bool SortedIDs::hasRepeated() const {
  return std::adjacent_find(ids_.begin(), ids_.end()) != ids_.end();
}

EditableItems::EditableItems(const KorrinProject& project) : layerIDs_(openLayers(project)) {}

std::vector<std::size_t> editablePlaces(const KorrinProject& project, const IDSet& selection) {
  if (selection.empty()) return {};
  const EditableItems editable(project);
  std::vector<std::size_t> places;
  std::vector<UUID> refused;
  std::size_t place = 0;
  for (const PlotItem& item : project.items) {
    if (selection.contains(item.id)) {
      if (editable.contains(item))
        places.push_back(place);
      else
        refused.push_back(item.id);
    }
    ++place;
  }
  const SortedIDs refusedIDs(std::move(refused));
  std::erase_if(places, [&](std::size_t at) { return refusedIDs.contains(project.items[at].id); });
  return firstOfEachIdentifier(project.items, std::move(places));
}

std::vector<std::size_t> firstOfEachIdentifier(const List<PlotItem>& items,
                                               std::vector<std::size_t> places) {
  struct Place {
    UUID id;
    std::size_t place;
  };
  std::vector<Place> firsts;
  firsts.reserve(places.size());
  for (const std::size_t place : places) firsts.push_back({.id = items[place].id, .place = place});
  std::stable_sort(firsts.begin(), firsts.end(),
                   [](const Place& a, const Place& b) { return a.id < b.id; });
  const auto end = std::unique(firsts.begin(), firsts.end(),
                               [](const Place& a, const Place& b) { return a.id == b.id; });
  if (end == firsts.end()) return places;
  places.clear();
  std::for_each(firsts.begin(), end, [&](const Place& first) { places.push_back(first.place); });
  std::sort(places.begin(), places.end());
  return places;
}

std::optional<DocumentCommand> combined(std::vector<DocumentCommand> commands) {
  if (commands.empty()) return std::nullopt;
  if (commands.size() == 1) return commands.front();
  return DocumentCommand::compound(std::move(commands));
}

}  // namespace korrin
