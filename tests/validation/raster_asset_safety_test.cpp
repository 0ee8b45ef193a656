#include "korrin/validation/raster_asset_safety.h"

#include <gtest/gtest.h>

#include "korrin/validation/document_validation_error.h"

#include "tests/support/image_builder.h"
#include "tests/support/outcome.h"

namespace korrin::test {
namespace {

static_assert(std::is_same_v<decltype(RasterAssetSafety::maximumDimension), const std::int64_t>);
static_assert(std::is_same_v<decltype(RasterAssetSafety::maximumPixels), const std::int64_t>);
static_assert(
    std::is_same_v<decltype(RasterAssetSafety::maximumAggregatePixels), const std::int64_t>);
static_assert(RasterAssetSafety::maximumDimension == 16'000);
static_assert(RasterAssetSafety::maximumPixels == 50'000'000);
static_assert(RasterAssetSafety::maximumAggregatePixels == 100'000'000);

struct Limit {
  std::string name;
  std::uint16_t width;
  std::uint16_t height;
  std::string_view expected;
};

class RasterLimits : public testing::TestWithParam<Limit> {};

TEST_P(RasterLimits, HoldForImagesOfEveryKind) {
  const Limit& limit = GetParam();
  for (const NamedImage& image : imagesOfEveryKind(limit.width, limit.height))
    EXPECT_EQ(rasterOutcome(image.bytes), limit.expected) << image.name;
}

INSTANTIATE_TEST_SUITE_P(
    All, RasterLimits,
    testing::Values(Limit{"OnePixel", 1, 1, "1"}, Limit{"ThreeByTwo", 3, 2, "6"},
                    Limit{"ExactlyTheMostPixels", 16000, 3125, "50000000"},
                    Limit{"ExactlyTheMostPixelsUpright", 3125, 16000, "50000000"},
                    Limit{"WidestAndFlat", 16000, 1, "16000"},
                    Limit{"HighestAndNarrow", 1, 16000, "16000"},
                    Limit{"OneTooWide", 16001, 1, imageTooLarge},
                    Limit{"OneTooHigh", 1, 16001, imageTooLarge},
                    Limit{"WithinEachSideButTooManyPixels", 8000, 6251, imageTooLarge},
                    Limit{"LargestSquareOfSides", 16000, 16000, imageTooLarge}),
    [](const auto& row) { return row.param.name; });

TEST(RasterAssetSafety, RefusesEmptyBytes) {
  EXPECT_EQ(rasterOutcome({}), invalidImage);
  EXPECT_EQ(rasterOutcome(Bytes{}), invalidImage);
}

TEST(RasterAssetSafety, RefusesAWidthOrHeightOfZero) {
  for (const auto& [width, height] : {std::pair{0, 2}, {3, 0}, {0, 0}}) {
    const auto w = static_cast<std::uint16_t>(width);
    const auto h = static_cast<std::uint16_t>(height);
    EXPECT_EQ(rasterOutcome(png({.width = w, .height = h})), invalidImage);
    EXPECT_EQ(rasterOutcome(jpeg({jpegFrame(0xC0, w, h)})), invalidImage);
    EXPECT_EQ(rasterOutcome(joined({gifScreen(w, h), gifFrame(3, 2)})), invalidImage);
    EXPECT_EQ(rasterOutcome(bmp({.width = w, .height = h})), invalidImage);
    EXPECT_EQ(rasterOutcome(bmp({.width = w, .height = h, .length = 12})), invalidImage);
    EXPECT_EQ(rasterOutcome(tiff(std::endian::little, TiffKind::classic,
                                 {{256, tiffShort, 1, w}, {257, tiffShort, 1, h}})),
              invalidImage);
    EXPECT_EQ(rasterOutcome(webpLossy(w, h)), invalidImage);
    EXPECT_EQ(rasterOutcome(heif({.width = w, .height = h})), invalidImage);
  }
}

TEST(RasterAssetSafety, RefusesAZeroSideBeforeItLooksAtTheLimits) {
  EXPECT_EQ(rasterOutcome(png({.width = 0, .height = 0xFFFFFFFF})), invalidImage);
}

TEST(RasterAssetSafety, DoesNotWrapWhenTheProductWouldOverflow) {
  // 2^32 x 2^32 is 0 in 64 bits, and 65536 x 65536 is 0 in 32.
  const std::uint64_t side = std::uint64_t{1} << 32;
  EXPECT_EQ(rasterOutcome(tiff(std::endian::big, TiffKind::big,
                               {{256, tiffLong8, 1, side}, {257, tiffLong8, 1, side}})),
            imageTooLarge);
  EXPECT_EQ(rasterOutcome(tiff(std::endian::big, TiffKind::big,
                               {{256, tiffLong8, 1, ~std::uint64_t{0}}, {257, tiffLong8, 1, 1}})),
            imageTooLarge);
  EXPECT_EQ(rasterOutcome(png({.width = 65536, .height = 65536})), imageTooLarge);
  EXPECT_EQ(rasterOutcome(heif({.width = 0xFFFFFFFF, .height = 0xFFFFFFFF})), imageTooLarge);
  EXPECT_EQ(rasterOutcome(bmp({.width = 1, .height = INT32_MIN})), imageTooLarge);
}

struct Foreign {
  std::string name;
  Bytes bytes;
};

class RasterFormatsThatAreNotRead : public testing::TestWithParam<Foreign> {};

TEST_P(RasterFormatsThatAreNotRead, AreInvalidImages) {
  EXPECT_EQ(rasterOutcome(GetParam().bytes), invalidImage);
  EXPECT_EQ(readRasterFacts(GetParam().bytes), std::nullopt);
}

using namespace std::string_view_literals;

INSTANTIATE_TEST_SUITE_P(
    All, RasterFormatsThatAreNotRead,
    testing::Values(
        Foreign{"Pdf", bytesOf("%PDF-1.4\n1 0 obj<</Type/Catalog>>endobj\n%%EOF\n")},
        Foreign{"Icon", bytesOf("\0\0\1\0\1\0\x10\x10\0\0\1\0\x20\0"sv)},
        Foreign{"LayeredDocument", bytesOf("8BPS\0\1\0\0\0\0\0\0\0\3\0\0\0\2\0\0\0\3\0\x08\0\3"sv)},
        Foreign{"Jpeg2000File", bytesOf("\0\0\0\x0CjP  \r\n\x87\n"sv)},
        Foreign{"Jpeg2000Stream", bytesOf("\xFF\x4F\xFF\x51\0\x2F\0\0\0\0\0\3\0\0\0\2"sv)},
        Foreign{"JpegXlStream", bytesOf("\xFF\x0A\xFA\x7F\x01\x90\x08\x06\x01"sv)},
        Foreign{"JpegXlFile", bytesOf("\0\0\0\x0CJXL \r\n\x87\n"sv)},
        Foreign{"CameraRawOfBoxes", ftyp("crx ", {"isom"})},
        Foreign{"CameraRawWithAMarkOfItsOwn", bytesOf("FUJIFILMCCD-RAW 0201"sv)},
        Foreign{"Movie", joined({ftyp("isom", {"mp42"}), box("moov", Bytes(32))})},
        Foreign{"PortablePixmap", bytesOf("P6\n3 2\n255\n")},
        Foreign{"VectorGraphic", bytesOf("<svg width=\"3\" height=\"2\"/>")},
        Foreign{"Radiance", bytesOf("#?RADIANCE\n\n-Y 2 +X 3\n")},
        Foreign{"Sound", bytesOf("RIFF\x24\0\0\0WAVEfmt "sv)},
        Foreign{"Text", bytesOf("Stage plot\n")}, Foreign{"ZeroBytes", Bytes(4096)}),
    [](const auto& row) { return row.param.name; });

TEST(RasterAssetSafety, ThrowsTheErrorItselfWithItsDescription) {
  try {
    RasterAssetSafety::validate({});
    FAIL() << "nothing was thrown";
  } catch (const DocumentValidationError& error) {
    EXPECT_EQ(error.code(), DocumentValidationError::invalidImage);
    EXPECT_STREQ(error.what(), "An embedded image is not valid.");
  }
  const Bytes large = png({.width = 16001});
  try {
    RasterAssetSafety::validate(large);
    FAIL() << "nothing was thrown";
  } catch (const DocumentValidationError& error) {
    EXPECT_EQ(error.code(), DocumentValidationError::imageTooLarge);
    EXPECT_STREQ(error.what(), "The embedded images exceed the safe pixel limit.");
  }
}

}  // namespace
}  // namespace korrin::test
