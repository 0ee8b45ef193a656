#include "korrin/foundation/hash.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <numeric>
#include <string>
#include <type_traits>
#include <unordered_set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korrin/foundation/record.h"
#include "korrin/foundation/sip_hash.h"
#include "korrin/foundation/text.h"

#include "tests/support/crafted_values.h"

namespace korrin {
namespace {

constexpr std::size_t many = 30'000;
constexpr int hashBits = 8 * sizeof(std::size_t);

// How far the buckets of a table are from those that chance would fill: for so many values, no
// bucket of a table that is at most full has more than ten with any probability worth a thought.
template <class Set>
std::size_t fullestBucket(const Set& set) {
  std::size_t fullest = 0;
  for (std::size_t bucket = 0; bucket < set.bucket_count(); ++bucket)
    fullest = std::max(fullest, set.bucket_size(bucket));
  return fullest;
}
constexpr std::size_t tolerable = 16;

TEST(HashCombine, DependsOnTheOrderOfTheParts) {
  EXPECT_NE(hashCombine(hashCombine(0, 1), 2), hashCombine(hashCombine(0, 2), 1));
}

TEST(HashCombine, CountsPartsThatAreZero) {
  std::unordered_set<std::size_t> seen;
  std::size_t seed = 0;
  for (int i = 0; i < 1000; ++i) EXPECT_TRUE(seen.insert(seed = hashCombine(seed, 0)).second);
}

TEST(HashCombine, MapsDifferentSmallPartsToDifferentResults) {
  // Among so many results of 32 bits two would be equal by chance.
  constexpr std::size_t parts = hashBits == 64 ? 300 : 30;
  std::unordered_set<std::size_t> seen;
  for (std::size_t first = 0; first < parts; ++first)
    for (std::size_t second = 0; second < parts; ++second)
      EXPECT_TRUE(seen.insert(hashCombine(hashCombine(0, first), second)).second);
}

TEST(HashCombine, SpreadsEveryBitOfEitherArgumentOverTheResult) {
  constexpr std::uint64_t seed = 0x0123456789ABCDEF;
  constexpr std::uint64_t hash = 42;
  // How often each bit of the result follows a flip of one of the 128 bits: for most of the keys
  // that a process may draw, about half of them.
  int flips = 0;
  for (int bit = 0; bit < 64; ++bit) {
    const std::uint64_t flipped = std::uint64_t{1} << bit;
    for (const std::size_t other :
         {hashCombine(seed ^ flipped, hash), hashCombine(seed, hash ^ flipped)})
      flips += std::popcount(hashCombine(seed, hash) ^ other);
  }
  EXPECT_GT(flips, 128 * hashBits * 5 / 16);
  EXPECT_LT(flips, 128 * hashBits * 11 / 16);
}

class HashOfCraftedIdentifiers : public testing::TestWithParam<test::IdentifierFamily> {};

TEST_P(HashOfCraftedIdentifiers, SpreadsThemOverATable) {
  IDSet set;
  for (std::size_t i = 0; i < many; ++i) set.insert(GetParam().member(i));
  ASSERT_EQ(set.size(), many);
  EXPECT_LE(fullestBucket(set), tolerable);
}

TEST_P(HashOfCraftedIdentifiers, SpreadsItsLastByte) {
  std::array<int, 256> counts{};
  for (std::size_t i = 0; i < many; ++i) ++counts[std::hash<UUID>{}(GetParam().member(i)) & 255];
  // 117 on average.
  EXPECT_LT(*std::ranges::max_element(counts), 117 * 4);
}

INSTANTIATE_TEST_SUITE_P(With, HashOfCraftedIdentifiers,
                         testing::ValuesIn(test::identifierFamilies()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(HashOfTexts, SpreadsThoseThatCollideUnderTheUsualHashOfStrings) {
  const std::vector<std::string> texts = test::collidingTexts(1000);
#ifdef __GLIBCXX__
  if (hashBits == 64) {
    for (const std::string& text : texts)
      ASSERT_EQ(std::hash<std::string>{}(text), std::hash<std::string>{}(texts[0]));
  }
#endif
  const std::unordered_set<Text> set(texts.begin(), texts.end());
  ASSERT_EQ(set.size(), texts.size());
  EXPECT_LE(fullestBucket(set), tolerable);
}

TEST(HashOfTexts, SpreadsThoseThatAreAlikeInTheMiddleAndAtTheEnd) {
  const std::vector<std::string> texts = test::textsAlikeInTheMiddleAndAtTheEnd(many);
  const std::unordered_set<Text> set(texts.begin(), texts.end());
  ASSERT_EQ(set.size(), many);
  EXPECT_LE(fullestBucket(set), tolerable);
}

#ifdef __GLIBCXX__
// A container keeps the hash of an element that is expensive to hash or whose hash may throw.
// Otherwise a table with one text of a million characters would hash it again for its neighbours.
static_assert(!std::is_nothrow_invocable_v<std::hash<Text>, const Text&>);
#endif

TEST(HashKey, IsTheSameThroughoutAProcess) {
  const UUID id = UUID::random();
  EXPECT_EQ(std::hash<UUID>{}(id), std::hash<UUID>{}(id));
  EXPECT_EQ(hashBytes("stage"), hashBytes(std::string("stage")));
}

TEST(HashKeyDeathTest, IsAnotherOneInTheNextProcess) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const std::string ours = std::to_string(hashBytes("stage")) + " ";
  const std::string ourPair = " " + std::to_string(hashCombine(1, 2));
  EXPECT_EXIT(
      {
        std::fprintf(stderr, "hashes: %zu %zu", hashBytes("stage"), hashCombine(1, 2));
        std::exit(0);
      },
      testing::ExitedWithCode(0),
      testing::AllOf(testing::HasSubstr("hashes: "), testing::Not(testing::HasSubstr(ours)),
                     testing::Not(testing::HasSubstr(ourPair))));
}

// The bytes 0, 1, 2 and so on.
std::string counting(std::size_t length) {
  std::string bytes(length, '\0');
  std::iota(bytes.begin(), bytes.end(), '\0');
  return bytes;
}

TEST(SipHash, GivesWhatItsAuthorsPublished) {
  constexpr std::array<std::uint64_t, 2> key = {0x0706050403020100u, 0x0F0E0D0C0B0A0908u};
  EXPECT_EQ((sipHash<2, 4>(key, "")), 0x726FDB47DD0E0E31u);
  EXPECT_EQ((sipHash<2, 4>(key, counting(1))), 0x74F839C593DC67FDu);
  EXPECT_EQ((sipHash<2, 4>(key, counting(8))), 0x93F5F5799A932462u);
  EXPECT_EQ((sipHash<2, 4>(key, counting(15))), 0xA129CA6149BE45E5u);
}

TEST(SipHash, WithFewerRoundsGivesWhatAnotherImplementationGives) {
  EXPECT_EQ((sipHash<1, 3>({0, 0}, counting(1))), 0x68A914128E01E473u);
  EXPECT_EQ((sipHash<1, 3>({0, 0}, counting(7))), 0x2F098AB0C751325Au);
  EXPECT_EQ((sipHash<1, 3>({0, 0}, counting(8))), 0xEAD411E67EBE2EEAu);
  EXPECT_EQ((sipHash<1, 3>({0, 0}, counting(9))), 0x75927F9D95124362u);
  EXPECT_EQ((sipHash<1, 3>({0, 0}, counting(16))), 0x8972188433A5C5B7u);
  EXPECT_EQ((sipHash<1, 3>({0, 0}, counting(31))), 0x169739443111D49Bu);
}

}  // namespace
}  // namespace korrin
