#include "korrin/validation/embedded_asset_safety.h"

#include <algorithm>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/validation/raster_asset_safety.h"

#include "tests/support/image_builder.h"
#include "tests/support/outcome.h"
#include "tests/support/pdf_builder.h"

namespace korrin::test {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view pdf = "application/pdf";

static_assert(std::is_same_v<decltype(EmbeddedAssetSafety::maximumPageExtent), const double>);
static_assert(EmbeddedAssetSafety::maximumPageExtent == 20'000);

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

TEST(EmbeddedAssetSafety, FindsABoxTooLargeWhoseExtentIsNoNumber) {
  const std::string infinite = "1" + std::string(400, '0');
  EXPECT_EQ(assetOutcome(pdfWithBox(infinite + " 0 " + infinite + " 842"), pdf), imageTooLarge);
}

TEST(EmbeddedAssetSafety, JudgesTheFirstPageOnly) {
  const auto pages = [](std::string_view first, std::string_view second) {
    return PdfBuilder()
        .object(1, "<</Pages 2 0 R>>")
        .object(2, "<</Kids[3 0 R 4 0 R]>>")
        .object(3, "<</MediaBox[0 0 " + std::string(first) + "]>>")
        .object(4, "<</MediaBox[0 0 " + std::string(second) + "]>>")
        .table()
        .file();
  };
  EXPECT_EQ(assetOutcome(bytesOf(pages("595 842", "20001 842")), pdf), "0");
  EXPECT_EQ(assetOutcome(bytesOf(pages("20001 842", "595 842")), pdf), imageTooLarge);
}

TEST(EmbeddedAssetSafety, RefusesAPdfWithoutPages) {
  const std::string file =
      PdfBuilder().object(1, "<</Pages 2 0 R>>").object(2, "<</Kids[]>>").table().file();
  EXPECT_EQ(assetOutcome(bytesOf(file), pdf), invalidImage);
}

TEST(EmbeddedAssetSafety, KeepsNothingBetweenThreads) {
  const std::vector<Bytes> files = {smallPdf(), pdfWithBox("0 0 20001 842"), bytesOf("%PDF-1.7\n"),
                                    bytesOf(onePageInObjectStream("/MediaBox[0 0 3 3]"))};
  const std::vector<Outcome> expected = {"0", Outcome(imageTooLarge), Outcome(invalidImage), "0"};
  std::vector<std::vector<Outcome>> found(4);
  std::vector<std::thread> threads;
  for (std::vector<Outcome>& outcomes : found)
    threads.emplace_back([&files, &outcomes] {
      for (const Bytes& file : files) outcomes.push_back(assetOutcome(file, pdf));
    });
  for (std::thread& thread : threads) thread.join();
  for (const std::vector<Outcome>& outcomes : found) EXPECT_EQ(outcomes, expected);
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

TEST(AssetRefusal, ThatIsUnknownCountsAsInvalid) {
  EXPECT_EQ(errorOf(static_cast<AssetRefusal>(1000)), DocumentValidationError::invalidImage);
}

struct Refused {
  AssetRefusal refusal;
  Bytes bytes;
  std::optional<std::string_view> mediaType;
};

Refused refused(AssetRefusal refusal, const Bytes& bytes,
                std::optional<std::string_view> mediaType = std::nullopt) {
  return {refusal, bytes, mediaType};
}

Refused refusedPdf(AssetRefusal refusal, std::string_view text) {
  return {refusal, bytesOf(text), pdf};
}

std::string pageOf(std::string_view box) { return onePage("/MediaBox[" + std::string(box) + "]"); }

const std::vector<Refused> refusals = {
    refused(AssetRefusal::emptyFile, {}),
    refusedPdf(AssetRefusal::emptyFile, ""),
    refused(AssetRefusal::unknownFormat, bytesOf("neither")),
    refusedPdf(AssetRefusal::unknownFormat, "neither"),
    refused(AssetRefusal::pdfUnderAnotherType, bytesOf(pageOf("0 0 3 3"))),
    refused(AssetRefusal::pdfUnderAnotherType, bytesOf("%PDF-"), "image/png"),
    refused(AssetRefusal::imageUnderPdfType, png({}), pdf),
    refused(AssetRefusal::imageUnderPdfType, png({.width = 0}), pdf),
    refused(AssetRefusal::damagedImage, png({.depth = 3})),
    refused(AssetRefusal::imageWithoutArea, png({.width = 0})),
    refused(AssetRefusal::imageWithoutArea, png({.width = 16001, .height = 0})),
    refused(AssetRefusal::imageTooLong, png({.width = 16001, .height = 1})),
    refused(AssetRefusal::imageTooLong, png({.width = 1, .height = 16001})),
    refused(AssetRefusal::tooManyPixels, png({.width = 8000, .height = 6251})),
    refusedPdf(AssetRefusal::lockedPdf,
               PdfBuilder().object(1, "7").table("/Root 1 0 R/Encrypt 1 0 R").file()),
    refusedPdf(AssetRefusal::unreadablePdf, "%PDF-1.7"),
    refusedPdf(AssetRefusal::pageWithoutBox, onePage("")),
    refusedPdf(AssetRefusal::pageNotFinite, pageOf("0 0 1" + std::string(400, '0') + " 3")),
    refusedPdf(AssetRefusal::pageNotFinite, pageOf("0 0 0 1" + std::string(400, '0'))),
    refusedPdf(AssetRefusal::pageWithoutArea, pageOf("0 0 0 20001")),
    refusedPdf(AssetRefusal::pageWithoutArea, pageOf("0 3 3 3")),
    refusedPdf(AssetRefusal::pageTooLarge, pageOf("0 0 20001 3")),
    refusedPdf(AssetRefusal::pageTooLarge, pageOf("0 0 3 20001"))};

TEST(AssetRefusal, SaysWhy) {
  for (const Refused& row : refusals)
    EXPECT_EQ(EmbeddedAssetSafety::refusal(row.bytes, row.mediaType), row.refusal)
        << rawValue(row.refusal);
}

TEST(AssetRefusal, HasAFileForEachCase) {
  for (const AssetRefusal refusal : allCases<AssetRefusal>())
    EXPECT_TRUE(std::any_of(refusals.begin(), refusals.end(), [&](const Refused& row) {
      return row.refusal == refusal;
    })) << rawValue(refusal);
}

TEST(AssetRefusal, AgreesWithTheErrorThatIsThrown) {
  for (const Refused& row : refusals)
    EXPECT_EQ(assetOutcome(row.bytes, row.mediaType),
              errorOf(row.refusal) == DocumentValidationError::invalidImage ? invalidImage
                                                                            : imageTooLarge)
        << rawValue(row.refusal);
}

TEST(AssetRefusal, IsAbsentForWhatIsAccepted) {
  for (const NamedImage& image : imagesOfEveryKind(3, 2)) {
    EXPECT_EQ(EmbeddedAssetSafety::refusal(image.bytes, std::nullopt), std::nullopt) << image.name;
    EXPECT_EQ(RasterAssetSafety::refusal(image.bytes), std::nullopt) << image.name;
  }
  EXPECT_EQ(EmbeddedAssetSafety::refusal(bytesOf(pageOf("0 0 20000 20000")), pdf), std::nullopt);
  EXPECT_EQ(RasterAssetSafety::refusal({}), AssetRefusal::emptyFile);
}

}  // namespace
}  // namespace korrin::test
