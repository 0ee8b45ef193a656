#include "tests/support/heap_meter.h"

#include <atomic>
#include <cstdlib>
#include <new>

#include <malloc.h>

namespace korrin::test {
namespace {

std::atomic<std::size_t> inUse = 0;
std::atomic<std::size_t> peak = 0;

void* allocateIf(std::size_t size) noexcept {
  void* const memory = std::malloc(size);
  if (memory == nullptr) return nullptr;
  const std::size_t now = inUse += malloc_usable_size(memory);
  if (now > peak) peak = now;
  return memory;
}

void* allocate(std::size_t size) {
  void* const memory = allocateIf(size);
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}

void release(void* memory) {
  if (memory == nullptr) return;
  inUse -= malloc_usable_size(memory);
  std::free(memory);
}

}  // namespace

std::size_t peakHeapOf(const std::function<void()>& work) {
  const std::size_t before = inUse;
  peak = before;
  work();
  return peak - before;
}

}  // namespace korrin::test

void* operator new(std::size_t size) { return korrin::test::allocate(size); }
void* operator new[](std::size_t size) { return korrin::test::allocate(size); }
// Sorting asks for its buffer this way and does without when there is none.
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return korrin::test::allocateIf(size);
}
void operator delete(void* memory) noexcept { korrin::test::release(memory); }
void operator delete[](void* memory) noexcept { korrin::test::release(memory); }
void operator delete(void* memory, std::size_t) noexcept { korrin::test::release(memory); }
void operator delete[](void* memory, std::size_t) noexcept { korrin::test::release(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept {
  korrin::test::release(memory);
}
