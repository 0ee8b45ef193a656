#pragma once

// Instants as RFC 3339 text.

#include <optional>
#include <string>
#include <string_view>

#include "korrin/foundation/instant.h"

namespace korrin {

/// The instant in UTC, such as "2026-07-18T18:30:00.250Z", with as many of 0, 3, 6 or 9 fraction
/// digits as it needs.
std::string instantText(Instant instant);

/// Reads a date and time with any offset and 0 to 9 fraction digits; "T" and "Z" in either letter
/// case. Nothing for any other text, for a date that no calendar has, for a leap second, and for an
/// instant outside the range of `Instant`.
std::optional<Instant> instantFromText(std::string_view text);

}  // namespace korrin
