#include "assets/known_assets.h"

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korrin::host {
namespace {

using testing::IsEmpty;
using testing::UnorderedElementsAre;

std::unordered_set<Text> assetsIn(std::string_view lines) {
  std::unordered_set<Text> assets;
  addAssetLines(lines, assets);
  return assets;
}

TEST(AssetLines, HoldOneIdentifierEach) {
  EXPECT_THAT(assetsIn("krn.a.v1\nkrn.b.v1"), UnorderedElementsAre("krn.a.v1", "krn.b.v1"));
  EXPECT_THAT(assetsIn("krn.a.v1\nkrn.a.v1\n"), UnorderedElementsAre("krn.a.v1"));
}

TEST(AssetLines, MayBeBlankOrIndentedOrEndAsElsewhere) {
  EXPECT_THAT(assetsIn("\uFEFFkrn.a.v1\r\n\r\n \t\n  krn.b.v1\t\n\n"),
              UnorderedElementsAre("krn.a.v1", "krn.b.v1"));
  EXPECT_THAT(assetsIn(""), IsEmpty());
  EXPECT_THAT(assetsIn("\n\n"), IsEmpty());
}

TEST(AssetLines, KeepBlanksInsideAnIdentifier) {
  EXPECT_THAT(assetsIn("my symbol\n"), UnorderedElementsAre("my symbol"));
}

TEST(BuiltinAssets, StandInOrderAndOnce) {
  EXPECT_TRUE(std::ranges::is_sorted(builtinAssets));
  EXPECT_EQ(std::ranges::adjacent_find(builtinAssets), builtinAssets.end());
}

}  // namespace
}  // namespace korrin::host
