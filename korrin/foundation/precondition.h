#pragma once

// The one check for broken preconditions: mistakes of the calling program that no value could
// report. It is always on, in every build.

#pragma GCC visibility push(default)

namespace korrin {

/// Writes `message` as one line to standard error and ends the program.
[[noreturn]] void abortWith(const char* message) noexcept;

/// Ends the program when `holds` is false; `message` says which rule the caller broke.
constexpr void precondition(bool holds, const char* message) noexcept {
  if (!holds) [[unlikely]]
    abortWith(message);
}

}  // namespace korrin

#pragma GCC visibility pop
