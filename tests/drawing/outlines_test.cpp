#include "korrin/drawing/outlines.h"

#include <cmath>
#include <limits>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/sample_project.h"

namespace korrin {
namespace {

using test::identifier;
using testing::ElementsAre;
using testing::IsEmpty;

PlotItem plank(double degrees) {
  PlotItem item = test::microphone(identifier(1), 100, 50);
  item.size = {.width = 400, .height = 200};
  item.rotationDegrees = degrees;
  return item;
}

KorrinProject projectOf(List<PlotItem> items) {
  KorrinProject project = test::sampleProject();
  project.items = std::move(items);
  return project;
}

TEST(Outline, GoesRoundTheItemClockwise) {
  EXPECT_THAT(outlineOf(plank(0)),
              ElementsAre(StagePoint{.x = -100, .y = -50}, StagePoint{.x = 300, .y = -50},
                          StagePoint{.x = 300, .y = 150}, StagePoint{.x = -100, .y = 150}));
}

TEST(Outline, TurnsWithTheItem) {
  for (const double degrees : {90.0, -270.0, 450.0})
    EXPECT_THAT(outlineOf(plank(degrees)),
                ElementsAre(StagePoint{.x = 200, .y = -150}, StagePoint{.x = 200, .y = 250},
                            StagePoint{.x = 0, .y = 250}, StagePoint{.x = 0, .y = -150}));
  const StagePoint first = outlineOf(plank(30))[0];
  EXPECT_NEAR(first.x, 100 - 200 * std::cos(M_PI / 6) + 100 * 0.5, 1e-9);
  EXPECT_NEAR(first.y, 50 - 200 * 0.5 - 100 * std::cos(M_PI / 6), 1e-9);
}

TEST(Outline, DoesNotMindFlips) {
  PlotItem item = plank(30);
  const auto outline = outlineOf(item);
  item.isFlippedHorizontally = true;
  item.isFlippedVertically = true;
  EXPECT_EQ(outlineOf(item), outline);
}

TEST(ItemsAt, TakesCornersAndEdgesForPartOfTheItem) {
  for (double degrees = 0; degrees < 360; degrees += 7.3) {
    const KorrinProject project = projectOf({plank(degrees)});
    const auto outline = outlineOf(project.items[0]);
    for (std::size_t i = 0; i < outline.size(); ++i) {
      const StagePoint a = outline[i];
      const StagePoint b = outline[(i + 1) % outline.size()];
      const StagePoint middle = {.x = (a.x + b.x) / 2, .y = (a.y + b.y) / 2};
      EXPECT_THAT(itemsAt(project, a), ElementsAre(identifier(1)));
      EXPECT_THAT(itemsAt(project, middle), ElementsAre(identifier(1)));
      const StagePoint beyond = {.x = middle.x + (middle.x - 100) * 1e-4,
                                 .y = middle.y + (middle.y - 50) * 1e-4};
      EXPECT_THAT(itemsAt(project, beyond), IsEmpty());
    }
  }
}

TEST(ItemsAt, NamesTheTopmostFirstAndHiddenOnesNot) {
  KorrinProject project = test::sampleProject();
  PlotLayer top = project.layers[0];
  top.id = identifier(0x900);
  top.zIndex = 100;
  PlotLayer hidden = top;
  hidden.id = identifier(0x901);
  hidden.isVisible = false;
  project.layers.push_back(top);
  project.layers.push_back(hidden);
  const auto on = [&](unsigned number, UUID layer) {
    PlotItem item = test::microphone(identifier(number));
    item.layerID = layer;
    item.isLocked = number == 2;
    return item;
  };
  project.items = {on(1, top.id), on(2, project.layers[0].id), on(3, project.layers[0].id),
                   on(4, hidden.id), on(5, identifier(0x999))};
  EXPECT_THAT(itemsAt(project, StagePoint::zero),
              ElementsAre(identifier(1), identifier(3), identifier(2)));
  EXPECT_THAT(itemsAt(project, {.x = 101, .y = 0}), IsEmpty());
}

TEST(ItemsAt, FindsNothingWhereNumbersAreNone) {
  const double none = std::numeric_limits<double>::quiet_NaN();
  const double infinite = std::numeric_limits<double>::infinity();
  EXPECT_THAT(itemsAt(projectOf({plank(none)}), {.x = 100, .y = 50}), IsEmpty());
  EXPECT_THAT(itemsAt(projectOf({plank(infinite)}), {.x = 100, .y = 50}), IsEmpty());
  EXPECT_THAT(itemsAt(projectOf({plank(0)}), {.x = none, .y = 50}), IsEmpty());
  EXPECT_THAT(itemsAt(projectOf({plank(0)}), {.x = infinite, .y = 50}), IsEmpty());
  PlotItem endless = plank(0);
  endless.size.width = infinite;
  EXPECT_THAT(itemsAt(projectOf({endless}), {.x = 100, .y = 50}), IsEmpty());
  endless.size = {.width = infinite, .height = infinite};
  EXPECT_THAT(itemsAt(projectOf({endless}), {.x = 100, .y = 50}), IsEmpty());
  endless.position.x = infinite;
  EXPECT_THAT(itemsAt(projectOf({endless}), {.x = 100, .y = 50}), IsEmpty());
}

}  // namespace
}  // namespace korrin
