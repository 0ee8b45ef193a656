#pragma once

// Points in time.

#include <chrono>

#pragma GCC visibility push(default)

namespace korrin {

/// A point in time in UTC, in nanoseconds since 1970-01-01T00:00:00Z, leap seconds not counted:
/// from 1677-09-21 to 2262-04-11.
using Instant = std::chrono::sys_time<std::chrono::nanoseconds>;

}  // namespace korrin

#pragma GCC visibility pop
