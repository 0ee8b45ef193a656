#pragma once

// The upper half of a List's storage: the row of its leaves. Hosts use List (list.h), never this.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>
#include <utility>

#include "korrin/foundation/list_leaf.h"
#include "korrin/foundation/precondition.h"
#include "korrin/foundation/shared.h"

#pragma GCC visibility push(default)

namespace korrin::detail {

/// The leaves of one list and all its unchanged copies, each with the index at which it ends, in
/// memory for `capacity()` leaves. No leaf is empty, except that a list of no elements may keep one
/// leaf with room. Only a spine with a single owner may be changed.
///
/// An undo entry keeps a spine, so that it is small: ends stand apart from the leaves and take two
/// bytes, counted from the start of their stretch of 512 leaves. Memory holds, one after the other,
/// this object, the leaves, the starts of all stretches but the first, and the ends.
template <class T>
class ListSpine : public Counted {
 public:
  using Leaf = ListLeaf<T>;

  /// A spine of no leaves with room for `capacity`, at least one.
  static Shared<ListSpine> make(std::size_t capacity) {
    static_assert(sizeof(ListSpine) % alignof(Shared<Leaf>) == 0);
    const std::size_t bytes = sizeof(ListSpine) + capacity * (sizeof(Shared<Leaf>) + sizeof(End)) +
                              laterStretchesOf(capacity) * sizeof(std::size_t);
    return Shared<ListSpine>::adopt(::new (::operator new(bytes)) ListSpine(capacity));
  }
  static void destroy(ListSpine* spine) noexcept {
    std::destroy_n(spine->leaves(), spine->leafCount_);
    std::destroy_at(spine);
    ::operator delete(spine);
  }

  std::size_t leafCount() const noexcept { return leafCount_; }
  std::size_t capacity() const noexcept { return capacity_; }
  std::size_t size() const noexcept { return startOf(leafCount_); }

  Leaf& leaf(std::size_t k) noexcept { return *leaves()[k]; }
  const Leaf& leaf(std::size_t k) const noexcept { return *leaves()[k]; }
  const Shared<Leaf>& sharedLeaf(std::size_t k) const noexcept { return leaves()[k]; }

  /// Index of the first element of leaf `k`; the size when `k` is the number of leaves.
  std::size_t startOf(std::size_t k) const noexcept { return k == 0 ? 0 : endOf(k - 1); }
  std::size_t countOf(std::size_t k) const noexcept { return endOf(k) - startOf(k); }

  /// The leaf that holds element `index`. Aborts when there is no such element.
  std::size_t leafOf(std::size_t index) const noexcept {
    // No leaf holds more than `maximum`, hence the leaf cannot be an earlier one than this.
    const std::size_t earliest = index / Leaf::maximum;
    if (earliest < leafCount_ && index < endOf(earliest)) [[likely]]
      return earliest;
    return laterLeafOf(index, earliest);
  }

  // The changes below need room for the leaves they add.

  /// Adds a slot to the last leaf, which is this spine's own and not full, and hands it out.
  typename Leaf::Slot& appendSlot(typename Leaf::Slot slot) noexcept {
    const std::size_t last = leafCount_ - 1;
    ++ends()[last];
    return leaves()[last]->append(std::move(slot));
  }

  /// Adds a leaf that holds `count` elements, or will at once.
  void append(Shared<Leaf> leaf, std::size_t count) noexcept {
    const std::size_t k = leafCount_;
    const bool startsStretch = k % stretch == 0;
    if (startsStretch && k > 0) laterStarts()[k / stretch - 1] = size();
    ends()[k] = static_cast<End>((startsStretch ? 0 : ends()[k - 1]) + count);
    std::construct_at(leaves() + k, std::move(leaf));
    ++leafCount_;
  }

  void appendShared(const ListSpine& other, std::size_t first, std::size_t last) noexcept {
    for (std::size_t k = first; k < last; ++k) append(other.leaves()[k], other.countOf(k));
  }

