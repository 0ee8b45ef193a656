#include "korrin/model/stacking.h"

#include <vector>

#include <gtest/gtest.h>

#include "tests/support/sample_project.h"

namespace korrin {
namespace {

using test::identifier;
using test::microphone;

PlotLayer layer(std::uint64_t id, bool isVisible, std::int64_t zIndex) {
  return {.id = identifier(id),
          .name = "Layer",
          .isVisible = isVisible,
          .isLocked = false,
          .zIndex = zIndex};
}

PlotItem itemOn(std::uint64_t layerID, std::uint64_t id) {
  PlotItem item = microphone(identifier(id));
  item.layerID = identifier(layerID);
  return item;
}

std::vector<UUID> stacked(const KorrinProject& project) {
  std::vector<UUID> ids;
  for (const PlotItem* item : visibleItemsInStackingOrder(project)) ids.push_back(item->id);
  return ids;
}

std::vector<UUID> identifiers(std::initializer_list<std::uint64_t> numbers) {
  std::vector<UUID> ids;
  for (const std::uint64_t number : numbers) ids.push_back(identifier(number));
  return ids;
}

TEST(StackingOrder, IsByTheLayersHeightThenByTheList) {
  KorrinProject project = test::sampleProject();
  project.layers = {layer(100, true, 5), layer(101, true, -3), layer(102, true, 5)};
  project.items = {itemOn(100, 1), itemOn(101, 2), itemOn(102, 3), itemOn(100, 4), itemOn(101, 5)};
  EXPECT_EQ(stacked(project), identifiers({2, 5, 1, 3, 4}));
}

TEST(StackingOrder, LeavesOutWhatIsOnHiddenAndMissingLayers) {
  KorrinProject project = test::sampleProject();
  project.layers = {layer(100, false, 0), layer(101, true, 0)};
  project.items = {itemOn(100, 1), itemOn(101, 2), itemOn(999, 3)};
  EXPECT_EQ(stacked(project), identifiers({2}));
  project.layers.clear();
  EXPECT_EQ(stacked(project), identifiers({}));
}

TEST(StackingOrder, TakesTheFirstVisibleOfLayersThatShareAnIdentifier) {
  KorrinProject project = test::sampleProject();
  project.layers = {layer(100, false, -9), layer(100, true, 7), layer(100, true, 0),
                    layer(101, true, 3)};
  project.items = {itemOn(100, 1), itemOn(101, 2)};
  EXPECT_EQ(stacked(project), identifiers({2, 1}));
}

}  // namespace
}  // namespace korrin
