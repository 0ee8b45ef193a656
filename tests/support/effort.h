#pragma once

// How much a test with many repetitions does. Sanitizers slow everything down, so the builds that
// carry them repeat less; the optimised builds go the whole way.

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

/// `full` repetitions, or `reduced` in a build with sanitizers.
constexpr int repetitions(int full, int reduced) { return isSanitized ? reduced : full; }

}  // namespace korrin::test
