#pragma once

// A clock for waiting, beside the one that tells the date.

#include <chrono>

#pragma GCC visibility push(default)

namespace korrin {

/// The time since some moment that stays the same while the process runs. It never goes back,
/// whatever is done to the system's date; it stands still while the machine sleeps.
std::chrono::nanoseconds steadyTime() noexcept;

}  // namespace korrin

#pragma GCC visibility pop
