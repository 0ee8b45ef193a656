#include "korrin/geometry/korrin_geometry.h"

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korrin/model/document_coding.h"

#include "tests/support/sample_project.h"

namespace korrin {
namespace {

using test::identifier;
using testing::Each;
using testing::ElementsAre;
using testing::IsNan;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

// A box as it lies on one axis; across that axis it has a place and an extent of its own.
struct Box {
  double centre;
  double extent;
};

// The alignments, with what they do on their axis told without naming it.
struct Direction {
  ItemAlignment low, centre, high, distribute;
  double StagePoint::*coordinate;
  double StageSize::*extent;
};
constexpr Direction horizontal = {.low = ItemAlignment::left,
                                  .centre = ItemAlignment::horizontalCenter,
                                  .high = ItemAlignment::right,
                                  .distribute = ItemAlignment::distributeHorizontally,
                                  .coordinate = &StagePoint::x,
                                  .extent = &StageSize::width};
constexpr Direction vertical = {.low = ItemAlignment::top,
                                .centre = ItemAlignment::verticalCenter,
                                .high = ItemAlignment::bottom,
                                .distribute = ItemAlignment::distributeVertically,
                                .coordinate = &StagePoint::y,
                                .extent = &StageSize::height};

// As text, because an item that holds a NaN does not equal itself.
std::string printed(const List<PlotItem>& items) {
  return encodeJSON(items, {.nonFinite = NonFinite::strings});
}

List<PlotItem> itemsOf(const Direction& direction, const std::vector<Box>& boxes) {
  List<PlotItem> items;
  for (const Box& box : boxes) {
    const auto number = static_cast<std::uint64_t>(items.size() + 1);
    PlotItem item = test::microphone(identifier(number), 1000.0 * static_cast<double>(number),
                                     -1000.0 * static_cast<double>(number));
    item.position.*direction.coordinate = box.centre;
    item.size.*direction.extent = box.extent;
    items.push_back(item);
  }
  return items;
}

std::vector<double> coordinatesOf(const Direction& direction, const List<PlotItem>& items) {
  std::vector<double> coordinates;
  for (const PlotItem& item : items) coordinates.push_back(item.position.*direction.coordinate);
  return coordinates;
}

class Alignment : public testing::TestWithParam<Direction> {
 protected:
  // The coordinates after an alignment of boxes, all else having been checked to be as it was.
  std::vector<double> aligned(ItemAlignment alignment, const std::vector<Box>& boxes) {
    const List<PlotItem> items = itemsOf(GetParam(), boxes);
    const List<PlotItem> result = KorrinGeometry::applying(alignment, items);
    EXPECT_EQ(result.size(), items.size());
    List<PlotItem> movedBack = result;
    for (std::size_t i = 0; i < items.size(); ++i)
      movedBack.edit(i).position.*GetParam().coordinate = boxes[i].centre;
    EXPECT_EQ(printed(movedBack), printed(items));
    return coordinatesOf(GetParam(), result);
  }

