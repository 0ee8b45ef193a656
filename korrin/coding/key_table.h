#pragma once

// Finds a key among those of a record, which are known when the program is compiled.

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "korrin/coding/quick_hash.h"

namespace korrin::json {

/// A hash table of `count` different keys.
template <std::size_t keyCount>
class KeyTable {
 public:
  static constexpr std::size_t count = keyCount;
  static constexpr std::size_t longestKey = 64;

  constexpr explicit KeyTable(const std::array<std::string_view, keyCount>& keys) : keys_(keys) {
    places_.fill(count);
    for (std::size_t place = 0; place < count; ++place) {
      if (keys[place].size() > longestKey) throw "a key longer than any search considers";
      places_[slotOf(keys[place])] = static_cast<std::uint8_t>(place);
    }
  }

  /// The place of `key` in the array that the table was made from, or `count` for any other text.
  constexpr std::size_t placeOf(std::string_view key) const { return places_[slotOf(key)]; }

 private:
  // Most slots stay empty, so that nearly every search ends where it begins, and every one ends.
  static constexpr std::size_t slotCount = 128;
  static_assert(count <= slotCount / 4);

  /// The slot that holds `key`, or the empty one where it would go.
  constexpr std::size_t slotOf(std::string_view key) const {
    std::size_t slot = quickHash(key) % slotCount;
    while (places_[slot] != count && keys_[places_[slot]] != key) slot = (slot + 1) % slotCount;
    return slot;
  }

  std::array<std::string_view, keyCount> keys_;
  std::array<std::uint8_t, slotCount> places_{};
};

}  // namespace korrin::json
