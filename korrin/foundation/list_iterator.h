#pragma once

// The iterator of List (list.h).

#include <compare>
#include <cstddef>
#include <iterator>

#include "korrin/foundation/list_spine.h"

#pragma GCC visibility push(default)

namespace korrin::detail {

/// A place in a list. It caches the end of the leaf it stands in, so that a step is an increment
/// and a comparison. It stands at the end of a leaf only where that is the end of the list.
template <class T>
class ListIterator {
  using Spine = ListSpine<T>;
  using Slot = typename Spine::Leaf::Slot;

 public:
  using iterator_category = std::random_access_iterator_tag;
  using value_type = T;
  using difference_type = std::ptrdiff_t;
  using pointer = const T*;
  using reference = const T&;

  ListIterator() = default;
  /// The place before element `index`, which may be the size. `spine` holds at least one leaf.
  ListIterator(const Spine* spine, std::size_t index) noexcept : spine_(spine) {
    standAt(index < spine->size() ? spine->leafOf(index) : spine->leafCount() - 1, index);
  }

  reference operator*() const noexcept { return slot_->value(); }
  pointer operator->() const noexcept { return &slot_->value(); }
  reference operator[](difference_type n) const noexcept { return *(*this + n); }

  ListIterator& operator++() noexcept {
    if (++slot_ == leafEnd_) [[unlikely]]
      enterNextLeaf();
    return *this;
  }
  ListIterator operator++(int) noexcept {
    ListIterator before = *this;
    ++*this;
    return before;
  }
  ListIterator& operator--() noexcept {
    if (slot_ == spine_->leaf(leaf_).slots()) [[unlikely]]
      standAt(leaf_ - 1, spine_->startOf(leaf_));
    --slot_;
    return *this;
  }
  ListIterator operator--(int) noexcept {
    ListIterator before = *this;
    --*this;
    return before;
  }

  ListIterator& operator+=(difference_type n) noexcept {
    if (n != 0) *this = ListIterator(spine_, index() + static_cast<std::size_t>(n));
    return *this;
  }
  ListIterator& operator-=(difference_type n) noexcept { return *this += -n; }
  friend ListIterator operator+(ListIterator it, difference_type n) noexcept { return it += n; }
  friend ListIterator operator+(difference_type n, ListIterator it) noexcept { return it += n; }
  friend ListIterator operator-(ListIterator it, difference_type n) noexcept { return it -= n; }
  friend difference_type operator-(const ListIterator& a, const ListIterator& b) noexcept {
    return static_cast<difference_type>(a.index() - b.index());
  }

  // The end of a leaf is never the address of another leaf's first slot, since a header lies
  // between: the slot alone tells the place.
  friend bool operator==(const ListIterator& a, const ListIterator& b) noexcept {
    return a.slot_ == b.slot_;
  }
  friend std::strong_ordering operator<=>(const ListIterator& a, const ListIterator& b) noexcept {
    return a.index() <=> b.index();
  }

 private:
  std::size_t index() const noexcept {
    if (spine_ == nullptr) return 0;
    return spine_->startOf(leaf_ + 1) - static_cast<std::size_t>(leafEnd_ - slot_);
  }

  /// Stands before element `index` of the leaf, or at the leaf's end.
  void standAt(std::size_t leaf, std::size_t index) noexcept {
    leaf_ = leaf;
    const Slot* const first = spine_->leaf(leaf).slots();
    slot_ = first + (index - spine_->startOf(leaf));
    leafEnd_ = first + spine_->countOf(leaf);
  }

  void enterNextLeaf() noexcept {
    const std::size_t next = leaf_ + 1;
    if (next == spine_->leafCount()) return;
    standAt(next, spine_->startOf(next));
    // Leaves lie apart: the one after this is fetched while this one is read.
    if (next + 1 < spine_->leafCount()) __builtin_prefetch(spine_->leaf(next + 1).slots());
  }

  const Slot* slot_ = nullptr;
  const Slot* leafEnd_ = nullptr;
  const Spine* spine_ = nullptr;
  std::size_t leaf_ = 0;
};

}  // namespace korrin::detail

#pragma GCC visibility pop
