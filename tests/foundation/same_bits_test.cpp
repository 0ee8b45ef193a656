#include "korrin/foundation/same_bits.h"

#include <limits>
#include <optional>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

namespace korrin {

struct Measurement {
  double value;
  std::optional<double> deviation;
  Text name;

  friend bool operator==(const Measurement&, const Measurement&) = default;
};

template <>
constexpr auto fieldsOf<Measurement>() {
  return std::tuple{Field{"value", &Measurement::value},
                    Field{"deviation", &Measurement::deviation}, Field{"name", &Measurement::name}};
}
static_assert(tableIsComplete<Measurement>);

namespace {

TEST(SameBits, TellsNumbersApartThatAreEqual) {
  const double notANumber = std::numeric_limits<double>::quiet_NaN();
  EXPECT_TRUE(sameBits(1.5, 1.5));
  EXPECT_TRUE(sameBits(notANumber, notANumber));
  EXPECT_FALSE(sameBits(0.0, -0.0));
}

TEST(SameBits, LooksAtWhatAnOptionalHolds) {
  // Of these no two are the same.
  const std::vector<std::optional<double>> numbers = {{}, 0.0, -0.0, 1.0};
  for (std::size_t i = 0; i < numbers.size(); ++i)
    for (std::size_t j = 0; j < numbers.size(); ++j)
      EXPECT_EQ(sameBits(numbers[i], numbers[j]), i == j) << i << ' ' << j;
}

TEST(SameBits, LooksAtEachFieldOfARecord) {
  const Measurement whole{1, 2, "caf\u00E9"};
  EXPECT_TRUE(sameBits(whole, Measurement(whole)));
  EXPECT_FALSE(sameBits(whole, {3, 2, "caf\u00E9"}));
  EXPECT_FALSE(sameBits(whole, {1, {}, "caf\u00E9"}));
  // Equal as texts, in other bytes.
  EXPECT_FALSE(sameBits(whole, {1, 2, "cafe\u0301"}));
}

TEST(SameBits, LooksAtEachElementOfAList) {
  EXPECT_TRUE(sameBits(List<double>{0, 1}, List<double>{0, 1}));
  EXPECT_FALSE(sameBits(List<double>{0, 1}, List<double>{0, 1, 2}));
  EXPECT_FALSE(sameBits(List<double>{0, 1}, List<double>{-0.0, 1}));
}

}  // namespace
}  // namespace korrin
