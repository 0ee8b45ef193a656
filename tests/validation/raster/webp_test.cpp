#include <gtest/gtest.h>

#include "korrin/validation/raster/step_budget.h"

#include "tests/support/image_builder.h"
#include "tests/support/raster_size.h"

namespace korrin::test {
namespace {

ByteWriter little() { return ByteWriter(std::endian::little); }

Bytes lossy(std::uint32_t frameTag, std::uint32_t startCode) {
  return webp({riffChunk("VP8 ", little().u24(frameTag).u24(startCode).u16(3).u16(2).done())});
}

Bytes lossless(std::uint32_t signature, std::uint32_t version) {
  const std::uint32_t packed = 2 | 1 << 14 | version << 29;
  return webp({riffChunk("VP8L", little().u8(signature).u32(packed).done())});
}

TEST(WebpLossy, IsReadFromAKeyFrameWithItsStartCode) {
  EXPECT_EQ(sizeOf(lossy(0x10, 0x2A019D)), threeByTwo);
  EXPECT_EQ(sizeOf(lossy(0x11, 0x2A019D)), std::nullopt);
  EXPECT_EQ(sizeOf(lossy(0x10, 0x2A019C)), std::nullopt);
}

TEST(WebpLossy, IgnoresTheScaleInTheUpperBits) {
  EXPECT_EQ(sizeOf(webpLossy(3 | 0x4000, 2 | 0xC000)), threeByTwo);
}

TEST(WebpLossless, IsReadFromVersionZeroWithItsSignature) {
  EXPECT_EQ(sizeOf(lossless(0x2F, 0)), threeByTwo);
  EXPECT_EQ(sizeOf(lossless(0x2E, 0)), std::nullopt);
  EXPECT_EQ(sizeOf(lossless(0x2F, 1)), std::nullopt);
}

TEST(WebpLossless, HoldsSidesOfFourteenBits) {
  EXPECT_EQ(sizeOf(webpLossless(16384, 16384)), (PixelSize{.width = 16384, .height = 16384}));
}

TEST(WebpExtended, IsTheCanvasWhateverTheFramesSay) {
  const Bytes header = little().u32(0x02).u24(2).u24(1).done();
  EXPECT_EQ(sizeOf(webp({riffChunk("VP8X", header), riffChunk("ANIM", Bytes(6))})), threeByTwo);
}

TEST(WebpExtended, HoldsSidesOfTwentyFourBits) {
  EXPECT_EQ(sizeOf(webpExtended(1 << 24, 1 << 24)),
            (PixelSize{.width = 1 << 24, .height = 1 << 24}));
}

TEST(WebpFile, BeginsWithAnImageChunk) {
  EXPECT_EQ(sizeOf(webp({riffChunk("ICCP", Bytes(20))})), std::nullopt);
  EXPECT_EQ(sizeOf(webp({})), std::nullopt);
}

TEST(WebpFile, HasItsHeaderInsideTheFirstChunkAndInsideTheFile) {
  constexpr std::size_t chunkLengthAt = 16;
  for (const Bytes& whole : {webpLossy(3, 2), webpLossless(3, 2), webpExtended(3, 2)}) {
    EXPECT_EQ(sizeOf(whole), threeByTwo);
    EXPECT_EQ(sizeOf(Bytes(whole.begin(), whole.end() - 1)), std::nullopt);
    Bytes shortChunk = whole;
    shortChunk[chunkLengthAt] =
        static_cast<std::byte>(std::to_integer<unsigned>(shortChunk[chunkLengthAt]) - 1);
    EXPECT_EQ(sizeOf(shortChunk), std::nullopt);
  }
}

// The file with the length of its RIFF lowered by `by`.
Bytes withShorterRiff(Bytes file, unsigned by) {
  constexpr std::size_t riffLengthAt = 4;
  file[riffLengthAt] = static_cast<std::byte>(std::to_integer<unsigned>(file[riffLengthAt]) - by);
  return file;
}

TEST(WebpFile, HasNoChunkThatExceedsItsRiff) {
  for (const Bytes& whole : {webpLossy(3, 2), webpLossless(3, 2), webpExtended(3, 2)}) {
    EXPECT_EQ(sizeOf(withShorterRiff(whole, 0)), threeByTwo);
    for (unsigned by = 1; by < whole.size() - 8; ++by)
      EXPECT_EQ(sizeOf(withShorterRiff(whole, by)), std::nullopt) << by;
  }
}

TEST(WebpExtended, HasNoChunkThatExceedsItsRiffUpToTheImage) {
  const Bytes header = little().u32(0).u24(2).u24(1).done();
  const auto file = [&](std::string_view image) {
    return webp({riffChunk("VP8X", header), riffChunk("ALPH", Bytes(6)), riffChunk(image, Bytes(8)),
                 riffChunk("EXIF", Bytes(20))});
  };
  for (const char* image : {"VP8 ", "VP8L", "ANMF"}) {
    // What follows the image is not looked at.
    EXPECT_EQ(sizeOf(withShorterRiff(file(image), 28)), threeByTwo) << image;
    EXPECT_EQ(sizeOf(withShorterRiff(file(image), 29)), std::nullopt) << image;
    // Nothing but a piece of a chunk's header is left.
    EXPECT_EQ(sizeOf(withShorterRiff(file(image), 28 + 16 + 1)), std::nullopt) << image;
    EXPECT_EQ(sizeOf(withShorterRiff(file(image), 28 + 16)), threeByTwo) << image;
    EXPECT_EQ(sizeOf(withShorterRiff(file(image), 28 + 9)), threeByTwo) << image;
  }
  // A file that is cut short may lack them all.
  const Bytes whole = file("VP8 ");
  for (std::ptrdiff_t size = 30; size < std::ssize(whole); ++size)
    EXPECT_EQ(sizeOf(Bytes(whole.begin(), whole.begin() + size)), threeByTwo) << size;
}

TEST(WebpExtended, HasABoundedNumberOfChunksBeforeItsImage) {
  const auto file = [](int chunks) {
    ByteWriter content(std::endian::little);
    content.text("WEBP").bytes(riffChunk("VP8X", little().u32(0).u24(2).u24(1).done()));
    for (int i = 0; i < chunks; ++i) content.bytes(riffChunk("ICCP", {}));
    content.bytes(riffChunk("VP8 ", {}));
    const Bytes rest = content.done();
    return little().text("RIFF").u32(static_cast<std::uint32_t>(rest.size())).bytes(rest).done();
  };
  EXPECT_EQ(sizeOf(file(raster::maximumSteps - 2)), threeByTwo);
  EXPECT_EQ(sizeOf(file(raster::maximumSteps - 1)), std::nullopt);
}

TEST(WebpFile, MayLackTheEndOfItsPixels) {
  const Bytes bytes = little()
                          .text("RIFF")
                          .u32(1000)
                          .text("WEBPVP8 ")
                          .u32(988)
                          .u24(0x10)
                          .u24(0x2A019D)
                          .u16(3)
                          .u16(2)
                          .done();
  EXPECT_EQ(sizeOf(bytes), threeByTwo);
}

}  // namespace
}  // namespace korrin::test
