// Replaces the global operator new by one that counts and fails as allocations.h says.

#include <cstdlib>
#include <new>

#include "tests/support/allocations.h"

namespace {

void* allocate(std::size_t size) noexcept {
  return korrin::nextAllocationFails() ? nullptr : korrin::noteAllocation(std::malloc(size));
}

}  // namespace

void* operator new(std::size_t size) {
  void* const memory = allocate(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

// Sorting asks for its buffer this way and does without when there is none.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }

void operator delete(void* memory) noexcept {
  korrin::noteRelease(memory);
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { operator delete(memory); }
