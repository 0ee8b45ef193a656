#include "korrin/drawing/photo_turn.h"

#include <bit>
#include <cstdint>
#include <span>

#include <gtest/gtest.h>

#include "tests/support/image_builder.h"

namespace korrin {
namespace {

using test::Bytes;
using test::bytesOf;

using test::jpeg;
using test::jpegFrame;
using test::jpegSegment;
using test::orientationSegment;
using test::turnedPhoto;

constexpr PhotoTurn none = {.isMirrored = false, .quarterTurns = 0};
constexpr PhotoTurn right = {.isMirrored = false, .quarterTurns = 1};

TEST(PhotoTurns, KnowAllEightOrientations) {
  constexpr PhotoTurn expected[] = {
      {.isMirrored = false, .quarterTurns = 0}, {.isMirrored = true, .quarterTurns = 0},
      {.isMirrored = false, .quarterTurns = 2}, {.isMirrored = true, .quarterTurns = 2},
      {.isMirrored = true, .quarterTurns = 3},  {.isMirrored = false, .quarterTurns = 1},
      {.isMirrored = true, .quarterTurns = 1},  {.isMirrored = false, .quarterTurns = 3}};
  for (std::uint16_t i = 0; i < 8; ++i) {
    EXPECT_EQ(photoTurn(turnedPhoto(static_cast<std::uint16_t>(i + 1), 3, 2)), expected[i]);
    EXPECT_EQ(expected[i].swapsSides(), i >= 4);
  }
}

TEST(PhotoTurns, ReadEitherByteOrder) {
  const Bytes frame = jpegFrame(0xC0, 3, 2);
  EXPECT_EQ(photoTurn(jpeg({orientationSegment(6, std::endian::little), frame})), right);
  EXPECT_EQ(photoTurn(jpeg({orientationSegment(6, std::endian::big), frame})), right);
}

TEST(PhotoTurns, TakeTheFirstNoteThatMakesSense) {
  const Bytes frame = jpegFrame(0xC0, 3, 2);
  const Bytes other = jpegSegment(0xE1, bytesOf("http://ns.adobe.com/xap/1.0/"));
  EXPECT_EQ(photoTurn(jpeg({other, orientationSegment(0), orientationSegment(9),
                            orientationSegment(6), orientationSegment(3), frame})),
            right);
}

TEST(PhotoTurns, AreNoneWhereNothingAsksForOne) {
  const Bytes frame = jpegFrame(0xC0, 3, 2);
  EXPECT_EQ(photoTurn({}), none);
  EXPECT_EQ(photoTurn(jpeg({frame})), none);
  EXPECT_EQ(photoTurn(bytesOf("GIF89a")), none);
  EXPECT_EQ(photoTurn(turnedPhoto(0, 3, 2)), none);
  EXPECT_EQ(photoTurn(turnedPhoto(9, 3, 2)), none);
  EXPECT_EQ(photoTurn(turnedPhoto(0xFFFF, 3, 2)), none);
  // Of another type, in a segment of another kind, and after the picture has begun.
  EXPECT_EQ(photoTurn(jpeg({orientationSegment(6, std::endian::big, 4), frame})), none);
  Bytes elsewhere = orientationSegment(6);
  elsewhere[1] = std::byte{0xE2};
  EXPECT_EQ(photoTurn(jpeg({elsewhere, frame})), none);
  EXPECT_EQ(photoTurn(jpeg({frame, jpegSegment(0xDA, {}), orientationSegment(6)})), none);
}

TEST(PhotoTurns, SurviveEveryCutAndEveryChangedByte) {
  const Bytes whole = turnedPhoto(6, 3, 2);
  for (std::size_t length = 0; length < whole.size(); ++length) {
    Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
    const PhotoTurn turn = photoTurn(cut);
    EXPECT_TRUE(turn == none || turn == right) << length;
    forgetPhotoTurn(cut);
    EXPECT_EQ(photoTurn(cut), none) << length;
  }
  for (std::size_t at = 0; at < whole.size(); ++at)
    for (unsigned value = 0; value < 256; ++value) {
      Bytes changed = whole;
      changed[at] = static_cast<std::byte>(value);
      forgetPhotoTurn(changed);
      EXPECT_EQ(photoTurn(changed), none) << at << ' ' << value;
    }
}

TEST(PhotoTurns, AreForgottenWithoutATraceElsewhere) {
  for (const std::endian order : {std::endian::little, std::endian::big}) {
    const Bytes frame = jpegFrame(0xC0, 3, 2);
    Bytes photo = jpeg({orientationSegment(9, order), orientationSegment(8, order), frame});
    forgetPhotoTurn(photo);
    EXPECT_EQ(photo, jpeg({orientationSegment(1, order), orientationSegment(1, order), frame}));
  }
  Bytes other = bytesOf("no photo");
  forgetPhotoTurn(other);
  EXPECT_EQ(other, bytesOf("no photo"));
}

}  // namespace
}  // namespace korrin
