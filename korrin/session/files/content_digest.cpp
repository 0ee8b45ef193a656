#include "korrin/session/files/content_digest.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace korrin::files {
namespace {

// The first 32 bits of the fractional parts of the cube roots of the first 64 primes.
constexpr std::array<std::uint32_t, 64> roundConstants = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

std::uint32_t wordAt(const std::uint8_t* bytes) {
  return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 |
         std::uint32_t{bytes[2]} << 8 | std::uint32_t{bytes[3]};
}

}  // namespace

void ContentDigester::addBlock(const std::uint8_t* block) {
  std::array<std::uint32_t, 64> schedule;
  for (std::size_t i = 0; i < 16; ++i) schedule[i] = wordAt(block + 4 * i);
  for (std::size_t i = 16; i < 64; ++i) {
    const std::uint32_t a = schedule[i - 15];
    const std::uint32_t b = schedule[i - 2];
    schedule[i] = schedule[i - 16] + (std::rotr(a, 7) ^ std::rotr(a, 18) ^ a >> 3) +
                  schedule[i - 7] + (std::rotr(b, 17) ^ std::rotr(b, 19) ^ b >> 10);
  }
  auto [a, b, c, d, e, f, g, h] = state_;
  for (std::size_t i = 0; i < 64; ++i) {
    const std::uint32_t first = h + (std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25)) +
                                ((e & f) ^ (~e & g)) + roundConstants[i] + schedule[i];
    const std::uint32_t second =
        (std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22)) + ((a & b) ^ (a & c) ^ (b & c));
    h = g;
    g = f;
    f = e;
    e = d + first;
    d = c;
    c = b;
    b = a;
    a = first + second;
  }
  const std::array<std::uint32_t, 8> added = {a, b, c, d, e, f, g, h};
  for (std::size_t i = 0; i < 8; ++i) state_[i] += added[i];
}

void ContentDigester::add(std::string_view bytes) {
  length_ += bytes.size();
  while (!bytes.empty()) {
    if (filled_ == 0 && bytes.size() >= block_.size()) {
      addBlock(reinterpret_cast<const std::uint8_t*>(bytes.data()));
      bytes.remove_prefix(block_.size());
      continue;
    }
    const std::size_t taken = std::min(block_.size() - filled_, bytes.size());
    std::memcpy(block_.data() + filled_, bytes.data(), taken);
    bytes.remove_prefix(taken);
    filled_ += taken;
    if (filled_ != block_.size()) continue;
    addBlock(block_.data());
    filled_ = 0;
  }
}

ContentDigest ContentDigester::digest() {
  const std::uint64_t bits = length_ * 8;
  std::array<char, 72> padding{};
  padding[0] = static_cast<char>(0x80);
  const std::size_t zeroes = (filled_ < 56 ? 55 : 119) - filled_;
  for (std::size_t i = 0; i < 8; ++i)
    padding[1 + zeroes + i] = static_cast<char>(bits >> (56 - 8 * i) & 0xFF);
  add({padding.data(), 1 + zeroes + 8});
  ContentDigest digest;
  for (std::size_t i = 0; i < digest.size(); ++i)
    digest[i] = static_cast<std::uint8_t>(state_[i / 4] >> (24 - 8 * (i % 4)) & 0xFF);
  return digest;
}

ContentDigest digestOf(std::string_view bytes) {
  ContentDigester digester;
  digester.add(bytes);
  return digester.digest();
}

}  // namespace korrin::files
