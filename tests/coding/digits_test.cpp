#include "korrin/coding/digits.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include <gtest/gtest.h>

namespace korrin::json {
namespace {

// Both ways, whichever of them the target takes.
void expectDigits(const std::string& block, std::size_t count) {
  ASSERT_EQ(block.size(), blockSize);
  EXPECT_EQ(digitsInBlock(block.data()), count) << block;
  EXPECT_EQ(detail::digitsInWords(block.data()), count) << block;
}

TEST(DigitsInBlock, EndAtEveryByteThatIsNone) {
  for (int byte = 0; byte < 256; ++byte) {
    const char other = static_cast<char>(byte);
    if (other >= '0' && other <= '9') continue;
    for (std::size_t count = 0; count < blockSize; ++count)
      for (const char behind : {'7', '.', '\x00', '\xFF'}) {
        std::string block(blockSize, behind);
        std::fill_n(block.begin(), count, '9');
        block[count] = other;
        expectDigits(block, count);
      }
  }
}

TEST(DigitsInBlock, MayFillIt) {
  for (char digit = '0'; digit <= '9'; ++digit) expectDigits(std::string(blockSize, digit), 16);
}

TEST(LastDigits, AreANumberAtEveryLengthAndBehindEveryByte) {
  const std::string digits = "9081726354098179";
  for (std::size_t count = 1; count <= blockSize; ++count)
    for (int byte = 0; byte < 256; ++byte) {
      const std::string text =
          std::string(blockSize, static_cast<char>(byte)) + digits.substr(0, count);
      const char* const end = text.data() + text.size();
      EXPECT_EQ(lastDigits(end, count), std::stoull(digits.substr(0, count)));
      EXPECT_EQ(detail::lastDigitsInWords(end, count), std::stoull(digits.substr(0, count)));
    }
}

TEST(LastDigits, CountByTheirPlaces) {
  for (std::size_t place = 0; place < blockSize; ++place)
    for (char digit = '0'; digit <= '9'; ++digit) {
      std::string text(blockSize, '0');
      text[blockSize - 1 - place] = digit;
      const std::uint64_t value = static_cast<std::uint64_t>(digit - '0') * powersOfTen[place];
      const char* const end = text.data() + text.size();
      EXPECT_EQ(lastDigits(end, blockSize), value);
      EXPECT_EQ(detail::lastDigitsInWords(end, blockSize), value);
    }
}

}  // namespace
}  // namespace korrin::json
