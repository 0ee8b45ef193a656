#pragma once

// How far the local time of printed dates is ahead of UTC.

#include <chrono>
#include <string>

#include "korrin/foundation/instant.h"

namespace korrin::host {

/// Reads "+02:00", "-0530", "+2" or "UTC", at most 18 hours. Throws UsageError for any other word.
std::chrono::minutes utcOffsetFrom(const std::string& word);

/// That of this machine's time zone at that instant, its summer time included.
std::chrono::minutes localUtcOffset(Instant instant);

}  // namespace korrin::host
