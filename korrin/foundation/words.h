#pragma once

// Eight bytes of a text at a time. A mark is the high bit of a byte; where several bytes of a word
// qualify, the first mark is right and those behind it may be too many.

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace korrin::words {

inline constexpr std::uint64_t everyByte = 0x0101010101010101u;
inline constexpr std::uint64_t highBits = everyByte * 0x80;

/// The eight bytes at `at`, the first one lowest, whatever the machine's order.
inline std::uint64_t loadWord(const char* at) noexcept {
  std::uint64_t word;
  std::memcpy(&word, at, sizeof word);
  return std::endian::native == std::endian::little ? word : __builtin_bswap64(word);
}

/// Marks the bytes that equal `byte`.
constexpr std::uint64_t bytesEqual(std::uint64_t word, char byte) noexcept {
  const std::uint64_t differing = word ^ everyByte * static_cast<unsigned char>(byte);
  return (differing - everyByte) & ~differing & highBits;
}

/// Marks the bytes below `limit`, which is at most 0x80.
constexpr std::uint64_t bytesBelow(std::uint64_t word, unsigned char limit) noexcept {
  return (word - everyByte * limit) & ~word & highBits;
}

/// Index of the first marked byte; there is one.
inline std::size_t firstMarked(std::uint64_t marks) noexcept {
  return static_cast<std::size_t>(std::countr_zero(marks)) / 8;
}

}  // namespace korrin::words
