#include "korrin/foundation/hash.h"

#include <bit>
#include <unordered_set>

#include <gtest/gtest.h>

namespace korrin {
namespace {

TEST(HashCombine, DependsOnTheOrderOfTheParts) {
  EXPECT_NE(hashCombine(hashCombine(0, 1), 2), hashCombine(hashCombine(0, 2), 1));
}

TEST(HashCombine, CountsPartsThatAreZero) {
  std::unordered_set<std::size_t> seen;
  std::size_t seed = 0;
  for (int i = 0; i < 1000; ++i) EXPECT_TRUE(seen.insert(seed = hashCombine(seed, 0)).second);
}

TEST(HashCombine, NeverMapsDifferentSmallPartsToOneResult) {
  std::unordered_set<std::size_t> seen;
  for (std::size_t first = 0; first < 300; ++first)
    for (std::size_t second = 0; second < 300; ++second)
      EXPECT_TRUE(seen.insert(hashCombine(hashCombine(0, first), second)).second);
}

TEST(HashCombine, SpreadsEveryBitOfEitherArgumentOverTheResult) {
  constexpr std::size_t seed = 0x0123456789ABCDEF;
  constexpr std::size_t hash = 42;
  const std::size_t result = hashCombine(seed, hash);
  for (int bit = 0; bit < 64; ++bit) {
    const std::size_t flipped = std::size_t{1} << bit;
    for (const std::size_t other :
         {hashCombine(seed ^ flipped, hash), hashCombine(seed, hash ^ flipped)}) {
      EXPECT_GE(std::popcount(result ^ other), 12) << bit;
      EXPECT_LE(std::popcount(result ^ other), 52) << bit;
    }
  }
}

}  // namespace
}  // namespace korrin
