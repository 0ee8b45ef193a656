#include "korrin/coding/text_block.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

#include <gtest/gtest.h>

namespace korrin::json {
namespace {

using Block = std::array<char, blockSize>;

bool isBlank(char byte) { return std::string_view(" \n\r\t").find(byte) != std::string_view::npos; }
bool isPlain(char byte) {
  const auto code = static_cast<unsigned char>(byte);
  return code >= 0x20 && code < 0x80 && byte != '"' && byte != '\\';
}

// Both ways, whichever of them the target takes.
void expectEnd(const Block& block, std::size_t blanks, std::size_t plain) {
  EXPECT_EQ(blanksInBlock(block.data()), blanks);
  EXPECT_EQ(detail::blanksInWords(block.data()), blanks);
  for (std::size_t count = 0; count < blockSize; ++count)
    EXPECT_EQ(standBlanks(block.data(), count), count == blanks);
  EXPECT_EQ(plainInBlock(block.data()), plain);
  EXPECT_EQ(detail::plainInWords(block.data()), plain);
}

TEST(TextBlock, EndsAtTheFirstByteOfAnotherKindWhereverItStands) {
  for (std::size_t place = 0; place < blockSize; ++place)
    for (int code = 0; code < 256; ++code) {
      const char byte = static_cast<char>(code);
      // What stands behind the byte may qualify or not.
      for (const char behind : {' ', 'x', '"', '\x01', '\xFF'}) {
        Block block;
        block.fill(behind);
        std::fill_n(block.begin(), place, ' ');
        block[place] = byte;
        std::size_t blanks = 0;
        while (blanks < blockSize && isBlank(block[blanks])) ++blanks;
        std::size_t plain = 0;
        while (plain < blockSize && isPlain(block[plain])) ++plain;
        expectEnd(block, blanks, plain);
      }
    }
}

TEST(TextBlock, IsWholeWhereAllItsBytesAreOfAKind) {
  Block block;
  for (const char blank : {' ', '\n', '\r', '\t'}) {
    block.fill(blank);
    EXPECT_EQ(blanksInBlock(block.data()), blockSize);
    EXPECT_EQ(detail::blanksInWords(block.data()), blockSize);
    EXPECT_FALSE(standBlanks(block.data(), blockSize - 1));
  }
  for (const char plain : {' ', '!', '#', '[', ']', '~', '\x7F'}) {
    block.fill(plain);
    EXPECT_EQ(plainInBlock(block.data()), blockSize);
    EXPECT_EQ(detail::plainInWords(block.data()), blockSize);
  }
}

}  // namespace
}  // namespace korrin::json
