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
Step step(std::string_view text) noexcept;

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
