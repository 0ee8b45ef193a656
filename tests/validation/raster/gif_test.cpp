#include <gtest/gtest.h>

#include "korrin/validation/raster/step_budget.h"

#include "tests/support/image_builder.h"
#include "tests/support/raster_size.h"

namespace korrin::test {
namespace {

const Bytes frame = gifFrame(3, 2);

TEST(GifScreen, IsTheSizeWhateverTheFrameSays) {
  EXPECT_EQ(sizeOf(joined({gifScreen(3, 2), gifFrame(9, 9)})), threeByTwo);
  EXPECT_EQ(sizeOf(joined({gifScreen(3, 2), gifFrame(0, 0)})), threeByTwo);
  EXPECT_EQ(sizeOf(joined({gifScreen(3, 2), gifFrame(3, 2), gifFrame(9, 9)})), threeByTwo);
}

TEST(GifScreen, IsReadForBothVersions) {
  EXPECT_EQ(sizeOf(joined({gifScreen(3, 2, 1, "GIF87a"), frame})), threeByTwo);
  EXPECT_EQ(readRasterFacts(joined({gifScreen(3, 2, 1, "GIF88a"), frame})), std::nullopt);
}

TEST(GifScreen, IsFollowedByAColourTableOfAnyLength) {
  for (unsigned bits = 0; bits <= 8; ++bits) {
    const Bytes bytes = joined({gifScreen(3, 2, bits), frame});
    EXPECT_EQ(sizeOf(bytes), threeByTwo) << bits;
    EXPECT_EQ(sizeOf(Bytes(bytes.begin(), bytes.end() - 10)), std::nullopt) << bits;
  }
}

TEST(GifFrames, AreNeededAtLeastOnce) {
  EXPECT_EQ(sizeOf(gifScreen(3, 2)), std::nullopt);
  EXPECT_EQ(sizeOf(joined({gifScreen(3, 2), bytesOf(";")})), std::nullopt);
  EXPECT_EQ(sizeOf(joined({gifScreen(3, 2), gifExtension(0xFE, {5}), bytesOf(";")})), std::nullopt);
}

TEST(GifFrames, HaveAWholeDescriptor) {
  const Bytes whole = joined({gifScreen(3, 2), frame});
  EXPECT_EQ(sizeOf(Bytes(whole.begin(), whole.end() - 1)), std::nullopt);
}

TEST(GifFrames, MayComeAfterExtensionsWithAnyNumberOfBlocks) {
  EXPECT_EQ(sizeOf(joined({gifScreen(3, 2), gifExtension(0xFF, {11, 3}), gifExtension(0xF9, {4}),
                           gifExtension(0xFE, {255, 255, 1}), gifExtension(0x01, {}), frame})),
            threeByTwo);
}

TEST(GifFrames, AreFoundBehindBytesThatBeginNoBlock) {
  for (unsigned byte = 0; byte < 256; ++byte) {
    if (byte == 0x21 || byte == 0x2C || byte == 0x3B) continue;
    const Bytes stray(3, static_cast<std::byte>(byte));
    EXPECT_EQ(sizeOf(joined({gifScreen(3, 2), stray, frame})), threeByTwo) << byte;
    EXPECT_EQ(sizeOf(joined({gifScreen(3, 2), gifExtension(0xFE, {5}), stray, frame})), threeByTwo)
        << byte;
    EXPECT_EQ(sizeOf(joined({gifScreen(3, 2), stray})), std::nullopt) << byte;
  }
}

TEST(GifFrames, AreNotLookedForBehindTheEnd) {
  EXPECT_EQ(sizeOf(joined({gifScreen(3, 2), bytesOf(";"), frame})), std::nullopt);
  EXPECT_EQ(sizeOf(joined({gifScreen(3, 2), Bytes(1), bytesOf(";"), frame})), std::nullopt);
}

TEST(GifFrames, AreNotLookedForInAnExtensionThatDoesNotEnd) {
  Bytes extension = gifExtension(0xFE, {255});
  extension.pop_back();
  EXPECT_EQ(sizeOf(joined({gifScreen(3, 2), extension})), std::nullopt);
}

TEST(GifFrames, AreGivenUpWhenTheStepsAreSpent) {
  // An extension without blocks takes two steps, the frame one.
  const auto afterExtensions = [](int count) {
    ByteWriter file;
    file.bytes(gifScreen(3, 2));
    for (int i = 0; i < count; ++i) file.bytes(gifExtension(0xFE, {}));
    return file.bytes(frame).done();
  };
  EXPECT_EQ(sizeOf(afterExtensions(raster::maximumSteps / 2 - 1)), threeByTwo);
  EXPECT_EQ(sizeOf(afterExtensions(raster::maximumSteps / 2)), std::nullopt);
}

TEST(GifFrames, AreGivenUpBehindTooManyStrayBytes) {
  const auto afterStrayBytes = [](std::size_t count) {
    return joined({gifScreen(3, 2), Bytes(count), frame});
  };
  EXPECT_EQ(sizeOf(afterStrayBytes(raster::maximumSteps - 1)), threeByTwo);
  EXPECT_EQ(sizeOf(afterStrayBytes(raster::maximumSteps)), std::nullopt);
}

}  // namespace
}  // namespace korrin::test
