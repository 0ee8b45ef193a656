#include "korrin/session/asset_budget.h"

#include <span>
#include <string_view>

#include <gtest/gtest.h>

#include "korrin/validation/document_validation_error.h"
#include "korrin/validation/raster_asset_safety.h"

#include "tests/support/image_builder.h"

namespace korrin {
namespace {

std::int64_t admit(AssetBudget& budget, const test::Bytes& bytes,
                   std::optional<std::string_view> mediaType = std::nullopt) {
  return budget.admit(std::as_bytes(std::span(bytes)), mediaType);
}

DocumentValidationError refusal(AssetBudget& budget, const test::Bytes& bytes,
                                std::optional<std::string_view> mediaType = std::nullopt) {
  try {
    admit(budget, bytes, mediaType);
  } catch (const DocumentValidationError& error) {
    return error;
  }
  ADD_FAILURE() << "the image is admitted";
  return DocumentValidationError::duplicateIdentifiers;
}

TEST(AssetBudget, AddsUpThePixelsOfTheImages) {
  AssetBudget budget;
  EXPECT_EQ(budget.pixels(), 0);
  EXPECT_EQ(admit(budget, test::png({.width = 10, .height = 20})), 200);
  EXPECT_EQ(admit(budget, test::png({.width = 3, .height = 2})), 6);
  EXPECT_EQ(budget.pixels(), 206);
}

TEST(AssetBudget, IsFullAtTheLimitAndTakesNothingBeyond) {
  AssetBudget budget;
  admit(budget, test::png({.width = 10'000, .height = 5'000}));
  admit(budget, test::png({.width = 9'999, .height = 5'000}));
  EXPECT_EQ(refusal(budget, test::png({.width = 5'001, .height = 1})),
            DocumentValidationError::imageTooLarge);
  EXPECT_EQ(budget.pixels(), RasterAssetSafety::maximumAggregatePixels - 5'000);
  admit(budget, test::png({.width = 5'000, .height = 1}));
  EXPECT_EQ(budget.pixels(), RasterAssetSafety::maximumAggregatePixels);
  EXPECT_EQ(refusal(budget, test::png({.width = 1, .height = 1})),
            DocumentValidationError::imageTooLarge);
}

TEST(AssetBudget, AddsWhatTheHostHasJudgedItself) {
  AssetBudget budget;
  budget.add(RasterAssetSafety::maximumAggregatePixels - 1);
  budget.add(0);
  EXPECT_THROW(budget.add(2), DocumentValidationError);
  EXPECT_EQ(budget.pixels(), RasterAssetSafety::maximumAggregatePixels - 1);
  budget.add(1);
  EXPECT_THROW(budget.add(1), DocumentValidationError);
}

TEST(AssetBudget, AddsNothingForWhatIsRefused) {
  AssetBudget budget;
  EXPECT_EQ(refusal(budget, {}), DocumentValidationError::invalidImage);
  EXPECT_EQ(refusal(budget, test::png({.width = 16'001, .height = 1})),
            DocumentValidationError::imageTooLarge);
  EXPECT_EQ(refusal(budget, test::png({}), "application/pdf"),
            DocumentValidationError::invalidImage);
  EXPECT_EQ(budget.pixels(), 0);
}

}  // namespace
}  // namespace korrin