  std::vector<double> distributed(const std::vector<double>& centres) {
    std::vector<Box> boxes;
    for (const double centre : centres) boxes.push_back({.centre = centre, .extent = 10});
    return aligned(GetParam().distribute, boxes);
  }
};
INSTANTIATE_TEST_SUITE_P(Direction, Alignment, testing::Values(horizontal, vertical),
                         [](const auto& row) {
                           return row.param.low == ItemAlignment::left ? "Horizontal" : "Vertical";
                         });

TEST_P(Alignment, LeavesFewerThanTwoItemsAlone) {
  for (const ItemAlignment alignment :
       {GetParam().low, GetParam().centre, GetParam().high, GetParam().distribute}) {
    EXPECT_TRUE(KorrinGeometry::applying(alignment, {}).empty());
    EXPECT_THAT(aligned(alignment, {{7, 10}}), ElementsAre(7));
  }
}

TEST_P(Alignment, PutsLowEdgesOnTheLowest) {
  EXPECT_THAT(aligned(GetParam().low, {{50, 10}, {20, 30}}), ElementsAre(10, 20));
}

TEST_P(Alignment, PutsHighEdgesOnTheHighest) {
  EXPECT_THAT(aligned(GetParam().high, {{50, 10}, {20, 30}, {0, 4}}), ElementsAre(50, 40, 53));
}

TEST_P(Alignment, PutsCentresOnTheMiddleOfTheSpan) {
  EXPECT_THAT(aligned(GetParam().centre, {{5, 10}, {80, 40}, {50, 2}}), Each(50));
}

TEST_P(Alignment, TakesTheMiddleOfTheSpanAndNotOfTheCentres) {
  EXPECT_THAT(aligned(GetParam().centre, {{0, 0}, {1, 0}, {100, 0}}), Each(50));
}

TEST_P(Alignment, ComputesWithNegativeExtentsAsWithOthers) {
  EXPECT_THAT(aligned(GetParam().low, {{0, -20}, {30, 10}}), ElementsAre(0, 15));
  EXPECT_THAT(aligned(GetParam().high, {{0, -20}, {-30, 10}}), ElementsAre(0, -15));
}

TEST_P(Alignment, ComputesInTheOrderWritten) {
  // Each expression once more as it stands; a fused or reordered one would round otherwise.
  const Box a = {.centre = 0.1, .extent = 0.7};
  const Box b = {.centre = 1e16, .extent = 3.3};
  const double low = a.centre - a.extent * 0.5;
  const double high = b.centre + b.extent * 0.5;
  EXPECT_THAT(aligned(GetParam().low, {a, b}),
              ElementsAre(low + a.extent * 0.5, low + b.extent * 0.5));
  EXPECT_THAT(aligned(GetParam().high, {a, b}),
              ElementsAre(high + a.extent * -0.5, high + b.extent * -0.5));
  EXPECT_THAT(aligned(GetParam().centre, {a, b}), Each((low + high) * 0.5));
}

TEST_P(Alignment, DistributesCentresEvenlyWhateverTheOrder) {
  EXPECT_THAT(distributed({0, 10, 100}), ElementsAre(0, 50, 100));
  EXPECT_THAT(distributed({100, 0, 10}), ElementsAre(100, 0, 50));
  EXPECT_THAT(distributed({10, 100, 0}), ElementsAre(50, 100, 0));
}

TEST_P(Alignment, DistributesWithoutRegardToExtents) {
  EXPECT_THAT(aligned(GetParam().distribute, {{0, 500}, {10, 1}, {100, 3}, {40, 9}}),
              ElementsAre(0, 100.0 / 3, 100, 100.0 / 3 * 2));
}

TEST_P(Alignment, LeavesTwoItemsWhereTheyAreInADistribution) {
  EXPECT_THAT(distributed({30, 10}), ElementsAre(30, 10));
}

TEST_P(Alignment, MovesTwoItemsInEveryOtherAlignment) {
  for (const ItemAlignment alignment : {GetParam().low, GetParam().centre, GetParam().high})
    EXPECT_NE(aligned(alignment, {{0, 10}, {100, 10}}), (std::vector<double>{0, 100}));
}

TEST_P(Alignment, GivesTheEarlierOfTwoItemsAtOnePlaceTheLowerTarget) {
  EXPECT_THAT(distributed({90, 5, 0, 5, 5}), ElementsAre(90, 22.5, 0, 45, 67.5));
  EXPECT_THAT(distributed({0.0, -0.0, 10}), ElementsAre(0, 5, 10));
}

TEST_P(Alignment, KeepsTheOrderOfManyItemsAtOnePlace) {
  std::vector<double> centres(501, 0.0);
  centres[0] = 1000;
  centres[500] = -1000;
  const std::vector<double> result = distributed(centres);
  for (std::size_t i = 1; i < 499; ++i) EXPECT_LT(result[i], result[i + 1]);
}

TEST_P(Alignment, StepsFromTheFirstWithoutSnapping) {
  const double step = (0.7 - 0.1) / 3.0;
  EXPECT_THAT(distributed({0.1, 0.2, 0.3, 0.7}),
              ElementsAre(0.1 + step * 0.0, 0.1 + step * 1.0, 0.1 + step * 2.0, 0.1 + step * 3.0));
}

TEST_P(Alignment, IgnoresRotationFlipsLocksLayersAndGroups) {
  List<PlotItem> items = itemsOf(GetParam(), {{0, 10}, {50, 30}, {90, 20}});
  List<PlotItem> odd = items;
  PlotItem& item = odd.edit(1);
  item.rotationDegrees = 90;
  item.isFlippedHorizontally = item.isFlippedVertically = true;
  item.isLocked = true;
  item.layerID = identifier(0x777);
  item.groupID = identifier(0x778);
  for (const ItemAlignment alignment :
       {GetParam().low, GetParam().centre, GetParam().high, GetParam().distribute}) {
    const List<PlotItem> result = KorrinGeometry::applying(alignment, odd);
    EXPECT_EQ(coordinatesOf(GetParam(), result),
              coordinatesOf(GetParam(), KorrinGeometry::applying(alignment, items)));
    EXPECT_TRUE(result[1].isLocked);
    EXPECT_EQ(result[1].rotationDegrees, 90);
  }
}

TEST_P(Alignment, LeavesItsArgumentAlone) {
  const List<PlotItem> items = itemsOf(GetParam(), {{0, 10}, {50, 30}, {90, 20}});
  for (const ItemAlignment alignment : {GetParam().low, GetParam().centre, GetParam().distribute}) {
    KorrinGeometry::applying(alignment, items);
    EXPECT_EQ(items, itemsOf(GetParam(), {{0, 10}, {50, 30}, {90, 20}}));
  }
}

TEST_P(Alignment, AlignsItemsThatShareAnIdentifier) {
  List<PlotItem> items = itemsOf(GetParam(), {{0, 10}, {50, 10}});
  items.edit(1).id = items[0].id;
  EXPECT_THAT(coordinatesOf(GetParam(), KorrinGeometry::applying(GetParam().low, items)), Each(0));
  EXPECT_EQ(KorrinGeometry::applying(GetParam().distribute, items), items);
}

TEST_P(Alignment, ComputesWithInfinitePlaces) {
  EXPECT_THAT(aligned(GetParam().low, {{-infinity, 10}, {20, 30}}), Each(-infinity));
  EXPECT_THAT(aligned(GetParam().high, {{infinity, 10}, {20, 30}}), Each(infinity));
  EXPECT_THAT(aligned(GetParam().centre, {{-infinity, 10}, {infinity, 10}}), Each(IsNan()));
  EXPECT_THAT(distributed({0, 10, infinity}), ElementsAre(IsNan(), infinity, infinity));
}

TEST_P(Alignment, ComputesWithInfiniteExtents) {
  EXPECT_THAT(aligned(GetParam().low, {{0, infinity}, {20, 30}}), ElementsAre(IsNan(), -infinity));
  EXPECT_THAT(aligned(GetParam().centre, {{0, infinity}, {20, 30}}), Each(IsNan()));
}

TEST_P(Alignment, PassesOverEdgesThatAreNotNumbersUnlessTheFirstIsOne) {
  EXPECT_THAT(aligned(GetParam().low, {{50, 10}, {notANumber, 10}, {20, 30}}),
              ElementsAre(10, 10, 20));
  EXPECT_THAT(aligned(GetParam().low, {{notANumber, 10}, {20, 30}}), Each(IsNan()));
}

TEST_P(Alignment, DistributesToNowhereWhenOnePlaceIsNotANumber) {
  for (std::size_t at = 0; at < 5; ++at) {
    std::vector<double> centres = {40, 30, 20, 10, 0};
    centres[at] = notANumber;
    EXPECT_THAT(distributed(centres), Each(IsNan()));
  }
}

TEST_P(Alignment, ComesToAnEndWithAnyMixtureOfNumbers) {
  std::vector<Box> boxes;
  for (int i = 0; i < 2000; ++i) {
    const double some[] = {notANumber, infinity, -infinity, 1e308, -1e308, 0.0, -0.0, 1.0 * i};
    boxes.push_back({.centre = some[i * 7 % 8], .extent = some[i * 5 % 8]});
  }
  for (const ItemAlignment alignment :
       {GetParam().low, GetParam().centre, GetParam().high, GetParam().distribute})
    EXPECT_EQ(aligned(alignment, boxes).size(), boxes.size());
}

TEST_P(Alignment, AbortsADistributionOfRepeatedIdentifiers) {
  List<PlotItem> items = itemsOf(GetParam(), {{0, 10}, {50, 10}, {90, 10}});
  items.edit(2).id = items[0].id;
  // Nothing follows but what an emulator that runs the test says of its own.
  EXPECT_DEATH(
      KorrinGeometry::applying(GetParam().distribute, items),
      "^korrin: two items of a distribution have the same identifier\n(qemu: uncaught .*)?$");
}

TEST(ItemAlignment, ListsItsCasesInOrder) {
  using enum ItemAlignment;
  EXPECT_THAT(allCases<ItemAlignment>(),
              ElementsAre(left, horizontalCenter, right, top, verticalCenter, bottom,
                          distributeHorizontally, distributeVertically));
}

TEST(ItemAlignment, HasTheCasesNamesAsRawValues) {
  const std::vector<std::string> names = {"left",
                                          "horizontalCenter",
                                          "right",
                                          "top",
                                          "verticalCenter",
                                          "bottom",
                                          "distributeHorizontally",
                                          "distributeVertically"};
  for (const ItemAlignment alignment : allCases<ItemAlignment>()) {
    const std::string& name = names[static_cast<std::size_t>(alignment)];
    EXPECT_EQ(rawValue(alignment), name);
    EXPECT_EQ(fromRawValue<ItemAlignment>(name), alignment);
    EXPECT_EQ(encodeJSON(alignment), '"' + name + '"');
    EXPECT_EQ(decodeJSON<ItemAlignment>('"' + name + '"'), alignment);
  }
  for (const std::string_view text : {"", "Left", "left ", "center", "distribute"})
    EXPECT_EQ(fromRawValue<ItemAlignment>(text), std::nullopt);
}

TEST(ItemAlignment, AbortsForAValueThatIsNoCase) {
  const List<PlotItem> items = itemsOf(horizontal, {{0, 10}, {50, 10}});
  EXPECT_DEATH(KorrinGeometry::applying(static_cast<ItemAlignment>(8), items), "no case");
}

}  // namespace
}  // namespace korrin
