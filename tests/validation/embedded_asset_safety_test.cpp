#include "korrin/validation/embedded_asset_safety.h"

#include <gtest/gtest.h>

#include "tests/support/image_builder.h"
#include "tests/support/outcome.h"
#include "tests/support/pdf_builder.h"

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

// A whole PDF with one page, whose media box is `box`.
Bytes pdfWithBox(std::string_view box) {
  return bytesOf(onePage("/MediaBox [" + std::string(box) + "]"));
}

Bytes smallPdf() { return pdfWithBox("0 0 595 842"); }

struct PageBox {
  std::string name;
  std::string_view box;
  std::string_view expected;
};

class EmbeddedPdf : public testing::TestWithParam<PageBox> {};

TEST_P(EmbeddedPdf, IsJudgedByItsFirstPagesBox) {
  EXPECT_EQ(assetOutcome(pdfWithBox(GetParam().box), pdf), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(All, EmbeddedPdf,
                         testing::Values(PageBox{"OrdinaryPage", "0 0 595 842", "0"},
                                         PageBox{"CornersInAnyOrder", "595 842 0 0", "0"},
                                         PageBox{"AwayFromTheOrigin", "-100 -100 100 100", "0"},
                                         PageBox{"SmallestOfExtents", "0 0 0.001 0.001", "0"},
                                         PageBox{"LargestWidthAndHeight", "0 0 20000 20000", "0"},
                                         PageBox{"TooWide", "0 0 20001 842", imageTooLarge},
                                         PageBox{"TooHigh", "0 0 595 20001", imageTooLarge},
                                         PageBox{"BarelyTooWide", "0 0 20000.5 842", imageTooLarge},
                                         PageBox{"ZeroWidth", "0 0 0 842", imageTooLarge},
                                         PageBox{"ZeroHeight", "0 7 595 7", imageTooLarge},
                                         PageBox{"ThreeNumbers", "0 0 595", imageTooLarge},
                                         PageBox{"NoNumbers", "/a /b /c /d", imageTooLarge}),
                         [](const auto& row) { return row.param.name; });

TEST(EmbeddedAssetSafety, FindsAPageWithoutABoxTooLarge) {
  EXPECT_EQ(assetOutcome(bytesOf(onePage("")), pdf), imageTooLarge);
}

TEST(EmbeddedAssetSafety, FindsAnInfiniteBoxTooLarge) {
  EXPECT_EQ(assetOutcome(pdfWithBox("0 0 1" + std::string(400, '0') + " 842"), pdf), imageTooLarge);
}

TEST(EmbeddedAssetSafety, LetsThePdfReaderJudgeBytesBeforeTheHeader) {
  EXPECT_EQ(assetOutcome(joined({bytesOf("stray bytes\n"), smallPdf()}), pdf), "0");
}

TEST(EmbeddedAssetSafety, RefusesAPdfThatCannotBeRead) {
  EXPECT_EQ(assetOutcome(bytesOf("%PDF-1.7\n%%EOF\n"), pdf), invalidImage);
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
