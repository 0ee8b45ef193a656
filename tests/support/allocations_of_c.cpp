// Replaces malloc and its kin, beneath operator new too, by functions that count and fail as
// allocations.h says. Rests on glibc, and cannot stand beside a sanitizer that replaces the same.

#include <cerrno>
#include <cstddef>

#include "tests/support/allocations.h"

extern "C" {

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void __libc_free(void* memory);

void* malloc(std::size_t size) {
  if (!korrin::nextAllocationFails()) return korrin::noteAllocation(__libc_malloc(size));
  errno = ENOMEM;
  return nullptr;
}

void* calloc(std::size_t count, std::size_t size) {
  if (!korrin::nextAllocationFails()) return korrin::noteAllocation(__libc_calloc(count, size));
  errno = ENOMEM;
  return nullptr;
}

void* realloc(void* memory, std::size_t size) {
  if (korrin::nextAllocationFails()) {
    errno = ENOMEM;
    return nullptr;
  }
  korrin::noteRelease(memory);
  return korrin::noteAllocation(__libc_realloc(memory, size));
}

void free(void* memory) {
  korrin::noteRelease(memory);
  __libc_free(memory);
}

}  // extern "C"
