#include <algorithm>
#include <map>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/geometry/korrin_geometry.h"

#include "tests/support/properties.h"
#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

bool isHorizontal(ItemAlignment alignment) {
  return alignment < ItemAlignment::top || alignment == ItemAlignment::distributeHorizontally;
}

ItemAlignment alignmentBelow(int limit) {
  return allCases<ItemAlignment>()[static_cast<std::size_t>(drawn()(limit))];
}

constexpr int edgesAndCentres = 6;
constexpr int everyAlignment = 8;

// Items at multiples of `unit`; those of a quarter are added and halved without rounding.
List<PlotItem> itemsInUnitsOf(double unit) {
  const Chance chance = drawn();
  List<PlotItem> items;
  for (int i = 0, count = chance(10); i < count; ++i) {
    PlotItem item = microphone(identifier(static_cast<std::uint64_t>(i)), unit * chance(60),
                               unit * (chance(40000) - 20000));
    item.size = {.width = unit * chance(400), .height = unit * chance(400)};
    items.push_back(item);
  }
  return items;
}

TEST(GeometryLaws, OneCoordinateChangesAndNothingElse) {
  expectAlways("all but one coordinate is kept", [] {
    const ItemAlignment alignment = alignmentBelow(everyAlignment);
    const List<PlotItem> items = itemsInUnitsOf(0.1);
    List<PlotItem> result = KorrinGeometry::applying(alignment, items);
    RC_ASSERT(result.size() == items.size());
    const auto coordinate = isHorizontal(alignment) ? &StagePoint::x : &StagePoint::y;
    for (std::size_t i = 0; i < items.size(); ++i)
      result.edit(i).position.*coordinate = items[i].position.*coordinate;
    RC_ASSERT(result == items);
  });
}

TEST(GeometryLaws, AligningTwiceIsAligningOnce) {
  expectAlways("edges and centres are aligned once and for all", [] {
    const ItemAlignment alignment = alignmentBelow(edgesAndCentres);
    const List<PlotItem> once = KorrinGeometry::applying(alignment, itemsInUnitsOf(0.25));
    RC_ASSERT(KorrinGeometry::applying(alignment, once) == once);
  });
}

TEST(GeometryLaws, DistributionIsAsItsDefinitionReads) {
  expectAlways("each item has the target of its rank", [] {
    const bool along = drawn()(2) == 0;
    const auto coordinate = along ? &StagePoint::x : &StagePoint::y;
    const List<PlotItem> items = itemsInUnitsOf(0.1);
    List<PlotItem> expected = items;
    if (items.size() > 2) {
      std::vector<PlotItem> sorted = items.toVector();
      std::ranges::stable_sort(
          sorted, {}, [coordinate](const PlotItem& item) { return item.position.*coordinate; });
      const double first = sorted.front().position.*coordinate;
      const double last = sorted.back().position.*coordinate;
      const double step = (last - first) / static_cast<double>(sorted.size() - 1);
      std::map<UUID, double> targets;
      for (std::size_t i = 0; i < sorted.size(); ++i)
        targets[sorted[i].id] = first + step * static_cast<double>(i);
      for (std::size_t i = 0; i < expected.size(); ++i)
        expected.edit(i).position.*coordinate = targets.at(expected[i].id);
    }
    RC_ASSERT(KorrinGeometry::applying(along ? ItemAlignment::distributeHorizontally
                                             : ItemAlignment::distributeVertically,
                                       items) == expected);
  });
}

}  // namespace
}  // namespace korrin::test
