#include "korrin/coding/instant_text.h"

#include <chrono>
#include <cstddef>
#include <cstdint>

#include "korrin/foundation/ascii.h"

namespace korrin {
namespace {

using namespace std::chrono;

void appendDigits(std::string& text, std::int64_t value, std::size_t width) {
  const std::string digits = std::to_string(value);
  text.append(width - digits.size(), '0').append(digits);
}

// Takes the text apart from the left; once anything is missing, everything after is missing too.
class Scan {
 public:
  explicit Scan(std::string_view text) : rest_(text) {}

  int number(std::size_t width) {
    int value = 0;
    for (std::size_t i = 0; i < width; ++i) {
      if (i >= rest_.size() || !isDigit(rest_[i])) return fail();
      value = value * 10 + (rest_[i] - '0');
    }
    rest_.remove_prefix(width);
    return value;
  }

  char oneOf(std::string_view characters) {
    if (rest_.empty() || characters.find(rest_.front()) == std::string_view::npos) {
      fail();
      return '\0';
    }
    const char taken = rest_.front();
    rest_.remove_prefix(1);
    return taken;
  }

  nanoseconds fraction() {
    if (rest_.empty() || rest_.front() != '.') return {};
    rest_.remove_prefix(1);
    std::size_t width = 0;
    while (width < rest_.size() && isDigit(rest_[width])) ++width;
    if (width == 0 || width > 9) return nanoseconds(fail());
    int value = number(width);
    for (; width < 9; ++width) value *= 10;
    return nanoseconds(value);
  }

  bool isComplete() const { return !failed_ && rest_.empty(); }

 private:
  int fail() {
    failed_ = true;
    return 0;
  }

  std::string_view rest_;
  bool failed_ = false;
};

std::optional<Instant> instantAt(sys_seconds second, nanoseconds fraction) {
  // The whole seconds that nanoseconds of 64 bits can hold, one second less at the lower end, where
  // the fraction is added to a value that would not fit by itself.
  const Instant::duration::rep limit = duration_cast<seconds>(nanoseconds::max()).count();
  const auto count = second.time_since_epoch().count();
  if (count > limit || count < -limit - 1) return std::nullopt;
  std::int64_t value;
  if (count >= 0) {
    if (__builtin_add_overflow(count * 1'000'000'000, fraction.count(), &value))
      return std::nullopt;
  } else {
    // From the following second downward, so that no intermediate value overflows.
    const std::int64_t missing = fraction.count() - 1'000'000'000;
    if (__builtin_add_overflow((count + 1) * 1'000'000'000, missing, &value)) return std::nullopt;
  }
  return Instant(nanoseconds(value));
}

}  // namespace

std::string instantText(Instant instant) {
  const auto second = floor<seconds>(instant);
  const auto day = floor<days>(second);
  const year_month_day date(day);
  const hh_mm_ss time(second - day);
  std::string text;
  text.reserve(30);
  appendDigits(text, static_cast<int>(date.year()), 4);
  text += '-';
  appendDigits(text, static_cast<unsigned>(date.month()), 2);
  text += '-';
  appendDigits(text, static_cast<unsigned>(date.day()), 2);
  text += 'T';
  appendDigits(text, time.hours().count(), 2);
  text += ':';
  appendDigits(text, time.minutes().count(), 2);
  text += ':';
  appendDigits(text, time.seconds().count(), 2);

  // Not instant - second: the distance to the first representable second overflows.
  std::int64_t fraction = instant.time_since_epoch().count() % 1'000'000'000;
  if (fraction < 0) fraction += 1'000'000'000;
  std::size_t width = 9;
  for (; width != 0 && fraction % 1000 == 0; width -= 3) fraction /= 1000;
  if (width != 0) {
    text += '.';
    appendDigits(text, fraction, width);
  }
  text += 'Z';
  return text;
}

std::optional<Instant> instantFromText(std::string_view text) {
  Scan scan(text);
  const int yearNumber = scan.number(4);
  scan.oneOf("-");
  const int monthNumber = scan.number(2);
  scan.oneOf("-");
  const int dayNumber = scan.number(2);
  scan.oneOf("Tt");
  const int hour = scan.number(2);
  scan.oneOf(":");
  const int minute = scan.number(2);
  scan.oneOf(":");
  const int second = scan.number(2);
  const nanoseconds fraction = scan.fraction();
  const char zone = scan.oneOf("Zz+-");
  minutes offset{};
  if (zone == '+' || zone == '-') {
    const int offsetHour = scan.number(2);
    scan.oneOf(":");
    const int offsetMinute = scan.number(2);
    if (offsetHour > 23 || offsetMinute > 59) return std::nullopt;
    offset = hours(offsetHour) + minutes(offsetMinute);
    if (zone == '-') offset = -offset;
  }
  const year_month_day date(year(yearNumber), month(static_cast<unsigned>(monthNumber)),
                            day(static_cast<unsigned>(dayNumber)));
  if (!scan.isComplete() || !date.ok() || hour > 23 || minute > 59 || second > 59)
    return std::nullopt;
  return instantAt(sys_days(date) + hours(hour) + minutes(minute) + seconds(second) - offset,
                   fraction);
}

}  // namespace korrin
