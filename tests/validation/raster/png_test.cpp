#include <set>

#include <gtest/gtest.h>

#include "tests/support/image_builder.h"
#include "tests/support/raster_size.h"

namespace korrin::test {
namespace {

TEST(PngHeader, IsAllThatIsNeeded) { EXPECT_EQ(sizeOf(png({})), threeByTwo); }

TEST(PngHeader, HasItsChecksumCompared) {
  EXPECT_EQ(sizeOf(png({.crcDifference = 1})), std::nullopt);
  EXPECT_EQ(sizeOf(png({.crcDifference = 0x80000000})), std::nullopt);
}

TEST(PngHeader, IsThirteenBytesLong) {
  for (const std::uint32_t length : {0u, 12u, 14u, 0xFFFFFFFFu})
    EXPECT_EQ(sizeOf(png({.length = length})), std::nullopt) << length;
}

TEST(PngHeader, IsTheFirstChunk) {
  EXPECT_EQ(sizeOf(png({.type = "CgBI"})), std::nullopt);
  EXPECT_EQ(sizeOf(png({.type = "ihdr"})), std::nullopt);
}

TEST(PngHeader, AllowsExactlyTheFifteenPairsOfDepthAndColour) {
  const std::set<std::pair<int, int>> allowed = {{1, 0}, {2, 0},  {4, 0},  {8, 0}, {16, 0},
                                                 {8, 2}, {16, 2}, {1, 3},  {2, 3}, {4, 3},
                                                 {8, 3}, {8, 4},  {16, 4}, {8, 6}, {16, 6}};
  for (int depth = 0; depth < 256; ++depth) {
    for (int colourType = 0; colourType < 256; ++colourType) {
      const Bytes bytes = png({.depth = static_cast<std::uint8_t>(depth),
                               .colourType = static_cast<std::uint8_t>(colourType)});
      ASSERT_EQ(sizeOf(bytes).has_value(), allowed.contains({depth, colourType}))
          << depth << " bits of colour type " << colourType;
    }
  }
}

TEST(PngHeader, KnowsOneCompressionOneFilterAndTwoInterlaceMethods) {
  EXPECT_EQ(sizeOf(png({.interlace = 1})), threeByTwo);
  EXPECT_EQ(sizeOf(png({.interlace = 2})), std::nullopt);
  EXPECT_EQ(sizeOf(png({.compression = 1})), std::nullopt);
  EXPECT_EQ(sizeOf(png({.filter = 1})), std::nullopt);
}

TEST(PngHeader, IsNotReadUnderASignatureThatATextTransferHasDamaged) {
  Bytes bytes = png({});
  bytes[4] = std::byte{'\n'};
  EXPECT_EQ(readRasterFacts(bytes), std::nullopt);
}

}  // namespace
}  // namespace korrin::test
