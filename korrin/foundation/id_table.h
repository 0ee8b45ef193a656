#pragma once

// A set of identifiers for one pass over a plot: side by side in one block of memory, where
// std::unordered_set has an allocation for each.

#include <algorithm>
#include <bit>
#include <cstddef>
#include <functional>
#include <vector>

#include "korrin/foundation/uuid.h"

namespace korrin {

/// Grows up to the number of identifiers that it was made for. Nobody can choose identifiers that
/// share their places, since hashes have a key.
class IDTable {
 public:
  /// An empty table for at most `most` identifiers.
  // Half of the places or more stay free, so that a search soon comes to one.
  explicit IDTable(std::size_t most)
      : places_(std::bit_ceil(2 * std::max<std::size_t>(most, 1))), mask_(places_.size() - 1) {}

  /// Adds an identifier, unless it is there.
  void insert(const UUID& id) noexcept {
    if (id == UUID())
      hasNil_ = true;
    else
      places_[placeOf(id)] = id;
  }

  /// Whether the identifier has been added.
  bool contains(const UUID& id) const noexcept {
    return id == UUID() ? hasNil_ : places_[placeOf(id)] == id;
  }

 private:
  /// Where the identifier stands, or the free place that it would take.
  std::size_t placeOf(const UUID& id) const noexcept {
    std::size_t place = std::hash<UUID>{}(id)&mask_;
    while (places_[place] != id && places_[place] != UUID()) place = (place + 1) & mask_;
    return place;
  }

  std::vector<UUID> places_;  // nil where free
  std::size_t mask_;
  bool hasNil_ = false;
};

}  // namespace korrin
