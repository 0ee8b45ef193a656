#include "korrin/coding/json_number.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "korrin/coding/json_scanner.h"
#include "korrin/model/document_coding.h"

#include "tests/support/decoding_outcome.h"
#include "tests/support/effort.h"
#include "tests/support/extremes.h"
#include "tests/support/locales.h"
#include "tests/support/number_texts.h"

namespace korrin {
namespace {

using Kind = DecodingError::Kind;
using test::highest;
using test::largest;
using test::lowest;
using test::refusalOf;
using test::smallest;

std::string zeros(std::size_t count) { return std::string(count, '0'); }

std::string versions(const std::string& number) {
  return R"({"schemaVersion":)" + number + R"(,"minimumReaderVersion":1})";
}
std::string point(const std::string& number) { return R"({"x":)" + number + R"(,"y":1})"; }

class IntegerField : public testing::TestWithParam<test::IntegerNotation> {};

TEST_P(IntegerField, TakesTheExactValueInAnyNotation) {
  EXPECT_EQ(decodeJSON<DocumentVersions>(versions(GetParam().text)).schemaVersion,
            GetParam().value);
}

INSTANTIATE_TEST_SUITE_P(, IntegerField, testing::ValuesIn(test::acceptedIntegers()),
                         [](const auto& row) { return row.param.name; });

// Numbers far from the document's end are read in blocks, those near it are not.
TEST(Numbers, AreTheSameNearTheEndOfTheDocumentAndFarFromIt) {
  std::mt19937_64 random(7);
  const auto digits = [&random](std::size_t count) {
    std::string text;
    while (text.size() < count) text += static_cast<char>('0' + random() % 10);
    return text;
  };
  for (std::size_t whole = 0; whole <= 22; ++whole)
    for (std::size_t decimals = 0; decimals <= 22; ++decimals)
      for (const char* sign : {"", "-"})
        for (const char* end : {"", ".", "e1", "e", "x", "E-2", ".5"}) {
          std::string number = sign + digits(whole);
          if (decimals > 0) number += "." + digits(decimals);
          number += end;
          const std::string near = R"({"y":1,"x":)" + number + "}";
          const std::string far = near + std::string(40, ' ');
          const auto refusal = refusalOf<StagePoint>(near);
          ASSERT_EQ(refusalOf<StagePoint>(far), refusal) << number;
          if (refusal) continue;
          const double value = std::strtod(number.c_str(), nullptr);
          ASSERT_EQ(decodeJSON<StagePoint>(near).x, value) << number;
          ASSERT_EQ(decodeJSON<StagePoint>(far).x, value) << number;
        }
}

class NoInteger : public testing::TestWithParam<test::IntegerRefused> {};

TEST_P(NoInteger, IsRefusedByAnIntegerField) {
  const auto refusal = refusalOf<DocumentVersions>(versions(GetParam().text));
  ASSERT_TRUE(refusal.has_value());
  EXPECT_EQ(refusal->kind, GetParam().kind);
  EXPECT_EQ(refusal->keyPath, "schemaVersion");
  const std::string expected =
      GetParam().kind == Kind::typeMismatch ? "an integer" : "an integer of 64 bits";
  EXPECT_TRUE(refusal->message.starts_with("schemaVersion: expected " + expected + ", found "))
      << refusal->message;
}

INSTANTIATE_TEST_SUITE_P(, NoInteger, testing::ValuesIn(test::refusedIntegers()),
                         [](const auto& row) { return row.param.name; });

// The digits of a value with the point moved and the exponent making up for it.
TEST(Integer, IsReadWhereverItsPointStands) {
  constexpr unsigned seed = 1701;
  SCOPED_TRACE(testing::Message() << "seed " << seed);
  std::mt19937_64 random(seed);
  for (int i = 0; i < test::repetitions(200'000, 20'000); ++i) {
    const auto value = static_cast<std::int64_t>(random()) >> (random() % 64);
    std::string digits = std::to_string(value);
    const std::string sign = value < 0 ? "-" : "";
    if (value < 0) digits.erase(0, 1);
    digits = digits + zeros(random() % 4);
    const auto addedZeros = static_cast<int>(digits.size() + sign.size()) -
                            static_cast<int>(std::to_string(value).size());
    const auto places = static_cast<int>(random() % 40);
    if (places >= static_cast<int>(digits.size()))
      digits.insert(0, static_cast<std::size_t>(places) - digits.size() + 1, '0');
    if (places != 0) digits.insert(digits.size() - static_cast<std::size_t>(places), ".");
    if (digits.size() > 1 && digits[0] == '0' && digits[1] != '.') continue;  // zero, with zeros
    const std::string text = sign + digits + "e" + std::to_string(places - addedZeros);
    const json::ExactInteger read = json::exactInteger(text);
    ASSERT_EQ(read.fault, json::IntegerFault::none) << text;
    ASSERT_EQ(read.value, value) << text;
  }
}

class DoubleField : public testing::TestWithParam<test::DoubleNotation> {};

TEST_P(DoubleField, TakesTheNearestDouble) {
  const double read = decodeJSON<StagePoint>(point(GetParam().text)).x;
  EXPECT_EQ(std::bit_cast<std::uint64_t>(read), std::bit_cast<std::uint64_t>(GetParam().value))
      << read;
}

INSTANTIATE_TEST_SUITE_P(, DoubleField, testing::ValuesIn(test::acceptedDoubles()),
                         [](const auto& row) { return row.param.name; });

TEST(Double, IsRefusedWhenItRoundsToInfinity) {
  for (const std::string& text : test::refusedDoubles())
    EXPECT_EQ(refusalOf<StagePoint>(point(text)),
              test::refusedAt("x", Kind::dataCorrupted,
                              "expected a number within the range of a double, found " +
                                  (text.size() > 40 ? text.substr(0, 40) + "…" : text)));
}

struct WrittenDouble {
  std::string name;
  double value;
  std::string text;
};
void PrintTo(const WrittenDouble& row, std::ostream* out) { *out << row.text; }

class EncodedDouble : public testing::TestWithParam<WrittenDouble> {};

TEST_P(EncodedDouble, IsTheShortestTextThatReadsBack) {
  EXPECT_EQ(encodeJSON(StagePoint{.x = GetParam().value, .y = 1}), point(GetParam().text));
}

INSTANTIATE_TEST_SUITE_P(
    , EncodedDouble,
    testing::Values(WrittenDouble{"Zero", 0.0, "0"}, WrittenDouble{"NegativeZero", -0.0, "-0"},
                    WrittenDouble{"Whole", 12000.0, "12000"}, WrittenDouble{"Half", -0.5, "-0.5"},
                    WrittenDouble{"Tenth", 0.1, "0.1"},
                    WrittenDouble{"SumOfTenths", 0.1 + 0.2, "0.30000000000000004"},
                    WrittenDouble{"LastExactInteger", 9007199254740991.0, "9007199254740991"},
                    WrittenDouble{"BeyondExactIntegers", 9007199254740994.0, "9007199254740994"},
                    WrittenDouble{"LastWithoutExponent", 1e20, "100000000000000000000"},
                    WrittenDouble{"FirstWithExponent", 1e21, "1e+21"},
                    WrittenDouble{"NegativeWithExponent", -1.5e300, "-1.5e+300"},
                    WrittenDouble{"SmallWithoutExponent", 1e-7, "0.0000001"},
                    WrittenDouble{"SmallWithExponent", 9.5e-8, "9.5e-08"},
                    WrittenDouble{"Largest", largest, "1.7976931348623157e+308"},
                    WrittenDouble{"Smallest", smallest, "5e-324"}),
    [](const auto& row) { return row.param.name; });

// The digits that count, of a number without its sign and exponent.
int significantDigits(std::string text) {
  text = text.substr(0, text.find('e'));
  std::erase_if(text, [](char c) { return c == '.' || c == '-'; });
  text.erase(0, text.find_first_not_of('0'));
  return static_cast<int>(text.size());
}

void expectShortestRoundTrip(double value) {
  char buffer[json::maximumNumberLength];
  const std::string text(buffer, json::writeDouble(buffer, value));
  ASSERT_LE(text.size(), sizeof buffer);
  json::Scanner scanner(text);
  ASSERT_EQ(scanner.number(), text);
  const auto read = json::nearestDouble(text);
  ASSERT_TRUE(read.has_value()) << text;
  ASSERT_EQ(std::bit_cast<std::uint64_t>(*read), std::bit_cast<std::uint64_t>(value)) << text;
  ASSERT_EQ(std::strtod(text.c_str(), nullptr), value) << text;

  // Without point and exponent fewer digits make no shorter text: zeros take their places.
  if (text.find_first_of(".e") == std::string::npos) return;
  // At a power of two a text with as few digits may lie on its farther side only.
  const int digits = significantDigits(text);
  int exponent = 0;
  if (digits < 2 || std::fabs(std::frexp(value, &exponent)) == 0.5) return;
  char shorter[64];
  std::snprintf(shorter, sizeof shorter, "%.*e", digits - 2, value);
  ASSERT_NE(std::strtod(shorter, nullptr), value) << text << " " << shorter;
}

TEST(Double, ReadsBackBitForBitWhateverTheBits) {
  const test::PlainNumbers plain;
  constexpr unsigned seed = 4711;
  SCOPED_TRACE(testing::Message() << "seed " << seed);
  std::mt19937_64 random(seed);
  for (int i = 0; i < test::repetitions(1'000'000, 30'000); ++i) {
    const auto value = std::bit_cast<double>(random());
    if (std::isfinite(value)) expectShortestRoundTrip(value);
    // Lengths as plots have them, in tenths of millimetres and in whole ones.
    expectShortestRoundTrip(static_cast<double>(random() % 1'000'000) / 10);
    if (HasFatalFailure()) return;
  }
}

TEST(Integer, ReadsBackAtItsExtremes) {
  for (const std::int64_t value :
       {lowest, lowest + 1, std::int64_t{-1}, std::int64_t{0}, std::int64_t{999'999'999'999'999},
        std::int64_t{1'000'000'000'000'000}, highest - 1, highest}) {
    const DocumentVersions versions{.schemaVersion = value, .minimumReaderVersion = -value - 1};
    const std::string text = encodeJSON(versions);
    EXPECT_EQ(decodeJSON<DocumentVersions>(text), versions) << text;
    EXPECT_NE(text.find(":" + std::to_string(value) + ","), std::string::npos) << text;
  }
}

TEST(ScaledInteger, IsNothingWhereRoundingUpWouldNotFit) {
  EXPECT_EQ(json::scaledInteger("9223372036854775806.5", 0, 0), highest);
  EXPECT_EQ(json::scaledInteger("9223372036854775807.5", 0, 0), std::nullopt);
  EXPECT_EQ(json::scaledInteger("18446744073709551615.5", 0, 0), std::nullopt);
  EXPECT_EQ(json::scaledInteger("-18446744073709551615.5", 0, highest), std::nullopt);
}

TEST(Double, IsTheNearestOneWhereItsDigitsLieNextToAHalf) {
  // So near to the middle between two doubles that 64 bits of a quotient do not tell the sides.
  for (const auto& [text, value] : {std::pair{"4959.3977607855727", 4959.3977607855727},
                                    std::pair{"-1062.5414822155509", -1062.5414822155509},
                                    std::pair{"8687.5603930526986", 8687.5603930526986}}) {
    // Away from the borders of the text, where numbers are read in another way.
    const auto point = decodeJSON<StagePoint>(R"({"in front":"of it","y":0.5,"x":)" +
                                              std::string(text) + R"(,"behind":"it as well"})");
    EXPECT_EQ(std::bit_cast<std::uint64_t>(point.x), std::bit_cast<std::uint64_t>(value)) << text;
  }
}

TEST(NearestDouble, EndsWithItsText) {
  const std::string_view text = "1.2345";
  EXPECT_EQ(json::nearestDouble(text.substr(0, 3)), 1.2);
  EXPECT_EQ(json::nearestDouble(text.substr(0, 1)), 1.0);
}

}  // namespace
}  // namespace korrin
