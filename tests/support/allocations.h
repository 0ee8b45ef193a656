#pragma once

// Counts allocations and makes them fail on demand, for the calling thread only. A test program
// lists one more source that leads them here: allocations_of_new.cpp those of operator new,
// allocations_of_c.cpp all, those of C libraries beneath this one among them.

#include <cstddef>
#include <limits>

namespace korrin {

/// Heap memory got and not given back yet, in bytes as the allocator rounds them.
std::ptrdiff_t liveBytes();

/// The most `liveBytes` has been since the last call of `restartPeak`.
std::ptrdiff_t peakBytes();
void restartPeak();

/// Number of allocations so far.
std::size_t allocationCount();

/// While it lives, allocations fail once `count` more have succeeded: `failures` of them, or all.
class AllocationLimit {
 public:
  static constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();

  explicit AllocationLimit(std::size_t count, std::size_t failures = unlimited);
  ~AllocationLimit();
  AllocationLimit(const AllocationLimit&) = delete;
  AllocationLimit& operator=(const AllocationLimit&) = delete;
};

/// For the sources that lead allocations here: whether the next one is to fail, and what became of
/// those that did not. Null counts for nothing.
bool nextAllocationFails();
void* noteAllocation(void* memory);
void noteRelease(void* memory);

}  // namespace korrin
