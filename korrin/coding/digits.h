#pragma once

// Runs of decimal digits, up to eight at a time.

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "korrin/foundation/words.h"

namespace korrin::json {

inline constexpr std::array<std::uint64_t, 9> powersOfTen = {
    1, 10, 100, 1'000, 10'000, 100'000, 1'000'000, 10'000'000, 100'000'000};

/// How many bytes at the start of the word are digits.
inline std::size_t leadingDigits(std::uint64_t word) noexcept {
  // A digit's value is below 10, whatever its byte was: adding 0x76 leaves its high bit clear.
  const std::uint64_t values = word ^ words::everyByte * '0';
  const std::uint64_t others =
      (((values & ~words::highBits) + words::everyByte * 0x76) | values) & words::highBits;
  return static_cast<std::size_t>(std::countr_zero(others)) / 8;
}

/// The number that eight digits spell, the first in the lowest byte. A zero byte counts as 0.
inline std::uint64_t eightDigits(std::uint64_t word) noexcept {
  constexpr std::uint64_t lowBytes = 0x00FF00FF00FF00FFu;
  constexpr std::uint64_t lowPairs = 0x0000FFFF0000FFFFu;
  // Neighbours become one number each time: digits, then pairs, then fours.
  word &= words::everyByte * 0x0F;
  word = (word * 10 + (word >> 8)) & lowBytes;
  word = (word * 100 + (word >> 16)) & lowPairs;
  return (word * 10000 + (word >> 32)) & 0xFFFFFFFFu;
}

/// Appends the digits at `at` to the decimal number `value` and returns their end. The value wraps
/// where it does not fit.
inline const char* appendDigits(const char* at, const char* end, std::uint64_t& value) noexcept {
  while (end - at >= 8) {
    const std::uint64_t word = words::loadWord(at);
    const std::size_t count = leadingDigits(word);
    if (count == 0) return at;
    // Zeros take the place of what stands behind the digits, and lead the number.
    value = value * powersOfTen[count] + eightDigits(word << (64 - 8 * count));
    at += count;
    if (count < 8) return at;
  }
  for (; at != end && *at >= '0' && *at <= '9'; ++at)
    value = value * 10 + static_cast<std::uint64_t>(*at - '0');
  return at;
}

}  // namespace korrin::json
