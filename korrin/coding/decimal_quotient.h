#pragma once

// The nearest double of a decimal of few digits, found without looking at its text again.

#include <cstdint>
#include <optional>

namespace korrin::json {

/// The double nearest to `digits` divided by ten to the power `decimals`, which is not negative;
/// halves go to the even one. Nothing where this way is not sure of it: for more than 27 decimals,
/// for about one quotient in 2^70, and for hard ones where the compiler has no integers of 128
/// bits.
std::optional<double> nearestQuotient(std::uint64_t digits, std::int64_t decimals);

}  // namespace korrin::json
