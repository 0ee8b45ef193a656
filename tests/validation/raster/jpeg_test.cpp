#include <gtest/gtest.h>

#include "korrin/validation/raster/step_budget.h"

#include "tests/support/image_builder.h"
#include "tests/support/raster_size.h"

namespace korrin::test {
namespace {

const Bytes baseline = jpegFrame(0xC0, 3, 2);
const Bytes largerFrame = jpegFrame(0xC0, 9, 9);

TEST(JpegWalk, ReadsEveryKindOfFrameAndNoOtherMarker) {
  for (unsigned marker = 0xC0; marker <= 0xCF; ++marker) {
    const bool isFrame = marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
    const Bytes bytes = jpeg({jpegFrame(static_cast<std::uint8_t>(marker), 3, 2)});
    EXPECT_EQ(sizeOf(bytes).has_value(), isFrame) << marker;
  }
}

TEST(JpegWalk, StepsOverSegmentsThatLookLikeFrames) {
  for (const std::uint8_t marker : std::initializer_list<std::uint8_t>{0xC4, 0xC8, 0xCC})
    EXPECT_EQ(sizeOf(jpeg({jpegFrame(marker, 9, 9), baseline})), threeByTwo);
}

TEST(JpegWalk, StepsOverAThumbnailInsideASegment) {
  EXPECT_EQ(sizeOf(jpeg({jpegSegment(0xE1, jpeg({largerFrame})), baseline})), threeByTwo);
}

TEST(JpegWalk, TakesTheFirstFrame) { EXPECT_EQ(sizeOf(jpeg({baseline, largerFrame})), threeByTwo); }

TEST(JpegWalk, EndsAtAScanAtTheEndAndAtAnotherImage) {
  EXPECT_EQ(sizeOf(jpeg({jpegSegment(0xDA, Bytes(6)), baseline})), std::nullopt);
  EXPECT_EQ(sizeOf(jpeg({bytesOf("\xFF\xD9"), baseline})), std::nullopt);
  EXPECT_EQ(sizeOf(jpeg({bytesOf("\xFF\xD8"), baseline})), std::nullopt);
}

TEST(JpegWalk, PassesOverFillBytesStrayBytesAndMarkersWithoutASegment) {
  EXPECT_EQ(sizeOf(jpeg({Bytes(20, std::byte{0xFF}), baseline})), threeByTwo);
  EXPECT_EQ(sizeOf(jpeg({jpegSegment(0xE0, Bytes(3)), Bytes(7), baseline})), threeByTwo);
  EXPECT_EQ(sizeOf(jpeg({ByteWriter().u16(0xFF00).done(), baseline})), threeByTwo);
  EXPECT_EQ(sizeOf(jpeg({bytesOf("\xFF\x01\xFF\xD0\xFF\xD7"), baseline})), threeByTwo);
}

TEST(JpegWalk, RefusesASegmentShorterThanItsOwnLengthField) {
  EXPECT_EQ(sizeOf(jpeg({ByteWriter().u16(0xFFE0).u16(0).done(), baseline})), std::nullopt);
  EXPECT_EQ(sizeOf(jpeg({ByteWriter().u16(0xFFE0).u16(1).done(), baseline})), std::nullopt);
  EXPECT_EQ(sizeOf(jpeg({ByteWriter().u16(0xFFE0).u16(2).done(), baseline})), threeByTwo);
}

TEST(JpegWalk, RefusesASegmentThatReachesPastTheEnd) {
  EXPECT_EQ(sizeOf(jpeg({ByteWriter().u16(0xFFE0).u16(0xFFFF).done(), baseline})), std::nullopt);
}

TEST(JpegWalk, GivesUpWhenItsStepsAreSpent) {
  // Two more steps go to the bytes of the frame's own marker.
  const auto filled = [](int count) {
    return jpeg({Bytes(static_cast<std::size_t>(count), std::byte{0xFF}), baseline});
  };
  EXPECT_EQ(sizeOf(filled(raster::maximumSteps - 2)), threeByTwo);
  EXPECT_EQ(sizeOf(filled(raster::maximumSteps - 1)), std::nullopt);
}

TEST(JpegFrame, HasAsManyComponentsAsItsLengthHolds) {
  EXPECT_EQ(sizeOf(jpeg({jpegFrame(0xC0, 3, 2, 1)})), threeByTwo);
  EXPECT_EQ(sizeOf(jpeg({jpegFrame(0xC0, 3, 2, 4)})), threeByTwo);
  EXPECT_EQ(sizeOf(jpeg({jpegFrame(0xC0, 3, 2, 255)})), threeByTwo);
  EXPECT_EQ(sizeOf(jpeg({jpegFrame(0xC0, 3, 2, 0)})), std::nullopt);
  EXPECT_EQ(sizeOf(jpeg({jpegFrame(0xC0, 3, 2, 3, 1)})), std::nullopt);
  EXPECT_EQ(sizeOf(jpeg({jpegFrame(0xC0, 3, 2, 1, 3)})), std::nullopt);
}

TEST(JpegFrame, HasTwoToSixteenBitsPerSample) {
  for (unsigned precision = 0; precision < 256; ++precision) {
    const Bytes bytes =
        jpeg({jpegFrame(0xC3, 3, 2, 3, std::nullopt, static_cast<std::uint8_t>(precision))});
    EXPECT_EQ(sizeOf(bytes).has_value(), precision >= 2 && precision <= 16) << precision;
  }
}

TEST(JpegFrame, LiesWhollyInsideTheFile) {
  const Bytes whole = ByteWriter().u16(0xFFD8).bytes(baseline).done();
  EXPECT_EQ(sizeOf(whole), threeByTwo);
  EXPECT_EQ(sizeOf(Bytes(whole.begin(), whole.end() - 1)), std::nullopt);
}

}  // namespace
}  // namespace korrin::test
