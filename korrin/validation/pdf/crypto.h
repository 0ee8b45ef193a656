#pragma once

// The few cryptographic primitives that the standard security handler is made of, in the shapes it
// needs. All are one call over bytes at hand; none is used to protect anything.

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace korrin::pdf {

using ByteView = std::span<const std::byte>;

std::array<std::byte, 16> md5(ByteView bytes);
std::array<std::byte, 32> sha256(ByteView bytes);
std::array<std::byte, 48> sha384(ByteView bytes);
std::array<std::byte, 64> sha512(ByteView bytes);

/// The RC4 key stream, combined with whatever passes through.
class Rc4 {
 public:
  explicit Rc4(ByteView key);
  /// Writes as many bytes as `in` has to `out`, which may be the same memory.
  void apply(ByteView in, std::byte* out);

 private:
  std::array<std::uint8_t, 256> state_;
  std::uint8_t i_ = 0;
  std::uint8_t j_ = 0;
};

using AesBlock = std::array<std::byte, 16>;

/// AES in CBC mode with a key of 16 or 32 bytes. `in` is a multiple of 16 bytes, `out` takes as
/// many and may be the same memory; `chain` is the initial vector and is left as the next call
/// needs it.
void encryptAesCbc(ByteView key, AesBlock& chain, ByteView in, std::byte* out);
void decryptAesCbc(ByteView key, AesBlock& chain, ByteView in, std::byte* out);

}  // namespace korrin::pdf
