#include "korrin/model/stacking.h"

#include <algorithm>
#include <cstdint>
#include <map>

namespace korrin {

std::vector<const PlotItem*> visibleItemsInStackingOrder(const KorrinProject& project) {
  std::map<UUID, std::int64_t> heights;
  for (const PlotLayer& layer : project.layers)
    if (layer.isVisible) heights.emplace(layer.id, layer.zIndex);

  struct Placed {
    std::int64_t height;
    const PlotItem* item;
  };
  std::vector<Placed> placed;
  for (const PlotItem& item : project.items)
    if (const auto found = heights.find(item.layerID); found != heights.end())
      placed.push_back({.height = found->second, .item = &item});
  std::stable_sort(placed.begin(), placed.end(),
                   [](const Placed& a, const Placed& b) { return a.height < b.height; });

  std::vector<const PlotItem*> items;
  items.reserve(placed.size());
  for (const Placed& each : placed) items.push_back(each.item);
  return items;
}

}  // namespace korrin
