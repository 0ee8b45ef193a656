#include "korrin/coding/date_coding.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>

#include "korrin/coding/json_number.h"

namespace korrin::json {
namespace {

// A numeric strategy: how many digits of its unit's fraction nanoseconds fill, and where it counts
// from, in nanoseconds since 1970.
struct Scale {
  int decimals;
  std::int64_t origin;
};

Scale scaleOf(DateStrategy strategy) {
  if (strategy == DateStrategy::millisecondsSince1970) return {.decimals = 6, .origin = 0};
  if (strategy == DateStrategy::secondsSinceReferenceDate)
    return {.decimals = 9, .origin = 978'307'200'000'000'000};
  return {.decimals = 9, .origin = 0};
}

struct NamedValue {
  std::string_view name;
  double value;
};
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr std::array nonFiniteValues = {
    NamedValue{"Infinity", infinity},
    NamedValue{"-Infinity", -infinity},
    NamedValue{"NaN", std::numeric_limits<double>::quiet_NaN()},
};

}  // namespace

std::optional<Instant> instantFromNumber(std::string_view number, DateStrategy strategy) {
  const Scale scale = scaleOf(strategy);
  const auto count = scaledInteger(number, scale.decimals, scale.origin);
  if (!count) return std::nullopt;
  return Instant(std::chrono::nanoseconds(*count));
}

char* writeInstantNumber(char* out, Instant instant, DateStrategy strategy) {
  const Scale scale = scaleOf(strategy);
  return writeScaledInteger(out, instant.time_since_epoch().count(), scale.decimals, scale.origin);
}

std::optional<double> nonFiniteNamed(std::string_view name) {
  for (const NamedValue& named : nonFiniteValues)
    if (named.name == name) return named.value;
  return std::nullopt;
}

std::string_view nonFiniteName(double value) {
  if (std::isnan(value)) return nonFiniteValues[2].name;
  return nonFiniteValues[value > 0 ? 0 : 1].name;
}

}  // namespace korrin::json
