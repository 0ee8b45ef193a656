#pragma once

// Where two lists stop sharing storage. A list that was made from another by a few edits shares
// nearly all of it, so that this tells what the edits touched without reading a single element:
// undo at 100,000 items looks at the one item that was moved.

#include <algorithm>
#include <cstddef>

#include "korrin/foundation/list.h"

#pragma GCC visibility push(default)

namespace korrin {

/// A stretch of a list: the elements from `first` up to `last`, which is not one of them.
struct IndexRange {
  std::size_t first;  ///< Index of the first element.
  std::size_t last;   ///< Index behind the last element.

  /// Number of elements.
  std::size_t size() const noexcept { return last - first; }

  friend bool operator==(const IndexRange&, const IndexRange&) = default;
};

namespace detail {

template <class T>
class ListDifference {
  using Leaf = ListLeaf<T>;

 public:
  ListDifference(const List<T>& before, const List<T>& after) : before_(before), after_(after) {}

  template <class Visit>
  void visitWith(Visit& visit) const {
    if (before_.spine_.get() == after_.spine_.get()) return;
    const auto visitLeaves = [&](IndexRange leaves, IndexRange leavesAfterwards) {
      visitStretch(elementsOf(before_, leaves), elementsOf(after_, leavesAfterwards), visit);
    };
    walk({0, leafCountOf(before_)}, {0, leafCountOf(after_)}, leavesOf(before_), leavesOf(after_),
         visitLeaves);
  }

 private:
  // How far ahead the place is looked for where the lists meet again after an insert or an erase.
  // It bounds the work for lists that have nothing in common.
  static constexpr std::size_t window = 16;

  // Compares two rows of addresses and visits the stretches in which they differ.
  template <class AddressBefore, class AddressAfter, class Visit>
  static void walk(IndexRange a, IndexRange b, AddressBefore before, AddressAfter after,
                   Visit& visit) {
    while (a.size() > 0 && b.size() > 0 && before(a.last - 1) == after(b.last - 1)) {
      --a.last;
      --b.last;
    }
    IndexRange gapBefore = {a.first, a.first};
    IndexRange gapAfter = {b.first, b.first};
    while (gapBefore.last < a.last && gapAfter.last < b.last) {
      std::size_t& i = gapBefore.last;
      std::size_t& j = gapAfter.last;
      if (before(i) == after(j)) {
        visitGap(gapBefore, gapAfter, visit);
        gapBefore = {i + 1, i + 1};
        gapAfter = {j + 1, j + 1};
        continue;
      }
      std::size_t left = 1;  // elements that are only in `before`, or only in `after`
      std::size_t right = 1;
      for (std::size_t ahead = 1; ahead < window; ++ahead) {
        if (i + ahead < a.last && before(i + ahead) == after(j)) {
          left = ahead;
          right = 0;
          break;
        }
        if (j + ahead < b.last && before(i) == after(j + ahead)) {
          left = 0;
          right = ahead;
          break;
        }
      }
      i += left;
      j += right;
    }
    gapBefore.last = a.last;
    gapAfter.last = b.last;
    visitGap(gapBefore, gapAfter, visit);
  }

  template <class Visit>
  static void visitGap(IndexRange before, IndexRange after, Visit& visit) {
    if (before.size() + after.size() > 0) visit(before, after);
  }

  // Leaves that are not shared may still share elements.
  template <class Visit>
  void visitStretch(IndexRange before, IndexRange after, Visit& visit) const {
    if constexpr (PlainElement<T>)
      visitGap(before, after, visit);
    else
      walk(before, after, addressesOf(before_), addressesOf(after_), visit);
  }

  static std::size_t leafCountOf(const List<T>& list) noexcept {
    return list.spine_ ? list.spine_->leafCount() : 0;
  }
  static IndexRange elementsOf(const List<T>& list, IndexRange leaves) noexcept {
    if (!list.spine_) return {0, 0};
    return {list.spine_->startOf(leaves.first), list.spine_->startOf(leaves.last)};
  }
  static auto leavesOf(const List<T>& list) noexcept {
    return [&list](std::size_t k) -> const void* { return list.spine_->sharedLeaf(k).get(); };
  }
  static auto addressesOf(const List<T>& list) noexcept {
    return [&list](std::size_t index) -> const void* { return &list[index]; };
  }

  const List<T>& before_;
  const List<T>& after_;
};

}  // namespace detail

/// Calls `visit(IndexRange, IndexRange)`, in ascending order, for each stretch in which the lists
/// do not share their elements: the first range is in `before`, the second in `after`, and one of
/// them may be empty. What lies between the stretches is the same in both, in the same order and to
/// the bit; elements inside a stretch may happen to be equal all the same.
///
///     before  A B C D E      after  A C' D E F   ->   (B C), (C')   then   (), (F)
///
/// Time is linear in the number of leaves (list.h) and of elements in leaves that are not shared.
/// Allocates nothing. `visit` leaves both lists alone.
template <class T, class Visit>
void forEachDifference(const List<T>& before, const List<T>& after, Visit visit) {
  detail::ListDifference<T>(before, after).visitWith(visit);
}

}  // namespace korrin

#pragma GCC visibility pop
