#pragma once

// Dates and non-finite numbers as the hosts' options have them.

#include <optional>
#include <string_view>

#include "korrin/coding/coding_options.h"
#include "korrin/foundation/instant.h"

namespace korrin::json {

/// The instant that a well-formed JSON number stands for under a numeric strategy, to the nearest
/// nanosecond; nothing outside the range of `Instant`.
std::optional<Instant> instantFromNumber(std::string_view number, DateStrategy strategy);

/// Writes the exact number that stands for `instant` under a numeric strategy; returns its end.
char* writeInstantNumber(char* out, Instant instant, DateStrategy strategy);

/// The value of "Infinity", "-Infinity" or "NaN"; nothing for any other text.
std::optional<double> nonFiniteNamed(std::string_view name);

/// The name of a value that is not finite.
std::string_view nonFiniteName(double value);

}  // namespace korrin::json
