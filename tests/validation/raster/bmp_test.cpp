#include <algorithm>
#include <set>

#include <gtest/gtest.h>

#include "tests/support/image_builder.h"
#include "tests/support/raster_size.h"

namespace korrin::test {
namespace {

TEST(BmpHeader, IsTwelveOrSixteenToOneHundredAndTwentyFourBytesLong) {
  for (std::uint32_t length = 12; length < 200; ++length) {
    const bool isRead = length == 12 || (length >= 16 && length <= 124);
    Bytes bytes = bmp({.length = length == 12 ? 12 : std::max(length, 16u)});
    bytes[14] = static_cast<std::byte>(length);
    EXPECT_EQ(sizeOf(bytes) == threeByTwo, isRead) << length;
    EXPECT_EQ(readRasterFacts(bytes).has_value(), isRead) << length;
  }
}

TEST(BmpHeader, LiesWhollyInsideTheFile) {
  for (const std::uint32_t length : {12u, 16u, 40u, 64u, 108u, 124u}) {
    const Bytes whole = bmp({.length = length});
    EXPECT_EQ(sizeOf(Bytes(whole.begin(), whole.end() - 1)), std::nullopt) << length;
  }
}

TEST(BmpHeader, HasANegativeHeightForRowsFromTheTopDown) {
  EXPECT_EQ(sizeOf(bmp({.height = -2})), threeByTwo);
  EXPECT_EQ(sizeOf(bmp({.height = INT32_MIN})),
            (PixelSize{.width = 3, .height = std::uint64_t{1} << 31}));
}

TEST(BmpHeader, HasAWidthAboveZero) {
  for (const std::int32_t width : {0, -1, -3, INT32_MIN})
    EXPECT_EQ(sizeOf(bmp({.width = width})), std::nullopt) << width;
  EXPECT_EQ(sizeOf(bmp({.width = INT32_MAX})), (PixelSize{.width = INT32_MAX, .height = 2}));
}

TEST(BmpHeader, HasUnsignedSidesWhenItIsTheCoreHeader) {
  EXPECT_EQ(sizeOf(bmp({.width = 0xFFFF, .height = 0x8000, .length = 12})),
            (PixelSize{.width = 0xFFFF, .height = 0x8000}));
}

TEST(BmpHeader, HasABitCountThatExists) {
  const std::set<int> counts = {1, 2, 4, 8, 16, 24, 32};
  for (int bits = 0; bits <= 64; ++bits) {
    for (const std::uint32_t length : {12u, 40u}) {
      const Bytes bytes = bmp({.length = length, .bits = static_cast<std::uint16_t>(bits)});
      EXPECT_EQ(sizeOf(bytes).has_value(), counts.contains(bits)) << bits;
    }
  }
}

TEST(BmpHeader, DoesNotSpeakForAWholeJpegOrPngInside) {
  for (const std::uint32_t compression : {4u, 5u}) {
    EXPECT_EQ(sizeOf(bmp({.length = 40, .compression = compression})), std::nullopt);
    EXPECT_EQ(sizeOf(bmp({.length = 124, .compression = compression})), std::nullopt);
    EXPECT_EQ(sizeOf(bmp({.length = 64, .compression = compression})), threeByTwo);
  }
  EXPECT_EQ(sizeOf(bmp({.compression = 3})), threeByTwo);
}

}  // namespace
}  // namespace korrin::test
