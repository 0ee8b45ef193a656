#pragma once

// Points in time as sheets print them.

#include <chrono>
#include <string>

#include "korrin/foundation/instant.h"

namespace korrin::drawing {

/// "2026-07-18 20:30 UTC+02:00": the minute in local time, cut down, and how far local time is
/// ahead of UTC. An offset beyond 99:59 counts as 99:59.
std::string momentText(Instant instant, std::chrono::minutes utcOffset);

}  // namespace korrin::drawing
