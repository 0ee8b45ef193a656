#include "korrin/model/stage_values.h"

#include <limits>

#include <gtest/gtest.h>

#include "korrin/model/document_coding.h"

#include "tests/support/enumeration_laws.h"
#include "tests/support/full_project.h"
#include "tests/support/record_laws.h"

namespace korrin {
namespace {

const StageDefinition stage = test::fullProject().stage;

TEST(StagePoint, KeepsTheRecordLaws) { test::expectRecordLaws(StagePoint{.x = -1250, .y = 0.1}); }

TEST(StagePoint, HasItsZeroAtTheCentre) {
  EXPECT_EQ(StagePoint::zero.x, 0);
  EXPECT_EQ(StagePoint::zero.y, 0);
  EXPECT_TRUE(StagePoint::zero == (StagePoint{.x = 0, .y = 0}));
  static_assert(StagePoint::zero.x == 0);
}

TEST(StagePoint, ComparesAsNumbersDo) {
  const StagePoint negativeZero{.x = -0.0, .y = 0};
  EXPECT_TRUE(negativeZero == StagePoint::zero);
  EXPECT_EQ(std::hash<StagePoint>{}(negativeZero), std::hash<StagePoint>{}(StagePoint::zero));
  const StagePoint nowhere{.x = std::numeric_limits<double>::quiet_NaN(), .y = 0};
  EXPECT_FALSE(nowhere == nowhere);
}

TEST(StageSize, KeepsTheRecordLaws) {
  test::expectRecordLaws(StageSize{.width = 3000, .height = 2400});
}

TEST(StageSize, HoldsWhatNoStageCouldBe) {
  const double infinity = std::numeric_limits<double>::infinity();
  const StageSize size{.width = -infinity, .height = 0};
  EXPECT_EQ(size.width, -infinity);
  EXPECT_TRUE(size == StageSize(size));
}

TEST(StageDefinition, KeepsTheRecordLaws) { test::expectRecordLaws(stage); }

TEST(StageDefinition, DiffersByShowDimensionsAlone) {
  StageDefinition other = stage;
  other.showDimensions = !other.showDimensions;
  EXPECT_FALSE(other == stage);
}

TEST(StageDefinition, HoldsANegativeGridSpacing) {
  StageDefinition other = stage;
  other.gridSpacingMillimeters = -500;
  EXPECT_EQ(other.gridSpacingMillimeters, -500);
  EXPECT_FALSE(other == stage);
  EXPECT_TRUE(decodeJSON<StageDefinition>(encodeJSON(other)) == other);
}

TEST(AudienceEdge, KeepsTheEnumerationLaws) {
  using enum AudienceEdge;
  test::expectEnumerationLaws<AudienceEdge>(
      {{top, "top"}, {right, "right"}, {bottom, "bottom"}, {left, "left"}});
}

}  // namespace
}  // namespace korrin
