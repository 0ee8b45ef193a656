#include <algorithm>

#include "korrin/commands/edit_refusal.h"

namespace korrin {

bool KorrinProject::canSelectItem(const PlotItem& item) const {
  // Layers may share an identifier: any one of them that is visible and unlocked suffices.
  return std::any_of(layers.begin(), layers.end(), [&item](const PlotLayer& layer) {
    return layer.id == item.layerID && layer.isVisible && !layer.isLocked;
  });
}

bool KorrinProject::canEditItem(const PlotItem& item) const { return !whyNotEditable(*this, item); }

std::optional<EditRefusal> whyNotEditable(const KorrinProject& project, const PlotItem& item) {
  if (item.isLocked) return EditRefusal::itemLocked;
  // Of layers that share the identifier the first gives the reason, once none lets the edit pass.
  std::optional<EditRefusal> reason;
  for (const PlotLayer& layer : project.layers) {
    if (layer.id != item.layerID) continue;
    if (layer.isVisible && !layer.isLocked) return std::nullopt;
    if (!reason) reason = layer.isVisible ? EditRefusal::layerLocked : EditRefusal::layerHidden;
  }
  return reason.value_or(EditRefusal::layerMissing);
}

std::optional<UUID> KorrinProject::resolvedActiveLayerID(std::optional<UUID> requested) const {
  const auto isRequested = [requested](const PlotLayer& layer) { return layer.id == requested; };
  if (std::any_of(layers.begin(), layers.end(), isRequested)) return requested;
  if (layers.empty()) return std::nullopt;
  return layers.front().id;
}

}  // namespace korrin
