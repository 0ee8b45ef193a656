#pragma once

// The nearest double of a decimal of few digits, found without looking at its text again.

#include <array>
#include <cfloat>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace korrin::json {

namespace detail {

inline constexpr std::array exactPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
// The other way takes the same time for all digits, where the border of 53 bits would divide what
// documents hold at random.
#ifdef __SIZEOF_INT128__
inline constexpr std::uint64_t exactLimit = 1'000'000'000'000'000;
#else
inline constexpr std::uint64_t exactLimit = std::uint64_t{1} << 53;
#endif

/// `nearestQuotient` of operands that are not both exact as doubles.
std::optional<double> nearestInexactQuotient(std::uint64_t digits, std::int64_t decimals);

}  // namespace detail

/// The double nearest to `digits` divided by ten to the power `decimals`, which is not negative;
/// halves go to the even one. Nothing where this way is not sure of it: for more than 27 decimals,
/// for about one quotient in 2^70, and for hard ones where the compiler has no integers of 128
/// bits.
inline std::optional<double> nearestQuotient(std::uint64_t digits, std::int64_t decimals) {
  const auto place = static_cast<std::size_t>(decimals);
  // Both operands are exact, so the quotient is the nearest double, if it is rounded only once.
  // Dividing by one takes less time than finding out that one need not.
  if (FLT_EVAL_METHOD == 0 && digits <= detail::exactLimit &&
      place < detail::exactPowersOfTen.size())
    return static_cast<double>(static_cast<std::int64_t>(digits)) / detail::exactPowersOfTen[place];
  return detail::nearestInexactQuotient(digits, decimals);
}

}  // namespace korrin::json
