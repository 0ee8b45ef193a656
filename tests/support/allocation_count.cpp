#include "tests/support/allocation_count.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t>& counter() {
  static std::atomic<std::size_t> count{0};
  return count;
}

}  // namespace

void* operator new(std::size_t size) {
  ++counter();
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

std::size_t korrin::test::allocationCount() { return counter(); }
