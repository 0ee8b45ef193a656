#pragma once

// Looking for a few identifiers among very many.

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <vector>

#include "korrin/foundation/list.h"
#include "korrin/foundation/record.h"

namespace korrin {

/// Tells whether an identifier is in a set. Nearly all that are not are told by one bit, without
/// the division and the jumps in memory that a look-up in the set costs. The set must outlive the
/// filter.
class IDFilter {
 public:
  explicit IDFilter(const IDSet& ids) : ids_(ids) {
    if (areFew()) std::copy(ids.begin(), ids.end(), few_.begin());
    if (const std::size_t words = std::bit_ceil(ids.size() / idsPerWord + 1);
        words > shortFilter_.size()) {
      longFilter_.resize(words);
      words_ = longFilter_.data();
      mask_ = words - 1;
    }
    for (const UUID& id : ids) {
      const std::uint64_t half = secondHalfOf(id);
      words_[wordIndexOf(half)] |= std::uint64_t{1} << bitIndexOf(half);
    }
  }
  IDFilter(const IDFilter&) = delete;
  IDFilter& operator=(const IDFilter&) = delete;

  bool contains(const UUID& id) const {
    const std::uint64_t half = secondHalfOf(id);
    return (words_[wordIndexOf(half)] >> bitIndexOf(half) & 1) != 0 && ids_.contains(id);
  }
  bool contains(const std::optional<UUID>& id) const { return id && contains(*id); }
  bool containsAnyOf(const List<UUID>& ids) const {
    return std::any_of(ids.begin(), ids.end(), [this](const UUID& id) { return contains(id); });
  }

  /// Whether there are some, but so few that a list is asked for each of them faster than it is
  /// walked.
  bool areFew() const { return !ids_.empty() && ids_.size() <= few_.size(); }
  /// All of them, where they are few.
  std::span<const UUID> few() const { return std::span(few_).first(ids_.size()); }

 private:
  static constexpr std::size_t idsPerWord = 4;  // 16 bits for each

  // The bits that differ in random identifiers and in such as count up alike; were they the same in
  // all, the set would have to be asked each time, and no more.
  static std::uint64_t secondHalfOf(const UUID& id) {
    std::uint64_t half;
    std::memcpy(&half, id.bytes().data() + sizeof half, sizeof half);
    return half;
  }
  std::size_t wordIndexOf(std::uint64_t half) const { return half >> 44 & mask_; }
  static std::uint64_t bitIndexOf(std::uint64_t half) { return half >> 58; }

  const IDSet& ids_;
  std::array<UUID, 16> few_;
  std::array<std::uint64_t, 8> shortFilter_{};
  std::vector<std::uint64_t> longFilter_;
  std::uint64_t* words_ = shortFilter_.data();
  std::size_t mask_ = shortFilter_.size() - 1;
};

}  // namespace korrin
