#include "korrin/coding/decimal_quotient.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace korrin::json {
namespace {

// By way of the text, as the standard library reads it.
double nearestByText(std::uint64_t digits, int decimals) {
  const std::string text = std::to_string(digits) + "e-" + std::to_string(decimals);
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

// Whether the quotient is what it has to be, if there is one.
testing::AssertionResult isNearest(std::uint64_t digits, int decimals) {
  const double found = nearestQuotient(digits, decimals);
  if (std::isnan(found) || std::bit_cast<std::uint64_t>(found) ==
                               std::bit_cast<std::uint64_t>(nearestByText(digits, decimals)))
    return testing::AssertionSuccess();
  return testing::AssertionFailure() << digits << "e-" << decimals << " became " << found;
}

TEST(NearestQuotient, IsTheNearestDoubleOfRandomDigits) {
  constexpr unsigned seed = 4711;
  std::mt19937_64 random(seed);
  for (int round = 0; round < 100'000; ++round) {
    const std::uint64_t digits = random() >> (random() % 64);
    const int decimals = static_cast<int>(random() % 30);
    ASSERT_TRUE(isNearest(digits, decimals)) << "seed " << seed;
  }
}

TEST(NearestQuotient, IsTheNearestDoubleAtTheEdges) {
  for (const std::uint64_t middle :
       {std::uint64_t{1}, std::uint64_t{1} << 52, std::uint64_t{1} << 53, std::uint64_t{1} << 54,
        std::uint64_t{1} << 63, std::uint64_t{10'000'000'000'000'000'000u}, ~std::uint64_t{5}})
    for (std::uint64_t distance = 0; distance < 6; ++distance)
      for (int decimals = 0; decimals < 30; ++decimals) {
        EXPECT_TRUE(isNearest(middle + distance, decimals));
        EXPECT_TRUE(isNearest(middle - std::min(middle, distance), decimals));
      }
}

TEST(NearestQuotient, RoundsHalvesToTheEvenOneOrLeavesThemToOthers) {
  // A 53-bit integer and a half, quarter or eighth: next to or on the border between two doubles.
  std::mt19937_64 random(4712);
  for (int round = 0; round < 20'000; ++round) {
    const std::uint64_t whole = (std::uint64_t{1} << 52) + (random() >> 12);
    ASSERT_TRUE(isNearest(whole * 10 + 5, 1));
    ASSERT_TRUE(isNearest(whole / 2 * 100 + 25, 2));
    ASSERT_TRUE(isNearest(whole / 4 * 1000 + 125, 3));
  }
}

#ifdef __SIZEOF_INT128__
TEST(NearestQuotient, IsTheSameByHalfOfTheReciprocalAndByAllOfIt) {
  constexpr unsigned seed = 4713;
  std::mt19937_64 random(seed);
  for (int round = 0; round < 100'000; ++round) {
    const std::uint64_t digits = (random() >> (random() % 64)) | 1;
    const std::size_t decimals = 1 + random() % 27;
    const double whole = detail::byWholeReciprocal(digits, decimals);
    const double half = detail::byReciprocal(digits, decimals);
    if (std::isnan(whole)) continue;
    ASSERT_EQ(half, whole) << digits << "e-" << decimals << ", seed " << seed;
  }
}
#endif

TEST(NearestQuotient, IsFoundForWhatDocumentsHold) {
  for (const std::uint64_t digits : {std::uint64_t{0}, std::uint64_t{75005}, std::uint64_t{125}})
    for (int decimals = 0; decimals <= 15; ++decimals)
      EXPECT_FALSE(std::isnan(nearestQuotient(digits, decimals)));
#ifdef __SIZEOF_INT128__
  EXPECT_FALSE(std::isnan(nearestQuotient(12345678901234567, 13)));
  EXPECT_FALSE(std::isnan(nearestQuotient(9999999999999999999u, 27)));
#endif
  EXPECT_TRUE(std::isnan(nearestQuotient(12345678901234567, 28)));
}

}  // namespace
}  // namespace korrin::json
