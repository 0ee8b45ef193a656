#pragma once

// UTF-8 at the byte level: what Text and the document reader both need to know about
// well-formedness.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "korrin/foundation/words.h"

namespace korrin::utf8 {

/// One step through a text: a scalar value and the bytes it takes, or an ill-formed sequence.
struct Step {
  char32_t scalar;     ///< Meaningless when ill-formed.
  std::size_t length;  ///< Bytes consumed, at least 1; for an ill-formed sequence its maximal part.
  bool isWellFormed;
};

/// Reads the sequence at the start of `text`, which must not be empty.
inline Step step(std::string_view text) noexcept {
  const unsigned lead = static_cast<unsigned char>(text[0]);
  if (lead < 0x80) return {lead, 1, true};

  // The second byte alone excludes overlong forms, surrogates and values above U+10FFFF.
  std::size_t length;
  unsigned secondLow = 0x80;
  unsigned secondHigh = 0xBF;
  char32_t scalar;
  if (lead >= 0xC2 && lead <= 0xDF) {
    length = 2;
    scalar = lead & 0x1F;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    length = 3;
    scalar = lead & 0x0F;
    if (lead == 0xE0) secondLow = 0xA0;
    if (lead == 0xED) secondHigh = 0x9F;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    length = 4;
    scalar = lead & 0x07;
    if (lead == 0xF0) secondLow = 0x90;
    if (lead == 0xF4) secondHigh = 0x8F;
  } else {
    return {0, 1, false};
  }
  for (std::size_t i = 1; i < length; ++i) {
    if (i >= text.size()) return {0, i, false};
    const unsigned byte = static_cast<unsigned char>(text[i]);
    if (byte < secondLow || byte > secondHigh) return {0, i, false};
    secondLow = 0x80;
    secondHigh = 0xBF;
    scalar = scalar << 6 | (byte & 0x3F);
  }
  return {scalar, length, true};
}

/// Appends the UTF-8 form of `scalar`, which must be a Unicode scalar value.
void append(std::string& text, char32_t scalar);

/// Number of bytes at the start of `text` that form complete, well-formed sequences.
std::size_t wellFormedPrefix(std::string_view text) noexcept;

/// Whether every byte of `text` is below `limit`, which is at least 0x80. Eight bytes are looked at
/// a time.
inline bool allBytesBelow(std::string_view text, unsigned char limit) noexcept {
  const char* at = text.data();
  std::size_t left = text.size();
  for (; left >= 8; at += 8, left -= 8) {
    const std::uint64_t word = words::loadWord(at);
    if ((word & words::highBits) == 0) continue;
    // A byte of at least `limit` has its high bit set and carries into it again when raised.
    const std::uint64_t raised = (word & ~words::highBits) + words::everyByte * (0x100u - limit);
    if ((word & raised & words::highBits) != 0) return false;
  }
  for (; left != 0; ++at, --left)
    if (static_cast<unsigned char>(*at) >= limit) return false;
  return true;
}

inline bool isASCII(std::string_view text) noexcept { return allBytesBelow(text, 0x80); }

}  // namespace korrin::utf8
