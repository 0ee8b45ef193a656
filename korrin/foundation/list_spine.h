#pragma once

// The upper half of a List's storage: the row of its leaves. Hosts use List (list.h), never this.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <utility>

#include "korrin/foundation/list_leaf.h"
#include "korrin/foundation/precondition.h"
#include "korrin/foundation/shared.h"

#pragma GCC visibility push(default)

namespace korrin::detail {

/// The leaves of one list and all its unchanged copies, each with the index at which it ends, in
/// memory for `capacity()` entries. No leaf is empty, except that a list of no elements may keep
/// one leaf with room. Only a spine with a single owner may be changed.
template <class T>
class ListSpine : public Counted {
 public:
  using Leaf = ListLeaf<T>;

  /// A spine of no leaves with room for `capacity`.
  static Shared<ListSpine> make(std::size_t capacity) {
    static_assert(sizeof(ListSpine) % alignof(Entry) == 0);
    void* const memory = ::operator new(sizeof(ListSpine) + capacity * sizeof(Entry));
    return Shared<ListSpine>::first(::new (memory) ListSpine(capacity));
  }
  static void destroy(ListSpine* spine) noexcept {
    std::destroy_n(spine->entries(), spine->leafCount_);
    std::destroy_at(spine);
    ::operator delete(spine);
  }

  std::size_t leafCount() const noexcept { return leafCount_; }
  std::size_t capacity() const noexcept { return capacity_; }
  std::size_t size() const noexcept { return startOf(leafCount_); }

  Leaf& leaf(std::size_t k) noexcept { return *entries()[k].leaf; }
  const Leaf& leaf(std::size_t k) const noexcept { return *entries()[k].leaf; }
  const Shared<Leaf>& sharedLeaf(std::size_t k) const noexcept { return entries()[k].leaf; }

  /// Index of the first element of leaf `k`; the size when `k` is the number of leaves.
  std::size_t startOf(std::size_t k) const noexcept { return k == 0 ? 0 : entries()[k - 1].end; }
  std::size_t countOf(std::size_t k) const noexcept { return entries()[k].end - startOf(k); }

  /// The leaf that holds element `index`. Aborts when there is no such element.
  std::size_t leafOf(std::size_t index) const noexcept {
    // No leaf holds more than `maximum`, hence the leaf cannot be an earlier one than this.
    const std::size_t earliest = index / Leaf::maximum;
    if (earliest < leafCount_ && index < entries()[earliest].end) [[likely]]
      return earliest;
    return laterLeafOf(index, earliest);
  }

  // The changes below need room for the entries they add.

  /// Adds a slot to the last leaf, which is this spine's own and not full.
  typename Leaf::Slot& appendSlot(typename Leaf::Slot slot) noexcept {
    Entry& last = entries()[leafCount_ - 1];
    ++last.end;
    return last.leaf->append(std::move(slot));
  }

  /// Adds a leaf that holds `count` elements, or will at once.
  void append(Shared<Leaf> leaf, std::size_t count) noexcept {
    ::new (entries() + leafCount_) Entry{std::move(leaf), size() + count};
    ++leafCount_;
  }

  void appendShared(const ListSpine& other, std::size_t first, std::size_t last) noexcept {
    for (std::size_t k = first; k < last; ++k) append(other.entries()[k].leaf, other.countOf(k));
  }

  /// As `appendShared`, but takes the leaves away from `other`, which is good for nothing then.
  void appendTaken(ListSpine& other, std::size_t first, std::size_t last) noexcept {
    for (std::size_t k = first; k < last; ++k)
      append(std::move(other.entries()[k].leaf), other.countOf(k));
  }

  /// Puts another leaf in the place of leaf `k`, which is returned.
  Shared<Leaf> exchange(std::size_t k, Shared<Leaf> leaf) noexcept {
    const std::size_t before = countOf(k);
    const std::size_t after = leaf->count();
    Shared<Leaf> former = std::exchange(entries()[k].leaf, std::move(leaf));
    shift(k, after - before);
    return former;
  }

  /// Follows a change of the number of elements in leaf `k`; `difference` is modulo 2^64.
  void shift(std::size_t k, std::size_t difference) noexcept {
    for (Entry* entry = entries() + k; entry != entries() + leafCount_; ++entry)
      entry->end += difference;
  }

  /// Leaf `k`, for a change: first copied unless it is this spine's own and has room for `capacity`
  /// slots. When memory runs out, nothing has changed.
  Leaf& ownLeaf(std::size_t k, std::size_t capacity) {
    Shared<Leaf>& leaf = entries()[k].leaf;
    const bool isOwn = leaf.isUnique();
    if (!isOwn || leaf->capacity() < capacity) {
      Shared<Leaf> next = Leaf::make(capacity);
      if (isOwn)
        next->appendMoved(*leaf);
      else
        next->appendCopies(*leaf, 0, leaf->count());
      leaf = std::move(next);
    }
    return *leaf;
  }

 private:
  struct Entry {
    Shared<Leaf> leaf;
    std::size_t end;  // index of the first element behind this leaf
  };

  explicit ListSpine(std::size_t capacity) noexcept
      : capacity_(static_cast<std::uint32_t>(capacity)) {}

  const Entry* entries() const noexcept { return reinterpret_cast<const Entry*>(this + 1); }
  Entry* entries() noexcept { return reinterpret_cast<Entry*>(this + 1); }

  std::size_t laterLeafOf(std::size_t index, std::size_t earliest) const noexcept {
    precondition(index < size(), "list index out of range");
    const auto endsBefore = [index](const Entry& entry) { return entry.end <= index; };
    const Entry* const found =
        std::partition_point(entries() + earliest, entries() + leafCount_, endsBefore);
    return static_cast<std::size_t>(found - entries());
  }

  std::uint32_t leafCount_ = 0;
  std::uint32_t capacity_;
  // The entries follow, from the end of this object on.
};

}  // namespace korrin::detail

#pragma GCC visibility pop
