#include "tests/support/allocations.h"

#include <algorithm>

#include <malloc.h>

namespace korrin {
namespace {

struct Account {
  std::ptrdiff_t live = 0;
  std::ptrdiff_t peak = 0;
  std::size_t count = 0;
  std::size_t left = AllocationLimit::unlimited;
  std::size_t failures = 0;
};

// The allocator has no other place to report to than one it can find by itself.
thread_local constinit Account account;

std::ptrdiff_t sizeOf(void* memory) {
  return static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
}

}  // namespace

std::ptrdiff_t liveBytes() { return account.live; }
std::ptrdiff_t peakBytes() { return account.peak; }
void restartPeak() { account.peak = account.live; }
std::size_t allocationCount() { return account.count; }

AllocationLimit::AllocationLimit(std::size_t count, std::size_t failures) {
  account.left = count;
  account.failures = failures;
}
AllocationLimit::~AllocationLimit() { account.left = unlimited; }

bool nextAllocationFails() {
  if (account.left == AllocationLimit::unlimited) return false;
  if (account.left > 0) {
    --account.left;
    return false;
  }
  if (account.failures == 0) return false;
  if (account.failures != AllocationLimit::unlimited) --account.failures;
  return true;
}

void* noteAllocation(void* memory) {
  if (memory == nullptr) return memory;
  ++account.count;
  account.live += sizeOf(memory);
  account.peak = std::max(account.peak, account.live);
  return memory;
}

void noteRelease(void* memory) { account.live -= sizeOf(memory); }

}  // namespace korrin
