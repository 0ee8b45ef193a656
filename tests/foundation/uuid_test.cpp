#include "korrin/foundation/uuid.h"

#include <bitset>
#include <sstream>
#include <unordered_set>
#include <vector>

#include <gtest/gtest.h>

namespace korrin {
namespace {

TEST(UUID, IsNilByDefault) {
  EXPECT_EQ(UUID{}.text(), "00000000-0000-0000-0000-000000000000");
  EXPECT_EQ(UUID{}.bytes(), UUID::Bytes{});
}

TEST(UUID, ReadsEitherLetterCaseAndWritesUpperCase) {
  const auto lower = UUID::fromText("0123abcd-89ef-4012-b456-7890fedcba98");
  const auto upper = UUID::fromText("0123ABCD-89EF-4012-B456-7890FEDCBA98");
  ASSERT_TRUE(lower.has_value());
  EXPECT_EQ(lower, upper);
  EXPECT_EQ(lower->text(), "0123ABCD-89EF-4012-B456-7890FEDCBA98");
  EXPECT_EQ(lower->bytes()[0], 0x01);
  EXPECT_EQ(lower->bytes()[15], 0x98);
}

TEST(UUID, RefusesEveryOtherText) {
  const std::string good = "0123ABCD-89EF-4012-B456-7890FEDCBA98";
  for (const std::string text :
       {"", "0123ABCD89EF4012B4567890FEDCBA98", "{0123ABCD-89EF-4012-B456-7890FEDCBA98}"})
    EXPECT_FALSE(UUID::fromText(text).has_value()) << text;
  EXPECT_FALSE(UUID::fromText(" " + good).has_value());
  EXPECT_FALSE(UUID::fromText(good + " ").has_value());
  EXPECT_FALSE(UUID::fromText(good.substr(0, 35)).has_value());
}

// Every byte at every place: digits of either letter case where digits belong, hyphens where
// hyphens do, and nothing else anywhere.
TEST(UUID, TakesExactlyTheRightCharactersAtEveryPlace) {
  const std::string good = "0123ABCD-89EF-4012-B456-7890FEDCBA98";
  constexpr std::string_view digits = "0123456789ABCDEF";
  for (std::size_t i = 0; i < good.size(); ++i) {
    for (int byte = 0; byte < 256; ++byte) {
      std::string text = good;
      text[i] = static_cast<char>(byte);
      std::string upper = text;
      if (byte >= 'a' && byte <= 'f') upper[i] = static_cast<char>(byte - 'a' + 'A');
      const bool isRight =
          good[i] == '-' ? byte == '-' : digits.find(upper[i]) != std::string_view::npos;
      const auto id = UUID::fromText(text);
      ASSERT_EQ(id.has_value(), isRight) << i << " " << byte;
      if (id) {
        ASSERT_EQ(id->text(), upper);
      }
    }
  }
}

TEST(UUID, OrdersByBytesAsTheTextsDo) {
  const UUID a = *UUID::fromText("00000000-0000-0000-0000-000000000002");
  const UUID b = *UUID::fromText("00000000-0000-0000-0000-000000000010");
  const UUID c = *UUID::fromText("FF000000-0000-0000-0000-000000000000");
  EXPECT_LT(a, b);
  EXPECT_LT(b, c);
  EXPECT_EQ(a <=> b, a.text() <=> b.text());
}

TEST(UUID, OrdersByTheFirstByteThatDiffers) {
  for (std::size_t place = 0; place < 16; ++place) {
    UUID::Bytes low{};
    UUID::Bytes high{};
    low[place] = 0x7F;
    high[place] = 0x80;
    for (std::size_t later = place + 1; later < 16; ++later) low[later] = 0xFF;
    EXPECT_LT(UUID(low), UUID(high)) << place;
    EXPECT_GT(UUID(high), UUID(low)) << place;
  }
}

TEST(UUID, RandomOnesAreOfVersionFourAndDiffer) {
  std::unordered_set<UUID> seen;
  for (int i = 0; i < 1000; ++i) {
    const UUID id = UUID::random();
    EXPECT_EQ(id.bytes()[6] >> 4, 4);
    EXPECT_EQ(id.bytes()[8] >> 6, 2);
    EXPECT_TRUE(seen.insert(id).second);
    EXPECT_EQ(UUID::fromText(id.text()), id);
  }
}

TEST(UUID, RandomOnesRepeatNoBitOfTheirs) {
  // What each bit was in 128 identifiers; but for the six that say what kind they are of, no two
  // bits were the same throughout.
  std::vector<std::bitset<128>> bits(128);
  for (std::size_t i = 0; i < 128; ++i) {
    const UUID::Bytes bytes = UUID::random().bytes();
    for (std::size_t bit = 0; bit < 128; ++bit)
      bits[bit][i] = (bytes[bit / 8] >> (7 - bit % 8) & 1) != 0;
  }
  const auto isConstant = [](const auto& bit) { return bit.none() || bit.all(); };
  EXPECT_EQ(std::erase_if(bits, isConstant), 6u);
  EXPECT_EQ(std::unordered_set(bits.begin(), bits.end()).size(), 122u);
}

TEST(UUID, IsPrintedAsItsText) {
  std::ostringstream out;
  out << *UUID::fromText("00000000-0000-0000-0000-0000000000fa");
  EXPECT_EQ(out.str(), "00000000-0000-0000-0000-0000000000FA");
}

TEST(UUID, HashesOfCountingOnesDifferInTheirLastBits) {
  std::unordered_set<std::size_t> seen;
  for (int count = 0; count < 256; ++count) {
    UUID::Bytes bytes{};
    bytes[15] = static_cast<std::uint8_t>(count);
    seen.insert(std::hash<UUID>{}(UUID(bytes)) % 256);
  }
  EXPECT_GT(seen.size(), 64u);
}

TEST(UUID, HashesAgreeWithEquality) {
  const UUID id = UUID::random();
  EXPECT_EQ(std::hash<UUID>{}(id), std::hash<UUID>{}(*UUID::fromText(id.text())));
  std::unordered_set<std::size_t> hashes;
  UUID::Bytes bytes{};
  for (int i = 0; i < 256; ++i) {
    bytes[15] = static_cast<std::uint8_t>(i);
    hashes.insert(std::hash<UUID>{}(UUID(bytes)));
  }
  EXPECT_EQ(hashes.size(), 256u);
}

}  // namespace
}  // namespace korrin
