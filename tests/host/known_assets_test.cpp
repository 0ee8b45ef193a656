#include "assets/known_assets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korrin/drawing/symbol_catalogue.h"

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

TEST(KnownAssets, AreTheBuiltInSymbolsWhenAskedFor) {
  EXPECT_EQ(knownAssets({.files = {}, .useBuiltin = true}).identifiers, builtInAssetIDs());
}

}  // namespace
}  // namespace korrin::host