  /// As `appendShared`, but takes the leaves away from `other`, which may only be destroyed
  /// afterwards.
  void appendTaken(ListSpine& other, std::size_t first, std::size_t last) noexcept {
    for (std::size_t k = first; k < last; ++k)
      append(std::move(other.leaves()[k]), other.countOf(k));
  }

  /// Puts another leaf in the place of leaf `k`, which is returned.
  Shared<Leaf> exchange(std::size_t k, Shared<Leaf> leaf) noexcept {
    const std::size_t before = countOf(k);
    const std::size_t after = leaf->count();
    Shared<Leaf> former = std::exchange(leaves()[k], std::move(leaf));
    shift(k, after - before);
    return former;
  }

  /// Follows a change of the number of elements in leaf `k`; `difference` is modulo 2^64.
  void shift(std::size_t k, std::size_t difference) noexcept {
    const std::size_t i = k / stretch;
    const std::size_t last = std::min<std::size_t>((i + 1) * stretch, leafCount_);
    for (; k < last; ++k) ends()[k] = static_cast<End>(ends()[k] + difference);
    for (std::size_t later = i; later < laterStretchesOf(leafCount_); ++later)
      laterStarts()[later] += difference;
  }

  /// Leaf `k`, for a change: first copied unless it is this spine's own and has room for `capacity`
  /// slots. When memory runs out, nothing has changed.
  Leaf& ownLeaf(std::size_t k, std::size_t capacity) {
    Shared<Leaf>& leaf = leaves()[k];
    const bool isOwn = leaf.isUnique();
    if (!isOwn || leaf->capacity() < capacity) {
      Shared<Leaf> next = Leaf::make(capacity);
      if (isOwn) {
        next->take(*leaf);
      } else {
        leaf->settleShared();
        next->appendCopies(*leaf, 0, leaf->count());
      }
      leaf = std::move(next);
    }
    return *leaf;
  }

 private:
  using End = std::uint16_t;
  static constexpr std::size_t stretch = 512;  // 32,768 elements, which an End holds
  static_assert(stretch * Leaf::maximum <= std::numeric_limits<End>::max());

  explicit ListSpine(std::size_t capacity) noexcept
      : capacity_(static_cast<std::uint32_t>(capacity)) {}

  /// The number of stretches behind the first one, which starts at 0, of one leaf or more.
  static std::size_t laterStretchesOf(std::size_t leafCount) noexcept {
    return (leafCount - 1) / stretch;
  }

  Shared<Leaf>* leaves() noexcept { return reinterpret_cast<Shared<Leaf>*>(this + 1); }
  std::size_t* laterStarts() noexcept {
    return reinterpret_cast<std::size_t*>(leaves() + capacity_);
  }
  End* ends() noexcept {
    return reinterpret_cast<End*>(laterStarts() + laterStretchesOf(capacity_));
  }
  const Shared<Leaf>* leaves() const noexcept { return const_cast<ListSpine*>(this)->leaves(); }

  std::size_t endOf(std::size_t k) const noexcept {
    ListSpine* const self = const_cast<ListSpine*>(this);
    const std::size_t start = k < stretch ? 0 : self->laterStarts()[k / stretch - 1];
    return start + self->ends()[k];
  }

  std::size_t laterLeafOf(std::size_t index, std::size_t earliest) const noexcept {
    precondition(index < size(), "list index out of range");
    std::size_t first = earliest;
    for (std::size_t length = leafCount_ - first; length > 0;) {
      const std::size_t half = length / 2;
      if (endOf(first + half) <= index) {
        first += half + 1;
        length -= half + 1;
      } else {
        length = half;
      }
    }
    return first;
  }

  std::uint32_t leafCount_ = 0;
  std::uint32_t capacity_;
};

}  // namespace korrin::detail

#pragma GCC visibility pop
