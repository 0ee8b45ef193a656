#include "korrin/coding/decimal_quotient.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>

#include <gtest/gtest.h>

namespace korrin::json {
namespace {

// By way of the text, as the standard library reads it.
double nearestByText(std::uint64_t digits, std::size_t decimals) {
  const std::string text = std::to_string(digits) + "e-" + std::to_string(decimals);
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

// Whether the quotient is what it has to be, if there is one.
testing::AssertionResult isNearest(std::uint64_t digits, std::size_t decimals) {
  const auto found = nearestQuotient(digits, decimals);
  if (!found || std::bit_cast<std::uint64_t>(*found) ==
                    std::bit_cast<std::uint64_t>(nearestByText(digits, decimals)))
    return testing::AssertionSuccess();
  return testing::AssertionFailure() << digits << "e-" << decimals << " became " << *found;
}

std::size_t anyDecimals(std::mt19937_64& random) {
  return static_cast<std::size_t>(random() % (mostDecimals + 1));
}

TEST(NearestQuotient, IsTheNearestDoubleOfRandomDigits) {
  constexpr unsigned seed = 4711;
  std::mt19937_64 random(seed);
  for (int round = 0; round < 100'000; ++round) {
    const std::uint64_t digits = random() >> (random() % 64);
    const std::size_t decimals = anyDecimals(random);
    ASSERT_TRUE(isNearest(digits, decimals)) << "seed " << seed;
  }
}

TEST(NearestQuotient, IsTheNearestDoubleAtTheEdges) {
  for (const std::uint64_t middle :
       {std::uint64_t{1}, std::uint64_t{1} << 52, std::uint64_t{1} << 53, std::uint64_t{1} << 54,
        std::uint64_t{1} << 63, std::uint64_t{10'000'000'000'000'000'000u}, ~std::uint64_t{5}})
    for (std::uint64_t distance = 0; distance < 6; ++distance)
      for (std::size_t decimals = 0; decimals <= mostDecimals; ++decimals) {
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

TEST(NearestQuotient, IsFoundForNearlyAllDigits) {
  constexpr unsigned seed = 4713;
  std::mt19937_64 random(seed);
  constexpr int rounds = 100'000;
  int missed = 0;
  for (int round = 0; round < rounds; ++round)
    missed += nearestQuotient(random() | 1, anyDecimals(random)) ? 0 : 1;
  // One in 1,024 is expected; this is ten standard deviations more.
  EXPECT_LT(missed, 200) << "seed " << seed;
}

TEST(NearestQuotient, IsFoundForWhatDocumentsHold) {
  for (const std::uint64_t digits : {std::uint64_t{0}, std::uint64_t{75005}, std::uint64_t{125}})
    for (std::size_t decimals = 0; decimals <= 15; ++decimals)
      EXPECT_TRUE(nearestQuotient(digits, decimals));
  EXPECT_TRUE(nearestQuotient(12345678901234567, 13));
}

TEST(UpperProduct, IsThatOfSchool) {
  // By halves of eight bits, of which no sum overflows.
  const auto bySteps = [](std::uint64_t a, std::uint64_t b) {
    std::array<std::uint64_t, 17> columns{};
    for (std::size_t i = 0; i < 8; ++i)
      for (std::size_t j = 0; j < 8; ++j)
        columns[i + j] += (a >> 8 * i & 0xFF) * (b >> 8 * j & 0xFF);
    std::uint64_t upper = 0;
    for (std::size_t i = 0; i < 16; ++i) {
      columns[i + 1] += columns[i] >> 8;
      if (i >= 8) upper |= (columns[i] & 0xFF) << 8 * (i - 8);
    }
    return upper;
  };
  std::mt19937_64 random(4714);
  for (int round = 0; round < 10'000; ++round) {
    const std::uint64_t a = random() | random();
    const std::uint64_t b = random() | random();
    ASSERT_EQ(detail::upperProduct(a, b), bySteps(a, b)) << a << " and " << b;
    ASSERT_EQ(detail::upperProductInHalves(a, b), bySteps(a, b)) << a << " and " << b;
  }
}

}  // namespace
}  // namespace korrin::json
