#include "korrin/foundation/hash.h"

#include <array>
#include <chrono>
#include <cstring>

#include <unistd.h>

#include "korrin/foundation/sip_hash.h"

namespace korrin {
namespace {

using PairKey = std::array<std::uint64_t, 5>;

struct HashKey {
  std::array<std::uint64_t, 2> bytes;
  std::array<PairKey, 2> pairs;
};

// Stands in where the system gives no random bytes, which must not be the end of an edit: where the
// program, the C library and the stack lie in memory, and the instant. They take effort to guess.
HashKey improvisedKey() {
  std::array<std::uint64_t, sizeof(HashKey) / sizeof(std::uint64_t)> words;
  const std::array<std::uint64_t, 4> facts = {
      reinterpret_cast<std::uintptr_t>(&improvisedKey),
      reinterpret_cast<std::uintptr_t>(&getentropy), reinterpret_cast<std::uintptr_t>(&words),
      static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count())};
  for (std::size_t i = 0; i < words.size(); ++i)
    words[i] = sipHash<2, 4>({i, 0}, {reinterpret_cast<const char*>(facts.data()), sizeof facts});
  HashKey key;
  static_assert(sizeof words == sizeof key);
  std::memcpy(&key, words.data(), sizeof key);
  return key;
}

// Drawn once in a process, on first use, which the compiler guards against races.
const HashKey& hashKey() noexcept {
  static const HashKey key = [] {
    HashKey drawn;
    return getentropy(&drawn, sizeof drawn) == 0 ? drawn : improvisedKey();
  }();
  return key;
}

// Dietzfelbinger's and Thorup's pair-multiply-shift of four words of 32 bits. For any two different
// inputs all pairs of results are equally likely, since the key is random; products of as many bits
// as a register has are enough for that.
std::uint32_t pairHash(const PairKey& key, std::uint64_t first, std::uint64_t second) noexcept {
  const auto low = [](std::uint64_t word) { return word & 0xFFFFFFFFu; };
  const auto high = [](std::uint64_t word) { return word >> 32; };
  const std::uint64_t sum = (key[0] + low(first)) * (key[1] + high(first)) +
                            (key[2] + low(second)) * (key[3] + high(second)) + key[4];
  return static_cast<std::uint32_t>(sum >> 32);
}

// Steele's, Lea's and Flood's finaliser of SplitMix: different numbers stay different. Without it
// inputs in a row would give results in a row, which under one key in a thousand crowd into few
// buckets.
std::uint64_t scattered(std::uint64_t number) noexcept {
  number = (number ^ (number >> 30)) * 0xBF58476D1CE4E5B9u;
  number = (number ^ (number >> 27)) * 0x94D049BB133111EBu;
  return number ^ (number >> 31);
}

}  // namespace

std::size_t hashCombine(std::uint64_t seed, std::uint64_t hash) noexcept {
  const HashKey& key = hashKey();
  const std::uint64_t upper = pairHash(key.pairs[0], seed, hash);
  return static_cast<std::size_t>(scattered(upper << 32 | pairHash(key.pairs[1], seed, hash)));
}

std::size_t hashBytes(std::string_view bytes) noexcept {
  return static_cast<std::size_t>(sipHash<1, 3>(hashKey().bytes, bytes));
}

}  // namespace korrin
