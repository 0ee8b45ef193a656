#pragma once

// Sixteen bytes of a text at a time: how many at their start are of one kind. Vector instructions
// where every machine of the target has them, words of eight bytes elsewhere.

#include <bit>
#include <cstddef>
#include <cstdint>

#include "korrin/foundation/words.h"

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace korrin::json {

/// The bytes that the functions below read.
inline constexpr std::size_t blockSize = 16;

namespace detail {

/// What is found in a block from what is found in a word, `blockSize` where nothing is.
template <class Marks>
std::size_t firstInWords(const char* at, Marks marks) noexcept {
  for (std::size_t offset = 0; offset < blockSize; offset += 8)
    if (const std::uint64_t found = marks(words::loadWord(at + offset)); found != 0)
      return offset + words::firstMarked(found);
  return blockSize;
}

/// Marks every byte, and no other, that is neither of the four blanks of JSON.
inline std::uint64_t inkMarks(std::uint64_t word) noexcept {
  const auto differs = [word](char blank) {
    const std::uint64_t bits = word ^ words::everyByte * static_cast<unsigned char>(blank);
    return ((bits & ~words::highBits) + ~words::highBits) | bits;
  };
  return differs(' ') & differs('\n') & differs('\r') & differs('\t') & words::highBits;
}

/// Marks the first byte that ends a run of plain characters.
inline std::uint64_t specialMarks(std::uint64_t word) noexcept {
  return words::bytesEqual(word, '"') | words::bytesEqual(word, '\\') |
         words::bytesBelow(word, 0x20) | (word & words::highBits);
}

inline std::size_t blanksInWords(const char* at) noexcept { return firstInWords(at, inkMarks); }
inline std::size_t plainInWords(const char* at) noexcept { return firstInWords(at, specialMarks); }

}  // namespace detail

#if defined(__SSE2__)

namespace detail {

inline __m128i loadBlock(const char* at) noexcept {
  return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
}
inline __m128i equal(__m128i block, char byte) noexcept {
  return _mm_cmpeq_epi8(block, _mm_set1_epi8(byte));
}
/// Index of the first byte that is marked in all its bits, `blockSize` where none is.
inline std::size_t firstMarked(unsigned marks) noexcept {
  return static_cast<std::size_t>(std::countr_zero(marks | 1u << blockSize));
}
/// The bytes of the block that are no blanks, a bit for each.
inline unsigned inkInBlock(const char* at) noexcept {
  const __m128i block = loadBlock(at);
  const __m128i blanks = _mm_or_si128(_mm_or_si128(equal(block, ' '), equal(block, '\n')),
                                      _mm_or_si128(equal(block, '\r'), equal(block, '\t')));
  return ~static_cast<unsigned>(_mm_movemask_epi8(blanks)) & 0xFFFFu;
}

}  // namespace detail

/// How many blanks of JSON stand at the start of the block.
inline std::size_t blanksInBlock(const char* at) noexcept {
  return detail::firstMarked(detail::inkInBlock(at));
}

/// Whether exactly `count` blanks, fewer than a block, stand at the start of the block. The
/// processor can go on behind them before it knows, which it cannot where it must count them.
inline bool standBlanks(const char* at, std::size_t count) noexcept {
  using namespace detail;
  const unsigned ink = inkInBlock(at);
  return (ink & ((2u << count) - 1)) == 1u << count;
}

/// How many plain characters stand at the start of the block: ASCII, but no control character,
/// quotation mark or backslash.
inline std::size_t plainInBlock(const char* at) noexcept {
  using namespace detail;
  const __m128i block = loadBlock(at);
  // As signed bytes those outside ASCII are negative: below a blank too.
  const __m128i special = _mm_or_si128(_mm_cmplt_epi8(block, _mm_set1_epi8(' ')),
                                       _mm_or_si128(equal(block, '"'), equal(block, '\\')));
  return firstMarked(static_cast<unsigned>(_mm_movemask_epi8(special)));
}

#else

/// How many blanks of JSON stand at the start of the block.
inline std::size_t blanksInBlock(const char* at) noexcept { return detail::blanksInWords(at); }

/// Whether exactly `count` blanks, fewer than a block, stand at the start of the block.
inline bool standBlanks(const char* at, std::size_t count) noexcept {
  return blanksInBlock(at) == count;
}

/// How many plain characters stand at the start of the block: ASCII, but no control character,
/// quotation mark or backslash.
inline std::size_t plainInBlock(const char* at) noexcept { return detail::plainInWords(at); }

#endif

}  // namespace korrin::json
