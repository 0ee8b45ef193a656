#pragma once

// How much a test with many repetitions does. Sanitizers and the counting of what is reached slow
// everything down, so the builds that carry them repeat less; the optimised builds go the whole
// way, unless KORRIN_TEST_REDUCED is set, as for Valgrind.

#include <cstdlib>

namespace korrin::test {

#if defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
inline constexpr bool isSanitized = true;
#else
inline constexpr bool isSanitized = false;
#endif
#elif defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
inline constexpr bool isSanitized = true;
#else
inline constexpr bool isSanitized = false;
#endif

#if defined(__LLVM_INSTR_PROFILE_GENERATE)
inline constexpr bool isCounted = true;
#else
inline constexpr bool isCounted = false;
#endif

/// `full` repetitions, or `reduced` where they are slow.
inline int repetitions(int full, int reduced) {
  static const bool isSlow =
      isSanitized || isCounted || std::getenv("KORRIN_TEST_REDUCED") != nullptr;
  return isSlow ? reduced : full;
}

}  // namespace korrin::test
