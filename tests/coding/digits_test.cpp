#include "korrin/coding/digits.h"

#include <cstdint>
#include <memory>
#include <string>

#include <gtest/gtest.h>

namespace korrin::json {
namespace {

// The digits at the start of a text, in memory of exactly its size: a byte read beyond it is found
// by the address sanitizer.
struct Taken {
  std::size_t count;
  std::uint64_t value;
};
Taken taken(const std::string& text, std::uint64_t before = 0) {
  const auto bytes = std::make_unique<char[]>(text.size());
  text.copy(bytes.get(), text.size());
  std::uint64_t value = before;
  const char* const end = appendDigits(bytes.get(), bytes.get() + text.size(), value);
  return {static_cast<std::size_t>(end - bytes.get()), value};
}

TEST(AppendedDigits, AreTakenAtEveryLengthAndBeforeEveryTail) {
  const std::string digits = "9081726354098172635";
  for (std::size_t count = 0; count <= digits.size(); ++count)
    for (std::size_t tail = 0; tail < 12; ++tail) {
      const std::string number = digits.substr(0, count);
      const Taken result = taken(number + std::string(tail, ','));
      EXPECT_EQ(result.count, count);
      EXPECT_EQ(result.value, number.empty() ? 0 : std::stoull(number));
    }
}

TEST(AppendedDigits, EndAtEveryByteThatIsNone) {
  for (int byte = 0; byte < 256; ++byte) {
    const char other = static_cast<char>(byte);
    if (other >= '0' && other <= '9') continue;
    for (std::size_t count = 0; count < 10; ++count) {
      const std::string text = std::string(count, '7') + other + std::string(8, '7');
      EXPECT_EQ(taken(text).count, count) << byte;
    }
  }
}

TEST(AppendedDigits, FollowThoseBefore) {
  EXPECT_EQ(taken("25,       ", 75).value, 7525u);
  EXPECT_EQ(taken("25", 75).value, 7525u);
  EXPECT_EQ(taken("000", 75).value, 75000u);
  EXPECT_EQ(taken("0000000000", 75).value, 750000000000u);
}

}  // namespace
}  // namespace korrin::json
