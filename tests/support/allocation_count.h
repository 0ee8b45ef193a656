#pragma once

#include <cstddef>

namespace korrin::test {

/// How often anything was allocated so far, by any thread. A program that asks lists
/// allocation_count.cpp among its own sources: it replaces the global operator new.
std::size_t allocationCount();

}  // namespace korrin::test
