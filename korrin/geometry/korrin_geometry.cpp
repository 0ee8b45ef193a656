#include "korrin/geometry/korrin_geometry.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <unordered_set>
#include <vector>

#include "korrin/coding/json_codec.h"

namespace korrin {

namespace json {

template struct Codec<ItemAlignment>;
template struct Codec<List<ItemAlignment>>;

}  // namespace json

namespace {

struct Axis {
  double StagePoint::*coordinate;
  double StageSize::*extent;
};
constexpr Axis horizontal = {.coordinate = &StagePoint::x, .extent = &StageSize::width};
constexpr Axis vertical = {.coordinate = &StagePoint::y, .extent = &StageSize::height};

double coordinateOf(const PlotItem& item, Axis axis) { return item.position.*axis.coordinate; }
double extentOf(const PlotItem& item, Axis axis) { return item.size.*axis.extent; }

double lowestEdge(const List<PlotItem>& items, Axis axis) {
  const auto lowEdge = [axis](const PlotItem& item) {
    return coordinateOf(item, axis) - extentOf(item, axis) * 0.5;
  };
  double lowest = lowEdge(items.front());
  for (const PlotItem& item : items)
    if (const double edge = lowEdge(item); edge < lowest) lowest = edge;
  return lowest;
}

double highestEdge(const List<PlotItem>& items, Axis axis) {
  const auto highEdge = [axis](const PlotItem& item) {
    return coordinateOf(item, axis) + extentOf(item, axis) * 0.5;
  };
  double highest = highEdge(items.front());
  for (const PlotItem& item : items)
    if (const double edge = highEdge(item); edge > highest) highest = edge;
  return highest;
}

// Puts the point of each item that lies `fraction` of its extent before the centre on `reference`:
// its low edge for 0.5, its centre for 0, its high edge for -0.5.
List<PlotItem> placedOn(double reference, double fraction, List<PlotItem> items, Axis axis) {
  for (std::size_t i = 0; i < items.size(); ++i) {
    PlotItem& item = items.edit(i);
    item.position.*axis.coordinate = reference + extentOf(item, axis) * fraction;
  }
  return items;
}

List<PlotItem> centred(List<PlotItem> items, Axis axis) {
  const double reference = (lowestEdge(items, axis) + highestEdge(items, axis)) * 0.5;
  // Not `placedOn` with a fraction of 0: an infinite extent has no part in this.
  for (std::size_t i = 0; i < items.size(); ++i)
    items.edit(i).position.*axis.coordinate = reference;
  return items;
}

struct Ranked {
  double coordinate;
  std::size_t index;
};

// The items by ascending coordinate, those at equal coordinates in the order given. Behind them
// stand those whose coordinate is not a number: "less than" alone would be no order that a sort
// could rely on.
std::vector<Ranked> ranked(const List<PlotItem>& items, Axis axis) {
  std::vector<Ranked> ranks;
  ranks.reserve(items.size());
  for (const PlotItem& item : items) ranks.push_back({coordinateOf(item, axis), ranks.size()});
  std::sort(ranks.begin(), ranks.end(), [](const Ranked& a, const Ranked& b) {
    if (a.coordinate < b.coordinate) return true;
    if (b.coordinate < a.coordinate) return false;
    const bool aIsNaN = std::isnan(a.coordinate);
    const bool bIsNaN = std::isnan(b.coordinate);
    return aIsNaN != bIsNaN ? bIsNaN : a.index < b.index;
  });
  return ranks;
}

void requireDistinctIdentifiers(const List<PlotItem>& items) {
  IDSet ids;
  ids.reserve(items.size());
  for (const PlotItem& item : items)
    precondition(ids.insert(item.id).second,
                 "two items of a distribution have the same identifier");
}

List<PlotItem> distributed(List<PlotItem> items, Axis axis) {
  if (items.size() < 3) return items;
  requireDistinctIdentifiers(items);
  const std::vector<Ranked> ranks = ranked(items, axis);
  const double first = ranks.front().coordinate;
  const double last = ranks.back().coordinate;
  const double step = (last - first) / static_cast<double>(ranks.size() - 1);
  std::vector<double> coordinates(ranks.size());
  for (std::size_t i = 0; i < ranks.size(); ++i)
    coordinates[ranks[i].index] = first + step * static_cast<double>(i);
  // In the order of the list: its records stand side by side in memory, those of the ranks do not.
  for (std::size_t i = 0; i < items.size(); ++i)
    items.edit(i).position.*axis.coordinate = coordinates[i];
  return items;
}

}  // namespace

List<PlotItem> KorrinGeometry::applying(ItemAlignment alignment, const List<PlotItem>& items) {
  if (items.size() < 2) return items;
  switch (alignment) {
    case ItemAlignment::left:
      return placedOn(lowestEdge(items, horizontal), 0.5, items, horizontal);
    case ItemAlignment::horizontalCenter:
      return centred(items, horizontal);
    case ItemAlignment::right:
      return placedOn(highestEdge(items, horizontal), -0.5, items, horizontal);
    case ItemAlignment::top:
      return placedOn(lowestEdge(items, vertical), 0.5, items, vertical);
    case ItemAlignment::verticalCenter:
      return centred(items, vertical);
    case ItemAlignment::bottom:
      return placedOn(highestEdge(items, vertical), -0.5, items, vertical);
    case ItemAlignment::distributeHorizontally:
      return distributed(items, horizontal);
    case ItemAlignment::distributeVertically:
      return distributed(items, vertical);
  }
  abortWith("an enumeration holds a value that is no case");
}

}  // namespace korrin
