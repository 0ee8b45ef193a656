#include <algorithm>

#include "korrin/model/project.h"

namespace korrin {

bool KorrinProject::canSelectItem(const PlotItem& item) const {
  // Layers may share an identifier: any one of them that is visible and unlocked suffices.
  return std::any_of(layers.begin(), layers.end(), [&item](const PlotLayer& layer) {
    return layer.id == item.layerID && layer.isVisible && !layer.isLocked;
  });
}

bool KorrinProject::canEditItem(const PlotItem& item) const {
  return !item.isLocked && canSelectItem(item);
}

std::optional<UUID> KorrinProject::resolvedActiveLayerID(std::optional<UUID> requested) const {
  const auto isRequested = [requested](const PlotLayer& layer) { return layer.id == requested; };
  if (std::any_of(layers.begin(), layers.end(), isRequested)) return requested;
  if (layers.empty()) return std::nullopt;
  return layers.front().id;
}

}  // namespace korrin
