#pragma once

// Runs of decimal digits: how many there are, and the number that they spell. Vector instructions
// where every machine of the target has them, words of eight bytes elsewhere.

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "korrin/coding/text_block.h"
#include "korrin/foundation/words.h"

namespace korrin::json {

inline constexpr std::array powersOfTen = [] {
  std::array<std::uint64_t, blockSize + 1> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 10;
  return powers;
}();

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

namespace detail {

inline std::size_t digitsInWords(const char* at) noexcept {
  const std::size_t count = leadingDigits(words::loadWord(at));
  return count < 8 ? count : 8 + leadingDigits(words::loadWord(at + 8));
}

inline std::uint64_t lastDigitsInWords(const char* end, std::size_t count) noexcept {
  // Zeros take the place of what stands before the digits.
  const auto ofOneWord = [](const char* wordEnd, std::size_t countOfWord) {
    const std::size_t others = 64 - 8 * countOfWord;
    return eightDigits(words::loadWord(wordEnd - 8) >> others << others);
  };
  if (count <= 8) return ofOneWord(end, count);
  return ofOneWord(end - 8, count - 8) * powersOfTen[8] + ofOneWord(end, 8);
}

}  // namespace detail

#if defined(__SSE2__)

/// How many digits stand at the start of the block.
inline std::size_t digitsInBlock(const char* at) noexcept {
  const __m128i values = _mm_sub_epi8(detail::loadBlock(at), _mm_set1_epi8('0'));
  const __m128i digits = _mm_cmpeq_epi8(_mm_min_epu8(values, _mm_set1_epi8(9)), values);
  return detail::firstMarked(~static_cast<unsigned>(_mm_movemask_epi8(digits)));
}

/// The number that the last `count` bytes before `end` spell, 1 to 16 digits. Reads the whole block
/// before `end`.
inline std::uint64_t lastDigits(const char* end, std::size_t count) noexcept {
  // Seen from place `count`, a block in which as many bytes at the end let a digit's value pass.
  static constexpr std::array masks = [] {
    std::array<char, 2 * blockSize> bytes{};
    for (std::size_t i = blockSize; i < bytes.size(); ++i) bytes[i] = 0x0F;
    return bytes;
  }();
  const __m128i digits =
      _mm_and_si128(detail::loadBlock(end - blockSize), detail::loadBlock(masks.data() + count));
  // Neighbours become one number each time: digits, then pairs, then fours.
  const __m128i pairs = _mm_srli_epi16(_mm_mullo_epi16(digits, _mm_set1_epi16(10 << 8 | 1)), 8);
  const __m128i fours = _mm_madd_epi16(pairs, _mm_set1_epi32(1 << 16 | 100));
  const __m128i eights =
      _mm_madd_epi16(_mm_packs_epi32(fours, fours), _mm_set1_epi32(1 << 16 | 10'000));
  std::uint64_t halves;
  _mm_storel_epi64(reinterpret_cast<__m128i*>(&halves), eights);
  return (halves & 0xFFFFFFFFu) * powersOfTen[8] + (halves >> 32);
}

#else

/// How many digits stand at the start of the block.
inline std::size_t digitsInBlock(const char* at) noexcept { return detail::digitsInWords(at); }

/// The number that the last `count` bytes before `end` spell, 1 to 16 digits. Reads the whole block
/// before `end`.
inline std::uint64_t lastDigits(const char* end, std::size_t count) noexcept {
  return detail::lastDigitsInWords(end, count);
}

#endif

}  // namespace korrin::json
