#include "korrin/foundation/utf8.h"

#include <vector>

#include <gtest/gtest.h>

namespace korrin::utf8 {
namespace {

constexpr bool isScalar(char32_t value) {
  return value < 0xD800 || (value > 0xDFFF && value < 0x110000);
}

TEST(UTF8, WritesAndReadsEveryScalarValue) {
  std::size_t wrong = 0;
  for (char32_t scalar = 0; scalar < 0x110000; ++scalar) {
    if (!isScalar(scalar)) continue;
    std::string text;
    append(text, scalar);
    const std::size_t length = scalar < 0x80 ? 1 : scalar < 0x800 ? 2 : scalar < 0x10000 ? 3 : 4;
    const Step read = step(text);
    if (text.size() != length || !read.isWellFormed || read.scalar != scalar ||
        read.length != length || wellFormedPrefix(text) != length)
      ++wrong;
  }
  EXPECT_EQ(wrong, 0u);
}

// An independent reading of the definition: a pair of bytes is well-formed where the scalar value
// that it would spell has no other spelling.
TEST(UTF8, AcceptsExactlyTheTwoByteSequencesThatSpellAScalar) {
  for (unsigned first = 0x80; first < 0x100; ++first) {
    for (unsigned second = 0; second < 0x100; ++second) {
      const std::string text = {static_cast<char>(first), static_cast<char>(second)};
      const bool isPair = first >> 5 == 6 && second >> 6 == 2 && (first & 0x1E) != 0;
      EXPECT_EQ(step(text).isWellFormed, isPair) << first << " " << second;
      EXPECT_EQ(wellFormedPrefix(text), isPair ? 2u : 0u);
    }
  }
}

TEST(UTF8, CountsTheBytesBeforeTheFirstFault) {
  EXPECT_EQ(wellFormedPrefix(""), 0u);
  EXPECT_EQ(wellFormedPrefix("abc"), 3u);
  EXPECT_EQ(wellFormedPrefix("a\xC3\xA9z\xC3"), 4u);
  EXPECT_EQ(wellFormedPrefix("\x80"), 0u);
  EXPECT_EQ(wellFormedPrefix(std::string_view("\0\xFF", 2)), 1u);
}

TEST(UTF8, LooksAtEveryByteWhateverItsPlace) {
  for (const unsigned limit : {0x80u, 0xCCu, 0xFFu}) {
    for (std::size_t length = 0; length < 20; ++length) {
      for (std::size_t place = 0; place < length; ++place) {
        for (unsigned byte = 0; byte < 0x100; ++byte) {
          for (const char around : {'\0', 'a', '\x7F'}) {
            std::string text(length, around);
            text[place] = static_cast<char>(byte);
            ASSERT_EQ(allBytesBelow(text, static_cast<unsigned char>(limit)), byte < limit)
                << limit << " " << length << " " << place << " " << byte;
            ASSERT_EQ(isASCII(text), byte < 0x80) << length << " " << place << " " << byte;
          }
        }
      }
    }
  }
}

TEST(UTF8, FindsALargeByteAmongOthersBelowTheLimit) {
  const std::string below(23, '\xCB');
  EXPECT_TRUE(allBytesBelow(below, 0xCC));
  for (std::size_t place = 0; place < below.size(); ++place) {
    std::string text = below;
    text[place] = '\xCC';
    EXPECT_FALSE(allBytesBelow(text, 0xCC)) << place;
    text[place] = '\xFF';
    EXPECT_FALSE(allBytesBelow(text, 0xCC)) << place;
  }
  EXPECT_FALSE(isASCII(below));
  EXPECT_TRUE(isASCII("plain"));
  EXPECT_TRUE(isASCII(""));
}

}  // namespace
}  // namespace korrin::utf8
