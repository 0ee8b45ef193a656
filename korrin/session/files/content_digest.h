#pragma once

// Tells the contents of files apart: SHA-256, so that nobody can write other bytes that pass for
// those that were opened.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace korrin::files {

/// The SHA-256 digest of some bytes.
using ContentDigest = std::array<std::uint8_t, 32>;

/// Takes bytes piece by piece.
class ContentDigester {
 public:
  void add(std::string_view bytes);
  /// The digest of all bytes added. Nothing may be added afterwards.
  ContentDigest digest();

 private:
  void addBlock(const std::uint8_t* block);

  std::array<std::uint32_t, 8> state_ = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                         0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
  std::array<std::uint8_t, 64> block_{};
  std::size_t filled_ = 0;
  std::uint64_t length_ = 0;
};

ContentDigest digestOf(std::string_view bytes);

}  // namespace korrin::files
