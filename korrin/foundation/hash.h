#pragma once

// How the hash of a value with several parts is put together.

#include <cstddef>
#include <cstdint>

#pragma GCC visibility push(default)

namespace korrin {

/// The hash of "what `seed` stands for, followed by a part whose hash is `hash`". The order of the
/// parts matters, parts that are zero count, and every bit of both arguments reaches every bit of
/// the result, so that parts may hash to themselves as integers do. For one and the same `seed`
/// different hashes never give the same result.
constexpr std::size_t hashCombine(std::size_t seed, std::size_t hash) noexcept {
  std::uint64_t mixed = ((seed + 0x9E3779B97F4A7C15u) * 0xBF58476D1CE4E5B9u) ^ hash;
  mixed = (mixed ^ (mixed >> 32)) * 0x94D049BB133111EBu;
  return static_cast<std::size_t>(mixed ^ (mixed >> 29));
}

}  // namespace korrin

#pragma GCC visibility pop
