#pragma once

// What the global operator new is made to do in test programs that list allocations.cpp among
// their sources: count, and fail on demand. Sees the allocations of the calling thread only.

#include <cstddef>

namespace korrin {

/// Heap memory got through operator new and not given back yet, in bytes as the allocator rounds
/// them.
std::ptrdiff_t liveBytes();

/// The most `liveBytes` has been since the last call of `restartPeak`.
std::ptrdiff_t peakBytes();
void restartPeak();

/// Number of calls of operator new so far.
std::size_t allocationCount();

/// While it lives, operator new throws std::bad_alloc once `count` more calls have succeeded.
class AllocationLimit {
 public:
  explicit AllocationLimit(std::size_t count);
  ~AllocationLimit();
  AllocationLimit(const AllocationLimit&) = delete;
  AllocationLimit& operator=(const AllocationLimit&) = delete;
};

}  // namespace korrin
