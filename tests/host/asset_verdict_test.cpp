#include "assets/asset_verdict.h"

#include <vector>

#include <gtest/gtest.h>

#include "asset_support.h"
#include "scratch.h"
#include "tests/support/image_builder.h"
#include "tests/support/pdf_builder.h"

namespace korrin::host {
namespace {

AssetVerdict verdictOn(std::string_view bytes, std::optional<std::string_view> mediaType = {}) {
  return judgeAsset(test::asBytes(bytes), mediaType);
}

struct Accepted {
  std::string name;
  std::string bytes;
  std::string type;
  std::string mediaType;
  std::string size;
  std::int64_t pixels;
};

class AcceptedAsset : public testing::TestWithParam<Accepted> {};

TEST_P(AcceptedAsset, IsKnownByItsContent) {
  const AssetVerdict verdict = verdictOn(GetParam().bytes);
  EXPECT_FALSE(verdict.error);
  EXPECT_EQ(verdict.reason, "");
  ASSERT_TRUE(verdict.type);
  EXPECT_EQ(verdict.type->name, GetParam().type);
  EXPECT_EQ(verdict.type->mediaType, GetParam().mediaType);
  EXPECT_EQ(verdict.size, GetParam().size);
  EXPECT_EQ(verdict.pixels, GetParam().pixels);
}

std::vector<Accepted> images() {
  std::vector<Accepted> rows;
  for (const test::NamedImage& image : test::imagesOfEveryKind(300, 20)) {
    const std::string type(name(image.format));
    std::string mediaType = "image/";
    for (const char letter : type)
      mediaType += static_cast<char>(letter >= 'a' ? letter : letter - 'A' + 'a');
    rows.push_back({image.name, stringOf(image.bytes), type, mediaType, "300 x 20 px", 6000});
  }
  return rows;
}

INSTANTIATE_TEST_SUITE_P(Image, AcceptedAsset, testing::ValuesIn(images()),
                         [](const auto& row) { return row.param.name; });
INSTANTIATE_TEST_SUITE_P(Pdf, AcceptedAsset,
                         testing::Values(Accepted{"Ordinary", pdfOf("0 0 595 842"), "PDF",
                                                  "application/pdf", "595 x 842 pt", 0},
                                         Accepted{"InFractions", pdfOf("0 0 595.276 841.89"), "PDF",
                                                  "application/pdf", "595.276 x 841.89 pt", 0},
                                         Accepted{"BehindStrayBytes",
                                                  "stray\n" + pdfOf("0 0 20000 9"), "PDF",
                                                  "application/pdf", "20000 x 9 pt", 0}),
                         [](const auto& row) { return row.param.name; });

struct Refused {
  std::string name;
  std::string bytes;
  std::optional<std::string> mediaType;
  DocumentValidationError error;
  std::string reason;
};

class RefusedAsset : public testing::TestWithParam<Refused> {};

TEST_P(RefusedAsset, IsToldWhy) {
  const AssetVerdict verdict = verdictOn(GetParam().bytes, GetParam().mediaType);
  EXPECT_EQ(verdict.error, GetParam().error);
  EXPECT_EQ(verdict.reason, GetParam().reason);
  EXPECT_EQ(verdict.pixels, 0);
}

constexpr auto invalid = DocumentValidationError::invalidImage;
constexpr auto tooLarge = DocumentValidationError::imageTooLarge;

std::string lockedPdf() {
  return contentOf(KORRIN_SOURCE_DIR "/tests/validation/pdf/documents/aes_128_password.pdf");
}

INSTANTIATE_TEST_SUITE_P(
    All, RefusedAsset,
    testing::Values(
        Refused{"Empty", "", {}, invalid, "the file is empty"},
        Refused{"Text",
                "Stage plot\n",
                {},
                invalid,
                "the content is none of PNG, JPEG, GIF, BMP, TIFF, WebP, HEIF, AVIF and PDF"},
        Refused{"TextAsPdf", "Stage plot\n", "application/pdf", invalid,
                "the content is none of PNG, JPEG, GIF, BMP, TIFF, WebP, HEIF, AVIF and PDF"},
        Refused{"CutShort",
                pngOf(3, 2).substr(0, 20),
                {},
                invalid,
                "the PNG is damaged, cut short or of a kind that is not read"},
        Refused{"NoHeight", pngOf(3, 0), {}, invalid, "the PNG has a side of 0 pixels"},
        Refused{
            "NoWidthAndTooHigh", pngOf(0, 99'999), {}, invalid, "the PNG has a side of 0 pixels"},
        Refused{"TooWide", pngOf(16'001, 1), {}, tooLarge, "wider than 16,000 pixels"},
        Refused{"TooHigh", pngOf(1, 16'001), {}, tooLarge, "higher than 16,000 pixels"},
        Refused{"TooWideAndHigh",
                pngOf(20'000, 20'000),
                {},
                tooLarge,
                "wider and higher than 16,000 pixels"},
        Refused{"TooManyPixels",
                pngOf(8000, 6251),
                {},
                tooLarge,
                "50,008,000 pixels, and 50,000,000 are allowed"},
        Refused{"ImageAsPdf", pngOf(3, 2), "application/pdf", invalid,
                "the content is PNG and not PDF"},
        Refused{"PdfAsImage", pdfOf("0 0 9 9"), "image/png", invalid,
                "the content is PDF, which is accepted as application/pdf only"},
        Refused{"PdfInCapitals", pdfOf("0 0 9 9"), "application/PDF", invalid,
                "the content is PDF, which is accepted as application/pdf only"},
        Refused{"LockedPdf",
                lockedPdf(),
                {},
                invalid,
                "it needs a password, or is encrypted in a way that is not read"},
        Refused{"DamagedPdf",
                "%PDF-1.7\n",
                {},
                invalid,
                "it is damaged, has no page, or takes too much work to read"},
        Refused{"PdfWithoutABox",
                test::onePage(""),
                {},
                tooLarge,
                "the first page has no media box of four numbers, and so no size"},
        Refused{"PdfOfNoWidth",
                pdfOf("0 0 0 842"),
                {},
                tooLarge,
                "the first page has a side of 0 points"},
        Refused{"PdfTooWide",
                pdfOf("0 0 20001 842"),
                {},
                tooLarge,
                "the first page is wider than 20,000 points"},
        Refused{"PdfTooHigh",
                pdfOf("0 0 595 20001"),
                {},
                tooLarge,
                "the first page is higher than 20,000 points"},
        Refused{"EndlessPdf",
                pdfOf("0 0 1" + std::string(400, '0') + " 842"),
                {},
                tooLarge,
                "the first page's size is not a finite number"}),
    [](const auto& row) { return row.param.name; });

TEST(Grouped, HasACommaAfterEachThreeDigits) {
  EXPECT_EQ(grouped(0), "0");
  EXPECT_EQ(grouped(999), "999");
  EXPECT_EQ(grouped(1000), "1,000");
  EXPECT_EQ(grouped(100'000'000), "100,000,000");
  EXPECT_EQ(grouped(18'446'744'073'709'551'615u), "18,446,744,073,709,551,615");
}

}  // namespace
}  // namespace korrin::host
