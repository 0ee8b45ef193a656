#include "korrin/validation/embedded_asset_safety.h"

#include <gtest/gtest.h>

#include "tests/support/image_builder.h"
#include "tests/support/outcome.h"

namespace korrin::test {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view pdf = "application/pdf";

TEST(EmbeddedAssetSafety, RefusesEmptyBytesUnderAnyMediaType) {
  EXPECT_EQ(assetOutcome({}, std::nullopt), invalidImage);
  EXPECT_EQ(assetOutcome({}, "image/png"), invalidImage);
  EXPECT_EQ(assetOutcome({}, pdf), invalidImage);
}

TEST(EmbeddedAssetSafety, ReadsImagesOfEveryKindUnderAnyMediaTypeButPdf) {
  for (const NamedImage& image : imagesOfEveryKind(3, 2))
    for (const auto& mediaType :
         {std::optional<std::string_view>(), {"image/png"}, {"image/tiff"}, {""}, {"nonsense"}})
      EXPECT_EQ(assetOutcome(image.bytes, mediaType), "6") << image.name;
}

TEST(EmbeddedAssetSafety, PassesOnTheErrorsOfTheRasterCheck) {
  EXPECT_EQ(assetOutcome(png({.width = 16001, .height = 1}), std::nullopt), imageTooLarge);
  EXPECT_EQ(assetOutcome(png({.width = 8000, .height = 6251}), "image/png"), imageTooLarge);
  EXPECT_EQ(assetOutcome(png({.width = 0}), "image/png"), invalidImage);
}

TEST(EmbeddedAssetSafety, RefusesImagesOfEveryKindThatAreCalledPdf) {
  for (const NamedImage& image : imagesOfEveryKind(3, 2))
    EXPECT_EQ(assetOutcome(image.bytes, pdf), invalidImage) << image.name;
}

TEST(EmbeddedAssetSafety, RefusesImagesThatAreCalledPdfHoweverLargeOrDamaged) {
  EXPECT_EQ(assetOutcome(png({.width = 16001}), pdf), invalidImage);
  EXPECT_EQ(assetOutcome(png({.crcDifference = 1}), pdf), invalidImage);
  EXPECT_EQ(assetOutcome(bytesOf("GIF89a"), pdf), invalidImage);
}

// A small whole PDF whose page is 595 x 842, as an editor would write it.
Bytes smallPdf() {
  std::string text = "%PDF-1.4\n";
  std::vector<std::size_t> offsets;
  for (const std::string_view object :
       {"1 0 obj\n<< /Type /Catalog /Pages 2 0 R >>\nendobj\n"sv,
        "2 0 obj\n<< /Type /Pages /Kids [3 0 R] /Count 1 >>\nendobj\n"sv,
        "3 0 obj\n<< /Type /Page /Parent 2 0 R /MediaBox [0 0 595 842] >>\nendobj\n"sv}) {
    offsets.push_back(text.size());
    text += object;
  }
  const std::size_t table = text.size();
  text += "xref\n0 4\n0000000000 65535 f \n";
  for (const std::size_t offset : offsets) {
    const std::string digits = std::to_string(offset);
    text += std::string(10 - digits.size(), '0') + digits + " 00000 n \n";
  }
  text += "trailer\n<< /Size 4 /Root 1 0 R >>\nstartxref\n" + std::to_string(table) + "\n%%EOF\n";
  return bytesOf(text);
}

TEST(EmbeddedAssetSafety, RefusesAnImageEvenWhenAPdfFollowsInside) {
  EXPECT_EQ(assetOutcome(joined({png({}), smallPdf()}), pdf), invalidImage);
}

TEST(EmbeddedAssetSafety, TakesTheRasterPathUnlessTheMediaTypeIsExactlyThatOfPdf) {
  for (const std::string_view mediaType :
       {"application/PDF"sv, "Application/pdf"sv, "application/pdf; version=1.4"sv,
        "application/pdf "sv, " application/pdf"sv, "application/pdf\0"sv, "application/pd"sv,
        "application/x-pdf"sv, "pdf"sv, ""sv}) {
    EXPECT_EQ(assetOutcome(smallPdf(), mediaType), invalidImage) << mediaType;
    EXPECT_EQ(assetOutcome(png({}), mediaType), "6") << mediaType;
  }
  EXPECT_EQ(assetOutcome(smallPdf(), std::nullopt), invalidImage);
}

TEST(EmbeddedAssetSafety, RefusesBytesThatAreNeitherImageNorPdf) {
  for (const std::string_view bytes : {"\0"sv, "plain text"sv, "P6 3 2 255"sv}) {
    EXPECT_EQ(assetOutcome(bytesOf(bytes), pdf), invalidImage);
    EXPECT_EQ(assetOutcome(bytesOf(bytes), std::nullopt), invalidImage);
  }
}

}  // namespace
}  // namespace korrin::test
