#pragma once

// How values are hashed. Whoever writes a document chooses its identifiers and texts. If hashes
// could be foreseen, a document could fill a table with values that all share one, and every
// look-up would take as long as a search. So all hashes depend on a key that each process draws
// from the operating system's generator when it first needs one.
//
// Hashes therefore differ from one run of a program to the next, and so does the order in which a
// hash table is walked. Nothing that is stored, printed or returned in an order may follow from
// them.

#include <cstddef>
#include <cstdint>
#include <string_view>

#pragma GCC visibility push(default)

namespace korrin {

/// The hash of "what `seed` stands for, followed by a part whose hash is `hash`". The order of the
/// parts matters, parts that are zero count, and parts may hash to themselves as integers do. Two
/// pairs that were chosen without knowledge of the key share a hash with a probability of 2 to the
/// power of -64 (of -32 where `std::size_t` has 32 bits).
std::size_t hashCombine(std::uint64_t seed, std::uint64_t hash) noexcept;

/// The hash of bytes of any number.
std::size_t hashBytes(std::string_view bytes) noexcept;

}  // namespace korrin

#pragma GCC visibility pop
