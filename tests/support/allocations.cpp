#include "tests/support/allocations.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <new>

#include <malloc.h>

namespace korrin {
namespace {

constexpr std::size_t unlimited = std::numeric_limits<std::size_t>::max();

// operator new has no other place to report to than one it can find by itself.
struct Account {
  std::ptrdiff_t live = 0;
  std::ptrdiff_t peak = 0;
  std::size_t count = 0;
  std::size_t left = unlimited;
};

thread_local constinit Account account;

}  // namespace

std::ptrdiff_t liveBytes() { return account.live; }
std::ptrdiff_t peakBytes() { return account.peak; }
void restartPeak() { account.peak = account.live; }
std::size_t allocationCount() { return account.count; }

AllocationLimit::AllocationLimit(std::size_t count) { account.left = count; }
AllocationLimit::~AllocationLimit() { account.left = unlimited; }

}  // namespace korrin

void* operator new(std::size_t size) {
  using korrin::account;
  if (account.left == 0) throw std::bad_alloc();
  if (account.left != korrin::unlimited) --account.left;
  void* const memory = std::malloc(size);
  if (memory == nullptr) throw std::bad_alloc();
  ++account.count;
  account.live += static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
  account.peak = std::max(account.peak, account.live);
  return memory;
}

void operator delete(void* memory) noexcept {
  korrin::account.live -= static_cast<std::ptrdiff_t>(malloc_usable_size(memory));
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }
