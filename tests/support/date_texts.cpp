#include "tests/support/date_texts.h"

#include <chrono>

#include "tests/support/extremes.h"

namespace korrin::test {
namespace {

using namespace std::chrono;

constexpr Instant at(std::int64_t count) { return Instant(nanoseconds(count)); }
constexpr Instant at(int y, unsigned m, unsigned d, nanoseconds time = {}) {
  return sys_days(year(y) / month(m) / day(d)) + time;
}

}  // namespace

std::vector<DateText> acceptedDates() {
  return {
      DateText{"Epoch", "1970-01-01T00:00:00Z", at(0)},
      DateText{"LowerCaseLetters", "1970-01-01t00:00:00z", at(0)},
      DateText{"OneNanosecondAfter", "1970-01-01T00:00:00.000000001Z", at(1)},
      DateText{"OneNanosecondBefore", "1969-12-31T23:59:59.999999999Z", at(-1)},
      DateText{"EastOfGreenwich", "2026-07-18T20:30:00+02:00", at(2026, 7, 18, 18h + 30min)},
      DateText{"WestOfGreenwich", "2026-07-18T20:30:00-05:30", at(2026, 7, 19, 2h)},
      DateText{"UnknownOffset", "2026-07-18T20:30:00-00:00", at(2026, 7, 18, 20h + 30min)},
      DateText{"FarthestEast", "2026-01-01T00:00:00+23:59", at(2025, 12, 31, 1min)},
      DateText{"FarthestWest", "2025-12-31T23:59:59-23:59", at(2026, 1, 1, 23h + 58min + 59s)},
      DateText{"OneFractionDigit", "2001-01-01T00:00:00.5Z", at(2001, 1, 1, 500ms)},
      DateText{"TwoFractionDigits", "2001-01-01T00:00:00.05Z", at(2001, 1, 1, 50ms)},
      DateText{"SevenFractionDigits", "2001-01-01T00:00:00.0000001Z", at(2001, 1, 1, 100ns)},
      DateText{"ZeroFraction", "2001-01-01T00:00:00.000000000Z", at(2001, 1, 1)},
      DateText{"FractionWithOffset", "2001-01-01T01:00:00.25+01:00", at(2001, 1, 1, 250ms)},
      DateText{"FractionBefore1970", "1960-05-01T12:00:00.25Z", at(1960, 5, 1, 12h + 250ms)},
      DateText{"LeapDayOfTheCentury", "2000-02-29T00:00:00Z", at(2000, 2, 29)},
      DateText{"LastSecondOfADay", "2026-12-31T23:59:59Z", at(2026, 12, 31, 24h - 1s)},
      DateText{"Earliest", "1677-09-21T00:12:43.145224192Z", at(lowest)},
      DateText{"EarliestInTheEast", "1677-09-21T02:12:43.145224192+02:00", at(lowest)},
      DateText{"EarliestInTheWest", "1677-09-20T22:12:43.145224192-02:00", at(lowest)},
      DateText{"Latest", "2262-04-11T23:47:16.854775807Z", at(highest)},
      DateText{"LatestInTheEast", "2262-04-12T00:47:16.854775807+01:00", at(highest)},
  };
}

std::vector<WrongDate> refusedDates() {
  return {
      WrongDate{"Empty", ""},
      WrongDate{"DateAlone", "2026-07-18"},
      WrongDate{"NoZone", "2026-07-18T20:30:00"},
      WrongDate{"NoSeconds", "2026-07-18T20:30Z"},
      WrongDate{"BlankForT", "2026-07-18 20:30:00Z"},
      WrongDate{"BlankBefore", " 2026-07-18T20:30:00Z"},
      WrongDate{"BlankAfter", "2026-07-18T20:30:00Z "},
      WrongDate{"NULAfter", std::string("2026-07-18T20:30:00Z\0", 21)},
      WrongDate{"BasicFormat", "20260718T203000Z"},
      WrongDate{"WeekDate", "2026-W29-6T20:30:00Z"},
      WrongDate{"OrdinalDate", "2026-199T20:30:00Z"},
      WrongDate{"OneDigitDay", "2026-07-8T20:30:00Z"},
      WrongDate{"ThreeDigitYear", "026-07-18T20:30:00Z"},
      WrongDate{"FiveDigitYear", "12026-07-18T20:30:00Z"},
      WrongDate{"SignedYear", "+2026-07-18T20:30:00Z"},
      WrongDate{"SignInsideAField", "2026-+7-18T20:30:00Z"},
      WrongDate{"SlashesForHyphens", "2026/07/18T20:30:00Z"},
      WrongDate{"MonthZero", "2026-00-18T20:30:00Z"},
      WrongDate{"MonthThirteen", "2026-13-18T20:30:00Z"},
      WrongDate{"DayZero", "2026-07-00T20:30:00Z"},
      WrongDate{"DayThirtyTwo", "2026-07-32T20:30:00Z"},
      WrongDate{"AprilThirtyFirst", "2026-04-31T20:30:00Z"},
      WrongDate{"LeapDayOfAnotherYear", "2026-02-29T20:30:00Z"},
      WrongDate{"LeapDayOfAnotherCentury", "1900-02-29T20:30:00Z"},
      WrongDate{"HourTwentyFour", "2026-07-18T24:00:00Z"},
      WrongDate{"MinuteSixty", "2026-07-18T20:60:00Z"},
      WrongDate{"SecondSixty", "2026-07-18T20:30:60Z"},
      WrongDate{"LeapSecond", "2016-12-31T23:59:60Z"},
      WrongDate{"FractionWithoutDigits", "2026-07-18T20:30:00.Z"},
      WrongDate{"TenFractionDigits", "2026-07-18T20:30:00.0000000000Z"},
      WrongDate{"CommaForPoint", "2026-07-18T20:30:00,5Z"},
      WrongDate{"OffsetWithoutColon", "2026-07-18T20:30:00+0200"},
      WrongDate{"OffsetOfHoursAlone", "2026-07-18T20:30:00+02"},
      WrongDate{"OffsetOfADay", "2026-07-18T20:30:00+24:00"},
      WrongDate{"OffsetOfSixtyMinutes", "2026-07-18T20:30:00+02:60"},
      WrongDate{"OffsetWithSeconds", "2026-07-18T20:30:00+02:00:00"},
      WrongDate{"TwoZones", "2026-07-18T20:30:00Z+02:00"},
      WrongDate{"ZoneByName", "2026-07-18T20:30:00 UTC"},
      WrongDate{"MinusSignOfAnotherKind", "2026-07-18T20:30:00\u221202:00"},
      WrongDate{"JustBeforeTheEarliest", "1677-09-21T00:12:43.145224191Z"},
      WrongDate{"OneSecondBeforeTheEarliest", "1677-09-21T00:12:42.999999999Z"},
      WrongDate{"TheEarliestTooFarEast", "1677-09-21T00:12:43.145224192+00:01"},
      WrongDate{"JustAfterTheLatest", "2262-04-11T23:47:16.854775808Z"},
      WrongDate{"OneSecondAfterTheLatest", "2262-04-11T23:47:17Z"},
      WrongDate{"TheLatestTooFarWest", "2262-04-11T23:47:16.854775807-00:01"},
      WrongDate{"YearZero", "0000-01-01T00:00:00Z"},
      WrongDate{"YearZeroFarEast", "0000-01-01T00:00:00+23:59"},
      WrongDate{"Year9999", "9999-12-31T23:59:59.999999999-23:59"},
  };
}

}  // namespace korrin::test
