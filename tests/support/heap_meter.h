#pragma once

// Measures how much memory a piece of work takes through operator new. A program that links
// heap_meter.cpp has these operators replaced.

#include <cstddef>
#include <functional>

namespace korrin::test {

/// The most memory in use at one time while `work` ran, above what was in use before.
std::size_t peakHeapOf(const std::function<void()>& work);

}  // namespace korrin::test
