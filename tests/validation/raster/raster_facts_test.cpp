#include "korrin/validation/raster/raster_facts.h"

#include <set>

#include <gtest/gtest.h>

#include "tests/support/image_builder.h"

namespace korrin::test {
namespace {

class EveryRasterKind : public testing::TestWithParam<NamedImage> {};

TEST_P(EveryRasterKind, IsKnownAndMeasuredByContentAlone) {
  const auto facts = readRasterFacts(GetParam().bytes);
  ASSERT_TRUE(facts.has_value());
  EXPECT_EQ(facts->format, GetParam().format);
  EXPECT_EQ(facts->size, (PixelSize{.width = 300, .height = 20}));
}

TEST_P(EveryRasterKind, IsMeasuredAlikeWhateverFollowsItsHeader) {
  const Bytes longer = joined({GetParam().bytes, Bytes(5000, std::byte{0xFF})});
  EXPECT_EQ(readRasterFacts(longer), readRasterFacts(GetParam().bytes));
}

INSTANTIATE_TEST_SUITE_P(All, EveryRasterKind, testing::ValuesIn(imagesOfEveryKind(300, 20)),
                         [](const auto& row) { return row.param.name; });

TEST(RasterFormats, HaveAMediaTypeOfTheirOwn) {
  const std::pair<RasterFormat, std::string_view> types[] = {
      {RasterFormat::png, "image/png"},   {RasterFormat::jpeg, "image/jpeg"},
      {RasterFormat::gif, "image/gif"},   {RasterFormat::bmp, "image/bmp"},
      {RasterFormat::tiff, "image/tiff"}, {RasterFormat::webp, "image/webp"},
      {RasterFormat::heif, "image/heif"}, {RasterFormat::avif, "image/avif"}};
  for (const auto& [format, type] : types) EXPECT_EQ(mediaType(format), type);
  EXPECT_EQ(mediaType(static_cast<RasterFormat>(99)), "");
}

TEST(RasterFacts, KeepTheFormatWhenTheRestIsCutOff) {
  const auto cut = [](const Bytes& bytes, std::ptrdiff_t size) {
    return readRasterFacts(Bytes(bytes.begin(), bytes.begin() + size));
  };
  const auto sizeless = [](RasterFormat format) {
    return RasterFacts{.format = format, .size = std::nullopt};
  };
  EXPECT_EQ(cut(png({}), 8), sizeless(RasterFormat::png));
  EXPECT_EQ(cut(jpeg({jpegFrame(0xC0, 3, 2)}), 3), sizeless(RasterFormat::jpeg));
  EXPECT_EQ(cut(gifScreen(3, 2), 6), sizeless(RasterFormat::gif));
  EXPECT_EQ(cut(bmp({}), 18), sizeless(RasterFormat::bmp));
  EXPECT_EQ(cut(tiff(std::endian::little, TiffKind::classic, {}), 4), sizeless(RasterFormat::tiff));
  EXPECT_EQ(cut(webpLossy(3, 2), 12), sizeless(RasterFormat::webp));
  EXPECT_EQ(cut(heif({}), 20), sizeless(RasterFormat::heif));
  EXPECT_EQ(cut(heif({.brand = "avif"}), 20), sizeless(RasterFormat::avif));
}

TEST(RasterFacts, AreNothingForForeignBytes) {
  EXPECT_EQ(readRasterFacts({}), std::nullopt);
  EXPECT_EQ(readRasterFacts(bytesOf("%PDF-1.7")), std::nullopt);
  EXPECT_EQ(readRasterFacts(bytesOf("hello")), std::nullopt);
}

TEST(RasterFacts, NameEachFormatDifferently) {
  std::set<std::string_view> names;
  for (const NamedImage& image : imagesOfEveryKind(3, 2)) names.insert(name(image.format));
  EXPECT_EQ(names, (std::set<std::string_view>{"PNG", "JPEG", "GIF", "BMP", "TIFF", "WebP", "HEIF",
                                               "AVIF"}));
}

TEST(RasterFacts, DifferInTheFormatAndInEitherExtent) {
  const RasterFacts facts{.format = RasterFormat::png, .size = PixelSize{.width = 3, .height = 2}};
  const auto changed = [&facts](auto change) {
    RasterFacts other = facts;
    change(other);
    return other;
  };
  EXPECT_EQ(facts, changed([](RasterFacts&) {}));
  EXPECT_NE(facts, changed([](RasterFacts& other) { other.format = RasterFormat::gif; }));
  EXPECT_NE(facts, changed([](RasterFacts& other) { other.size.reset(); }));
  EXPECT_NE(facts, changed([](RasterFacts& other) { other.size->width = 4; }));
  EXPECT_NE(facts, changed([](RasterFacts& other) { other.size->height = 1; }));
}

TEST(RasterFacts, HaveNoNameForAValueThatIsNoFormat) {
  EXPECT_EQ(name(static_cast<RasterFormat>(8)), "");
}

}  // namespace
}  // namespace korrin::test
