#include "commands/utc_offset.h"

#include <algorithm>
#include <ctime>
#include <string_view>

#include "terminal/failure.h"

namespace korrin::host {
namespace {

/// The number that one or two digits write; -1 for all else.
int twoDigits(std::string_view digits) {
  const bool isNumber = !digits.empty() && digits.size() <= 2 &&
                        std::ranges::all_of(digits, [](char c) { return c >= '0' && c <= '9'; });
  if (!isNumber) return -1;
  int value = 0;
  for (const char digit : digits) value = 10 * value + (digit - '0');
  return value;
}

}  // namespace

std::chrono::minutes utcOffsetFrom(const std::string& word) {
  constexpr int farthest = 18 * 60;
  if (word == "UTC" || word == "Z") return std::chrono::minutes::zero();
  std::string_view digits = word;
  const bool isSigned = digits.starts_with('+') || digits.starts_with('-');
  if (isSigned) digits.remove_prefix(1);
  const std::size_t colon = digits.find(':');
  const std::size_t hoursEnd = std::min({colon, digits.size(), std::size_t{2}});
  const int hours = twoDigits(digits.substr(0, hoursEnd));
  digits.remove_prefix(hoursEnd);
  if (digits.starts_with(':')) digits.remove_prefix(1);
  const bool hasMinutes = !digits.empty();
  const int minutes = hasMinutes ? twoDigits(digits) : 0;
  const bool isOffset = isSigned && hours >= 0 && minutes >= 0 && minutes < 60 &&
                        (!hasMinutes || digits.size() == 2) && 60 * hours + minutes <= farthest;
  if (!isOffset)
    throw UsageError("\"" + word + "\" is no offset from UTC such as +02:00 or -05:30");
  const int total = 60 * hours + minutes;
  return std::chrono::minutes(word.starts_with('-') ? -total : total);
}

std::chrono::minutes localUtcOffset(Instant instant) {
  const std::time_t time =
      std::chrono::floor<std::chrono::seconds>(instant).time_since_epoch().count();
  std::tm local{};
  if (::localtime_r(&time, &local) == nullptr) return std::chrono::minutes::zero();
  return std::chrono::minutes(local.tm_gmtoff / 60);
}

}  // namespace korrin::host
