#pragma once

// The ends of what the numbers of a document hold.

#include <cstdint>
#include <limits>

namespace korrin::test {

inline constexpr std::int64_t highest = std::numeric_limits<std::int64_t>::max();
inline constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
inline constexpr double largest = std::numeric_limits<double>::max();
inline constexpr double smallest = std::numeric_limits<double>::denorm_min();  // above zero

}  // namespace korrin::test
