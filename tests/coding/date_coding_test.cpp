#include "korrin/coding/date_coding.h"

#include <charconv>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <system_error>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/coding/instant_text.h"
#include "korrin/model/document_coding.h"

#include "tests/support/date_texts.h"
#include "tests/support/decoding_outcome.h"
#include "tests/support/effort.h"
#include "tests/support/extremes.h"
#include "tests/support/full_project.h"

namespace korrin {
namespace {

using namespace std::chrono;
using Kind = DecodingError::Kind;
using test::highest;
using test::lowest;

// A strategy has names for a host's options, and stands in no document itself.
static_assert(fromRawValue<DateStrategy>("secondsSince1970") == DateStrategy::secondsSince1970);
static_assert(!isCodable<DateStrategy> && !isCodable<List<DateStrategy>>);

constexpr Instant at(std::int64_t count) { return Instant(nanoseconds(count)); }
constexpr Instant at(int y, unsigned m, unsigned d, nanoseconds time = {}) {
  return sys_days(year(y) / month(m) / day(d)) + time;
}

class AcceptedDate : public testing::TestWithParam<test::DateText> {};

TEST_P(AcceptedDate, NamesItsInstant) {
  const auto read = instantFromText(GetParam().text);
  ASSERT_TRUE(read.has_value());
  EXPECT_EQ(read->time_since_epoch().count(), GetParam().instant.time_since_epoch().count());
}

INSTANTIATE_TEST_SUITE_P(, AcceptedDate, testing::ValuesIn(test::acceptedDates()),
                         [](const auto& row) { return row.param.name; });

class RefusedDate : public testing::TestWithParam<test::WrongDate> {};

TEST_P(RefusedDate, NamesNoInstant) { EXPECT_FALSE(instantFromText(GetParam().text).has_value()); }

INSTANTIATE_TEST_SUITE_P(, RefusedDate, testing::ValuesIn(test::refusedDates()),
                         [](const auto& row) { return row.param.name; });

TEST(DateText, HasAsFewFractionDigitsAsAreExact) {
  EXPECT_EQ(instantText(at(0)), "1970-01-01T00:00:00Z");
  EXPECT_EQ(instantText(at(2026, 7, 18, 18h + 30min + 250ms)), "2026-07-18T18:30:00.250Z");
  EXPECT_EQ(instantText(at(2026, 7, 18, 100us)), "2026-07-18T00:00:00.000100Z");
  EXPECT_EQ(instantText(at(2026, 7, 18, 10ns)), "2026-07-18T00:00:00.000000010Z");
  EXPECT_EQ(instantText(at(-1)), "1969-12-31T23:59:59.999999999Z");
  EXPECT_EQ(instantText(at(-1'000'000)), "1969-12-31T23:59:59.999Z");
  EXPECT_EQ(instantText(at(lowest)), "1677-09-21T00:12:43.145224192Z");
  EXPECT_EQ(instantText(at(highest)), "2262-04-11T23:47:16.854775807Z");
}

ProjectMetadata created(Instant instant) {
  ProjectMetadata metadata = test::fullProject().metadata;
  metadata.createdAt = instant;
  return metadata;
}

std::string documentWithCreation(const std::string& raw) {
  ProjectMetadata metadata = created(at(0));
  std::string text = encodeJSON(metadata);
  const std::string epoch = "\"1970-01-01T00:00:00Z\"";
  return text.replace(text.find(epoch), epoch.size(), raw);
}

constexpr DateStrategy strategies[] = {DateStrategy::iso8601, DateStrategy::secondsSince1970,
                                       DateStrategy::millisecondsSince1970,
                                       DateStrategy::secondsSinceReferenceDate};

std::vector<Instant> instants() {
  constexpr std::int64_t second = 1'000'000'000;
  constexpr std::int64_t referenceDate = 978'307'200 * second;
  // Before it the distance from the reference date takes twenty digits.
  constexpr std::int64_t twentyDigits =
      referenceDate - 9'000'000'000 * second - 1'000'000'000 * second;
  std::vector<Instant> some;
  for (const std::int64_t centre :
       {lowest + 2, std::int64_t{0}, referenceDate, twentyDigits, -second, second,
        highest / second * second, lowest / second * second, highest - 2})
    for (std::int64_t offset = -2; offset <= 2; ++offset) some.push_back(at(centre + offset));
  std::mt19937_64 random(99);
  for (int i = 0; i < test::repetitions(30'000, 5'000); ++i) {
    const auto count = static_cast<std::int64_t>(random());
    some.push_back(at(count));
    some.push_back(at(count / 1'000 * 1'000));
    some.push_back(at(count / 1'000'000 * 1'000'000));
    some.push_back(at(count / second * second));
  }
  return some;
}

TEST(Date, IsReadBackToTheNanosecondUnderEveryStrategy) {
  for (const DateStrategy strategy : strategies) {
    SCOPED_TRACE(static_cast<int>(strategy));
    for (const Instant instant : instants()) {
      const ProjectMetadata original = created(instant);
      const std::string text = encodeJSON(original, {.dates = strategy});
      const auto decoded = decodeJSON<ProjectMetadata>(text, {.dates = strategy});
      ASSERT_TRUE(decoded == original) << text;
      ASSERT_EQ(encodeJSON(decoded, {.dates = strategy}), text);
    }
  }
}

// The number's digits, read without its point as nanoseconds, are the distance from the origin.
TEST(Date, IsWrittenAsTheExactNumber) {
  for (const auto& [strategy, decimals, origin] :
       {std::tuple{DateStrategy::secondsSince1970, 9, std::int64_t{0}},
        std::tuple{DateStrategy::millisecondsSince1970, 6, std::int64_t{0}},
        std::tuple{DateStrategy::secondsSinceReferenceDate, 9,
                   std::int64_t{978'307'200'000'000'000}}}) {
    for (const Instant instant : instants()) {
      char buffer[64];
      std::string text(buffer, json::writeInstantNumber(buffer, instant, strategy));
      const std::string whole = text;
      std::size_t fractionDigits = 0;
      if (const std::size_t point = text.find('.'); point != std::string::npos) {
        fractionDigits = text.size() - point - 1;
        ASSERT_NE(text.back(), '0') << whole;
        text.erase(point, 1);
      }
      ASSERT_LE(fractionDigits, static_cast<std::size_t>(decimals)) << whole;
      text.append(static_cast<std::size_t>(decimals) - fractionDigits, '0');
      const bool isNegative = text.front() == '-';
      if (isNegative) text.erase(0, 1);
      std::uint64_t distance = 0;
      const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), distance);
      ASSERT_TRUE(error == std::errc() && end == text.data() + text.size()) << whole;
      const std::int64_t count = instant.time_since_epoch().count();
      ASSERT_EQ(isNegative, count < origin) << whole;
      // Twenty digits fit without a sign only.
      const auto forwards = static_cast<std::uint64_t>(count) - static_cast<std::uint64_t>(origin);
      ASSERT_EQ(distance, isNegative ? 0 - forwards : forwards) << whole;
    }
  }
}

TEST(Date, IsWrittenInTheUnitAndFromTheOriginOfItsStrategy) {
  const Instant instant = at(2001, 1, 1, 1500ms);
  const auto written = [&](DateStrategy strategy) {
    const std::string text = encodeJSON(created(instant), {.dates = strategy});
    const std::size_t start = text.find("\"createdAt\":") + 12;
    return text.substr(start, text.find(",\"modifiedAt\"") - start);
  };
  EXPECT_EQ(written(DateStrategy::iso8601), "\"2001-01-01T00:00:01.500Z\"");
  EXPECT_EQ(written(DateStrategy::secondsSince1970), "978307201.5");
  EXPECT_EQ(written(DateStrategy::millisecondsSince1970), "978307201500");
  EXPECT_EQ(written(DateStrategy::secondsSinceReferenceDate), "1.5");
}

TEST(Date, IsReadFromANumberToTheNearestNanosecond) {
  struct Row {
    std::string text;
    std::int64_t count;
  };
  for (const Row& row :
       {Row{"0", 0}, Row{"-0.0", 0}, Row{"1e3", 1'000'000'000'000}, Row{"0.0000000005", 1},
        Row{"0.00000000049999999999999999999", 0}, Row{"-0.0000000005", -1},
        Row{"-0.0000000004", 0}, Row{"5e-10", 1}, Row{"0.9999999995", 1'000'000'000},
        Row{"1.0000000015", 1'000'000'002}, Row{"1e-999999999999999999999", 0},
        Row{"0e999999999999999999999", 0}, Row{"9223372036.854775807", highest},
        Row{"9223372036.8547758074", highest}, Row{"-9223372036.854775808", lowest},
        Row{"-9223372036.8547758084", lowest},
        Row{"922337203685477580.7e-8", 9'223'372'036'854'775'807}}) {
    const auto metadata = decodeJSON<ProjectMetadata>(
        R"({"title":"","artist":"","venue":"","preparedBy":"","contactEmail":"","revision":"",)"
        R"("createdAt":)" +
            row.text + R"(,"modifiedAt":0})",
        {.dates = DateStrategy::secondsSince1970});
    EXPECT_EQ(metadata.createdAt.time_since_epoch().count(), row.count) << row.text;
  }
}

TEST(Date, IsRefusedWhenTheNumberDoesNotFit) {
  for (const std::string text :
       {"9223372036.854775808", "9223372036.8547758075", "1e10", "1e400", "-9223372036.854775809",
        "-9223372036.8547758085", "1e999999999999999999999", "-99999999999999999999999"}) {
    const std::string document =
        R"({"title":"","artist":"","venue":"","preparedBy":"","contactEmail":"","revision":"",)"
        R"("createdAt":)" +
        text + R"(,"modifiedAt":0})";
    EXPECT_EQ(test::refusalOf<ProjectMetadata>(document, {.dates = DateStrategy::secondsSince1970}),
              test::refusedAt("createdAt", Kind::dataCorrupted,
                              "expected a date between the years 1677 and 2262, found " + text));
  }
}

TEST(Date, IsRefusedInTheFormOfAnotherStrategy) {
  EXPECT_EQ(test::refusalOf<ProjectMetadata>(documentWithCreation("0")),
            test::refusedAt("createdAt", Kind::typeMismatch,
                            "expected a date as a string, found a number"));
  EXPECT_EQ(test::refusalOf<ProjectMetadata>(encodeJSON(created(at(0))),
                                             {.dates = DateStrategy::millisecondsSince1970}),
            test::refusedAt("eventDate", Kind::typeMismatch, "expected a number, found a string"));
  EXPECT_EQ(test::refusalOf<ProjectMetadata>(documentWithCreation("\"18 July 2026\"")),
            test::refusedAt("createdAt", Kind::dataCorrupted,
                            "expected a date such as \"2026-07-18T20:30:00Z\", found "
                            "\"18 July 2026\""));
}

TEST(Date, IsReadWhereItsTextHoldsEscapes) {
  EXPECT_EQ(decodeJSON<ProjectMetadata>(documentWithCreation(R"("2001\u002d01-01T00:00:00\u005a")"))
                .createdAt,
            at(2001, 1, 1));
}

}  // namespace
}  // namespace korrin
