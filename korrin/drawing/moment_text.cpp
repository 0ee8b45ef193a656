#include "korrin/drawing/moment_text.h"

#include <algorithm>

namespace korrin::drawing {
namespace {

using std::chrono::minutes;

void addNumber(std::string& text, int value, std::size_t digits) {
  const std::string number = std::to_string(value);
  text.append(digits - std::min(digits, number.size()), '0').append(number);
}

void addTime(std::string& text, minutes time) {
  addNumber(text, static_cast<int>(time.count() / 60), 2);
  text += ':';
  addNumber(text, static_cast<int>(time.count() % 60), 2);
}

}  // namespace

std::string momentText(Instant instant, minutes utcOffset) {
  constexpr minutes farthest{99 * 60 + 59};
  const minutes offset = std::clamp(utcOffset, -farthest, farthest);
  // In minutes the sum cannot leave the range, as it could in nanoseconds.
  const auto local = std::chrono::floor<minutes>(instant) + offset;
  const auto day = std::chrono::floor<std::chrono::days>(local);
  const std::chrono::year_month_day date(day);
  std::string text;
  addNumber(text, static_cast<int>(date.year()), 4);
  text += '-';
  addNumber(text, static_cast<int>(static_cast<unsigned>(date.month())), 2);
  text += '-';
  addNumber(text, static_cast<int>(static_cast<unsigned>(date.day())), 2);
  text += ' ';
  addTime(text, local - day);
  text += offset < minutes::zero() ? " UTC-" : " UTC+";
  addTime(text, std::chrono::abs(offset));
  return text;
}

}  // namespace korrin::drawing
