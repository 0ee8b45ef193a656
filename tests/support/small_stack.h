#pragma once

// Runs a function in a thread whose stack is as small as the host's worker threads may have.

#include <cstddef>
#include <functional>

namespace korrin::test {

/// The stack in which every check on embedded images must work. The checks on raster images do so
/// under the sanitizers as well, which surround every local variable with guards.
inline constexpr std::size_t smallStackBytes = 128 * 1024;

/// Runs `function` to its end in a new thread with a stack of `bytes`. Throws std::system_error
/// when there is no such thread to be had. An error that leaves `function` ends the program.
void runOnStack(std::size_t bytes, const std::function<void()>& function);

}  // namespace korrin::test
