#pragma once

// SipHash (Aumasson and Bernstein, 2012): a hash of bytes under a key of 128 bits. Who does not
// know the key cannot find inputs that share a hash more often than chance lets them.

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "korrin/foundation/words.h"

namespace korrin {

/// The hash of `bytes`, with so many rounds for each word and at the end. One and three are what
/// hash tables of several languages use; two and four are the authors' choice.
template <int roundsForAWord, int roundsAtTheEnd>
std::uint64_t sipHash(const std::array<std::uint64_t, 2>& key, std::string_view bytes) noexcept {
  std::uint64_t a = key[0] ^ 0x736F6D6570736575u;
  std::uint64_t b = key[1] ^ 0x646F72616E646F6Du;
  std::uint64_t c = key[0] ^ 0x6C7967656E657261u;
  std::uint64_t d = key[1] ^ 0x7465646279746573u;
  const auto mix = [&](int rounds) {
    for (int i = 0; i < rounds; ++i) {
      a += b;
      c += d;
      b = std::rotl(b, 13) ^ a;
      d = std::rotl(d, 16) ^ c;
      a = std::rotl(a, 32);
      c += b;
      a += d;
      b = std::rotl(b, 17) ^ c;
      d = std::rotl(d, 21) ^ a;
      c = std::rotl(c, 32);
    }
  };
  const auto take = [&](std::uint64_t word) {
    d ^= word;
    mix(roundsForAWord);
    a ^= word;
  };

  std::uint64_t last = static_cast<std::uint64_t>(bytes.size()) << 56;
  for (; bytes.size() >= 8; bytes.remove_prefix(8)) take(words::loadWord(bytes.data()));
  for (std::size_t i = 0; i < bytes.size(); ++i)
    last |= std::uint64_t{static_cast<unsigned char>(bytes[i])} << (8 * i);
  take(last);
  c ^= 0xFF;
  mix(roundsAtTheEnd);
  return a ^ b ^ c ^ d;
}

}  // namespace korrin
