#include "korrin/drawing/left_out_items.h"

#include <map>

namespace korrin::drawing {

std::vector<LeftOutItem> leftOutItems(const KorrinProject& project) {
  std::map<UUID, const PlotLayer*> layers;
  for (const PlotLayer& layer : project.layers) {
    const PlotLayer*& known = layers[layer.id];
    if (known == nullptr || (layer.isVisible && !known->isVisible)) known = &layer;
  }
  std::vector<LeftOutItem> items;
  for (const PlotItem& item : project.items) {
    const auto layer = layers.find(item.layerID);
    if (layer == layers.end()) {
      items.push_back({&item, nullptr});
    } else if (!layer->second->isVisible) {
      items.push_back({&item, layer->second});
    }
  }
  return items;
}

}  // namespace korrin::drawing
