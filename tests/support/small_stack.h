#pragma once

// Runs a function in a thread whose stack is as small as the host's worker threads may have.

#include <cstddef>
#include <functional>

namespace korrin::test {

/// The stack in which every check on embedded images must work: 128 KiB. The address and thread
/// sanitizers surround every local variable with guards and take the stack of several frames for
/// their own handling of a thrown error, so that builds with them are given 1 MiB: they look for
/// runaway recursion, the other builds for the true limit.
extern const std::size_t smallStackBytes;

/// Runs `function` to its end in a new thread with a stack of `bytes`. Throws std::system_error
/// when there is no such thread to be had. An error that leaves `function` ends the program.
void runOnStack(std::size_t bytes, const std::function<void()>& function);

}  // namespace korrin::test
