#pragma once

// The ordered list of every record: a value whose copies share storage until one of them changes.
//
// Elements stand in leaves of up to 64; a spine lists the leaves; a List is one counted pointer to
// the spine. Here the copy b was taken from a, then one element of b edited:
//
//   a -> spine -> leaf 0 -> elements 0 to 63
//              -> leaf 1 -> elements 64 to 127
//
//   b -> spine -> leaf 0 of a
//              -> leaf 1 -> element 64, elements 65 to 127 of a
//
// A copy costs one increment and allocates nothing. A change of a shared list copies the spine (10
// bytes for every leaf), the touched leaf (8 bytes for every element in it) and, in `edit` alone,
// the one element; a change of an unshared list happens in place. The copy of a leaf may keep the
// memory of the former one, but none of its elements. Elements that are trivially copyable and at
// most 16 bytes large stand in the leaf itself. Leaves of records that name a `searchKey`
// (search_key.h) carry marks of the keys too, by which records are found unread.
//
// Every operation either succeeds or throws and leaves the list equal to what it was, whatever
// fails: memory, a constructor of the element, a predicate. The element's destructor does not
// throw. Arguments may refer to elements of the same list.
//
// Distinct lists may be used from different threads at the same time, shared storage or not. One
// list follows the rule of every value: many readers, or one writer.

#include <algorithm>
#include <bit>
#include <cstddef>
#include <functional>
#include <initializer_list>
#include <iterator>
#include <utility>
#include <vector>

#include "korrin/foundation/hash.h"
#include "korrin/foundation/list_iterator.h"
#include "korrin/foundation/list_leaf.h"
#include "korrin/foundation/list_spine.h"
#include "korrin/foundation/precondition.h"
#include "korrin/foundation/shared.h"

#pragma GCC visibility push(default)

namespace korrin {

namespace detail {
template <class T>
class ListDifference;
}

/// An ordered list of copyable elements. A moved-from list is empty. Iterators and references for
/// reading hold until the list is changed, assigned to or destroyed.
template <class T>
class List {
  using Spine = detail::ListSpine<T>;
  using Leaf = detail::ListLeaf<T>;
  using Slot = detail::ListSlot<T>;
  using Mask = detail::SlotMask;  // what `Leaf` calls so, which needs `T` complete

 public:
  /// @{
  /// What algorithms ask for. Elements are changed by `edit` alone, hence no type that changes one.
  using value_type = T;
  using size_type = std::size_t;
  using difference_type = std::ptrdiff_t;
  using reference = const T&;
  using const_reference = const T&;
  using const_iterator = detail::ListIterator<T>;
  using iterator = const_iterator;
  /// @}

  /// The empty list, which has no storage.
  List() = default;
  /// Copies of the elements, in their order.
  List(std::initializer_list<T> elements) : List(elements.begin(), elements.end()) {}
  /// Implicit, so that a vector serves wherever a list is asked for. Moves the elements.
  List(std::vector<T> elements) {  // NOLINT(google-explicit-constructor)
    reserve(elements.size());
    for (auto&& element : elements) emplace_back(std::move(element));
  }
  /// Copies of the elements from `first` up to `last`.
  template <std::input_iterator Iterator, std::sentinel_for<Iterator> Sentinel>
  List(Iterator first, Sentinel last) {
    if constexpr (std::sized_sentinel_for<Sentinel, Iterator>)
      reserve(static_cast<std::size_t>(last - first));
    for (; first != last; ++first) emplace_back(*first);
  }

  /// Number of elements.
  std::size_t size() const noexcept { return spine_ ? spine_->size() : 0; }
  /// Whether there is no element.
  bool empty() const noexcept { return size() == 0; }

  /// Element `index`. Aborts when there is none: the check is part of finding the leaf.
  const T& operator[](std::size_t index) const noexcept {
    precondition(static_cast<bool>(spine_), "list index out of range");
    const std::size_t k = spine_->leafOf(index);
    return spine_->leaf(k).slots()[index - spine_->startOf(k)].value();
  }
  /// The first element. Aborts when the list is empty.
  const T& front() const noexcept { return (*this)[0]; }
  /// The last element. Aborts when the list is empty.
  const T& back() const noexcept { return (*this)[size() - 1]; }

  /// The start and the end of the elements, for reading at random.
  const_iterator begin() const noexcept {
    return spine_ ? const_iterator(spine_.get(), 0) : const_iterator();
  }
  /// @copydoc begin
  const_iterator end() const noexcept {
    return spine_ ? const_iterator(spine_.get(), spine_->size()) : const_iterator();
  }

  /// Copies of the elements, in their order.
  std::vector<T> toVector() const { return std::vector<T>(begin(), end()); }

  /// The one way to a mutable element, which is copied first if another list shares it. Aborts when
  /// there is no element `index`.
  ///
  /// The reference stays usable until the list is copied, destroyed or changed by anything but
  /// `edit`; several may be held at once. (What is written through it after the list was copied may
  /// show in the copy, and `forEachCandidate` may miss an identifier that was written so.)
  T& edit(std::size_t index) {
    const std::size_t k = placeOf(index);
    const std::size_t offset = index - spine_->startOf(k);
    return ownLeaf(k).edit(offset).value();
  }

  /// Puts `element` in the place of element `index`, which is never copied. Aborts when there is
  /// none.
  void replace(std::size_t index, T element) {
    const std::size_t k = placeOf(index);
    Slot slot(std::in_place, std::move(element));
    [[maybe_unused]] const Slot former =
        ownLeaf(k).replace(index - spine_->startOf(k), std::move(slot));
  }

  /// Exchanges two elements, neither of which is copied. Aborts when there is no such element.
  ///
  ///     A B C D   swap(0, 2)   ->   C B A D
  void swap(std::size_t i, std::size_t j) {
    Slot first = slotAt(i);
    const Slot second = slotAt(j);
    if (i == j) return;
    const std::size_t k = placeOf(i);
    const std::size_t l = placeOf(j);
    ownLeaf(k);
    ownLeaf(l).replace(j - spine_->startOf(l), std::move(first));
    spine_->leaf(k).replace(i - spine_->startOf(k), second);
  }

  /// Takes element `from` out and puts it where it is element `to`; it is not copied, and the
  /// others keep their order. Aborts when there is no such element.
  ///
  ///     A B C D   move(0, 2)   ->   B C A D
  ///     A B C D   move(3, 1)   ->   A D B C
  void move(std::size_t from, std::size_t to) {
    Slot slot = slotAt(from);
    placeOf(to);
    if (from == to) return;
    List next = *this;
    next.erase(from);
    next.insertSlot(to, std::move(slot));
    *this = std::move(next);
  }

  /// Puts an element at the end.
  void push_back(const T& element) { emplace_back(element); }
  /// @copydoc push_back
  void push_back(T&& element) { emplace_back(std::move(element)); }

  /// Builds an element at the end. The reference to it stays usable as that of `edit` does.
  template <class... Arguments>
  T& emplace_back(Arguments&&... arguments) {
    return appendSlot(Slot(std::in_place, std::forward<Arguments>(arguments)...)).value();
  }

  /// Puts `element` before element `index`, or at the end when `index` is the size. Aborts when
  /// `index` is greater.
  void insert(std::size_t index, T element) {
    insertSlot(index, Slot(std::in_place, std::move(element)));
  }

  /// Removes element `index`. Aborts when there is none.
  void erase(std::size_t index) {
    const std::size_t k = placeOf(index);
    const std::size_t count = spine_->countOf(k);
    if (size() == 1) return clear();
    if (count == 1) return replaceLeaves(k, 1, {});

    // The leaf and those neighbours with which it is now merged: leaves [first, last).
    std::size_t first = k;
    std::size_t last = k + 1;
    std::size_t remaining = count - 1;
    if (k > 0 && remaining + spine_->countOf(k - 1) <= mergedCount)
      remaining += spine_->countOf(--first);
    if (last < spine_->leafCount() && remaining + spine_->countOf(last) <= mergedCount)
      remaining += spine_->countOf(last++);

    const std::size_t offset = index - spine_->startOf(k);
    if (last - first == 1 && spine_.isUnique() && spine_->sharedLeaf(k).isUnique()) {
      [[maybe_unused]] const Slot removed = spine_->leaf(k).remove(offset);
      spine_->shift(k, std::size_t{0} - 1);
      return;
    }
    Shared<Leaf> rest = Leaf::make(remaining);
    for (std::size_t part = first; part < last; ++part) {
      const Mask removed = part == k ? Mask{1} << offset : 0;
      rest->appendCopiesExcept(spine_->leaf(part), removed);
    }
    replaceLeaves(first, last - first, std::move(rest));
  }

  /// Removes the elements for which `predicate` is true and returns their number; the others keep
  /// their order. Calls `predicate` with each element once, in order; it leaves the list alone.
  /// When nothing is removed the list goes on sharing all its storage.
  template <class Predicate>
  std::size_t eraseIf(Predicate predicate) {
    if (empty()) return 0;
    Shared<Spine> kept;  // from the first removal on: what precedes the leaf at hand
    for (std::size_t k = 0; k < spine_->leafCount(); ++k) {
      const Leaf& leaf = spine_->leaf(k);
      const Mask removed = matches(leaf, predicate);
      if (!kept) {
        if (removed == 0) continue;
        kept = Spine::make(spine_->leafCount());
        kept->appendShared(*spine_, 0, k);
      }
      appendRemaining(*kept, spine_->sharedLeaf(k), removed);
    }
    if (!kept) return 0;
    const std::size_t removedCount = size() - kept->size();
    if (kept->leafCount() == 0)
      kept = {};
    else if (kept->leafCount() <= kept->capacity() / 2)
      kept = respined(kept, kept->leafCount());
    spine_ = std::move(kept);
    return removedCount;
  }

  /// @{
  /// Puts other elements in the place of the present ones.
  void assign(std::initializer_list<T> elements) { *this = List(elements); }
  template <std::input_iterator Iterator, std::sentinel_for<Iterator> Sentinel>
  void assign(Iterator first, Sentinel last) {
    *this = List(std::move(first), std::move(last));
  }
  void assign(std::size_t count, const T& element) {
    List next;
    next.reserve(count);
    for (std::size_t i = 0; i < count; ++i) next.push_back(element);
    *this = std::move(next);
  }
  /// @}

  /// Removes all elements and gives up the storage.
  void clear() noexcept { spine_ = {}; }

  /// Prepares for a growth to `count` elements: room for their pointers, or for the elements
  /// themselves where these are small, up to the end of the last leaf, and for the row of leaves. A
  /// short list of known length is smallest this way.
  void reserve(std::size_t count) {
    if (count <= size()) return;
    if (!spine_) startLeaf(std::min(count, Leaf::maximum));
    const std::size_t last = spine_->leafCount() - 1;
    const std::size_t countOfLast = count - spine_->startOf(last);
    ownSpine(last + (countOfLast + Leaf::maximum - 1) / Leaf::maximum);
    spine_->ownLeaf(last, std::min(countOfLast, Leaf::maximum));
  }

  /// Calls `visit(index, element)`, in ascending order, for every element whose key is one of the
  /// identifiers or holds one, and for every element whose key is an empty list. May also call it
  /// for elements that do not match: `visit` must check. With a few identifiers this is many times
  /// faster than a loop, since nearly all other elements are passed over unread.
  template <class IDs, class Visit>
  requires Searchable<T>
  void forEachCandidate(const IDs& ids, Visit visit) const {
    if (empty()) return;
    // What several lists reach was copied since any of it was handed out, which ended the use of
    // the references into it.
    const bool isShared = !spine_.isUnique();
    for (std::size_t k = 0; k < spine_->leafCount(); ++k) {
      const Leaf& leaf = spine_->leaf(k);
      if (isShared || !spine_->sharedLeaf(k).isUnique()) leaf.settleShared();
      for (Mask rest = candidates(leaf, ids); rest != 0; rest &= rest - 1) {
        const auto offset = static_cast<std::size_t>(std::countr_zero(rest));
        visit(spine_->startOf(k) + offset, leaf.slots()[offset].value());
      }
    }
  }

  /// Whether all elements are equal, in their order.
  // Sharing storage is no proof of it: an element that holds a NaN differs from itself, and so does
  // a list that holds it.
  friend bool operator==(const List& a, const List& b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin());
  }

 private:
  friend class detail::ListDifference<T>;

  // Neighbours are merged at three quarters of a full leaf, not at a full one: an insert into what
  // an erase has just merged must not split it again.
  static constexpr std::size_t mergedCount = Leaf::maximum / 4 * 3;

  std::size_t placeOf(std::size_t index) const noexcept {
    precondition(static_cast<bool>(spine_), "list index out of range");
    return spine_->leafOf(index);
  }

  /// Shares the element `index`.
  Slot slotAt(std::size_t index) const noexcept {
    const std::size_t k = placeOf(index);
    return spine_->leaf(k).slots()[index - spine_->startOf(k)];
  }

  /// Leaf `k`, for a change of its elements.
  Leaf& ownLeaf(std::size_t k) {
    ownSpine(spine_->leafCount());
    return spine_->ownLeaf(k, spine_->countOf(k));
  }

  void insertSlot(std::size_t index, Slot slot) {
    if (index == size()) {
      appendSlot(std::move(slot));
      return;
    }
    std::size_t k = placeOf(index);
    // Between two leaves the earlier one takes the element if it can, so that a run of inserts in
    // ascending order fills leaves.
    if (index == spine_->startOf(k) && k > 0 && spine_->countOf(k - 1) < Leaf::maximum) --k;
    const std::size_t offset = index - spine_->startOf(k);
    if (spine_->countOf(k) == Leaf::maximum) {
      insertIntoFullLeaf(k, offset, std::move(slot));
    } else {
      ownSpine(spine_->leafCount());
      ownLeafWithRoom(k).insert(offset, std::move(slot));
      spine_->shift(k, 1);
    }
  }

  Slot& appendSlot(Slot slot) {
    if (!hasOwnRoomAtEnd()) [[unlikely]]
      makeRoomAtEnd();
    return spine_->appendSlot(std::move(slot));
  }

  /// The slots whose elements may have one of the identifiers. Looking at every element takes less
  /// time than looking for each of many identifiers.
  template <class IDs>
  static Mask candidates(const Leaf& leaf, const IDs& ids) {
    constexpr std::size_t few = 16;
    if (ids.empty() || ids.size() > few) return detail::firstSlots(leaf.count());
    Mask found = 0;
    for (const UUID& id : ids) found |= leaf.matches(id);
    return found;
  }

  bool hasOwnRoomAtEnd() const noexcept {
    if (!spine_ || !spine_.isUnique()) return false;
    const Shared<Leaf>& leaf = spine_->sharedLeaf(spine_->leafCount() - 1);
    return leaf.isUnique() && leaf->count() < leaf->capacity();
  }

  [[gnu::noinline]] void makeRoomAtEnd() {
    if (!spine_) {
      startLeaf(smallestGrowth);
      return;
    }
    const std::size_t leafCount = spine_->leafCount();
    if (spine_->countOf(leafCount - 1) < Leaf::maximum) {
      ownSpine(leafCount);
      ownLeafWithRoom(leafCount - 1);
      return;
    }
    Shared<Leaf> leaf = Leaf::make(Leaf::maximum);
    if (leafCount < spine_->capacity())
      ownSpine(leafCount + 1);
    else  // a copy takes what it needs, a list that grows on its own takes double
      ownSpine(spine_.isUnique() ? std::max(leafCount * 2, smallestGrowth) : leafCount + 1);
    if (spine_->sharedLeaf(leafCount - 1).isUnique()) spine_->leaf(leafCount - 1).settle();
    spine_->append(std::move(leaf), 0);
  }

  /// Gives a list without storage a leaf, empty still.
  void startLeaf(std::size_t capacity) {
    Shared<Spine> spine = Spine::make(1);
    spine->append(Leaf::make(capacity), 0);
    spine_ = std::move(spine);
  }

  /// Leaf `k`, which is not full, ready for one more slot. The only leaf of a list grows by
  /// doubling.
  Leaf& ownLeafWithRoom(std::size_t k) {
    const std::size_t needed = spine_->countOf(k) + 1;
    const Shared<Leaf>& leaf = spine_->sharedLeaf(k);
    if (leaf.isUnique() && needed <= leaf->capacity()) return *leaf;
    const bool isOnly = spine_->leafCount() == 1;
    return spine_->ownLeaf(
        k, isOnly ? std::max(std::bit_ceil(needed), smallestGrowth) : Leaf::maximum);
  }

  void ownSpine(std::size_t capacity) {
    if (!spine_.isUnique() || spine_->capacity() < capacity) spine_ = respined(spine_, capacity);
  }

  /// A spine of the same leaves in memory for `capacity`. Empties `spine` if that has no other
  /// owner.
  static Shared<Spine> respined(const Shared<Spine>& spine, std::size_t capacity) {
    Shared<Spine> next = Spine::make(capacity);
    if (spine.isUnique())
      next->appendTaken(*spine, 0, spine->leafCount());
    else
      next->appendShared(*spine, 0, spine->leafCount());
    return next;
  }

  /// Puts up to two leaves in the place of the `removed` ones from leaf `first` on.
  void replaceLeaves(std::size_t first, std::size_t removed, Shared<Leaf> leaf,
                     Shared<Leaf> another = {}) {
    const std::size_t added = (leaf ? 1u : 0u) + (another ? 1u : 0u);
    if (removed == 1 && added == 1 && spine_.isUnique()) {
      const Shared<Leaf> former = spine_->exchange(first, std::move(leaf));
      return;
    }
    Shared<Spine> next = Spine::make(spine_->leafCount() - removed + added);
    next->appendShared(*spine_, 0, first);
    for (Shared<Leaf>* fresh : {&leaf, &another}) {
      if (!*fresh) continue;
      const std::size_t count = (*fresh)->count();
      next->append(std::move(*fresh), count);
    }
    next->appendShared(*spine_, first + removed, spine_->leafCount());
    spine_ = std::move(next);
  }

  /// Puts two half-filled leaves in the place of the full leaf `k`.
  void insertIntoFullLeaf(std::size_t k, std::size_t offset, Slot slot) {
    constexpr std::size_t half = Leaf::maximum / 2;
    Shared<Leaf> left = Leaf::make(half + (offset < half ? 1 : 0));
    Shared<Leaf> right = Leaf::make(half + (offset < half ? 0 : 1));
    left->appendCopies(spine_->leaf(k), 0, half);
    right->appendCopies(spine_->leaf(k), half, Leaf::maximum);
    if (offset < half)
      left->insert(offset, std::move(slot));
    else
      right->insert(offset - half, std::move(slot));
    replaceLeaves(k, 1, std::move(left), std::move(right));
  }

  template <class Predicate>
  static Mask matches(const Leaf& leaf, Predicate& predicate) {
    Mask mask = 0;
    for (std::size_t i = 0; i < leaf.count(); ++i)
      if (std::invoke(predicate, leaf.slots()[i].value())) mask |= Mask{1} << i;
    return mask;
  }

  /// Adds to `kept` what `leaf` holds beside the `removed` slots: the leaf itself where none is.
  static void appendRemaining(Spine& kept, const Shared<Leaf>& leaf, Mask removed) {
    const std::size_t count = leaf->count() - static_cast<std::size_t>(std::popcount(removed));
    if (count == 0) return;
    const std::size_t last = kept.leafCount() - 1;
    if (kept.leafCount() > 0 && kept.countOf(last) + count <= mergedCount) {
      kept.ownLeaf(last, kept.countOf(last) + count).appendCopiesExcept(*leaf, removed);
      kept.shift(last, count);
    } else if (removed == 0) {
      kept.append(leaf, count);
    } else {
      Shared<Leaf> rest = Leaf::make(count);
      rest->appendCopiesExcept(*leaf, removed);
      kept.append(std::move(rest), count);
    }
  }

  static constexpr std::size_t smallestGrowth = 4;

  Shared<Spine> spine_;  // null when the list has no storage
};

template <class Iterator, class Sentinel>
List(Iterator, Sentinel) -> List<std::iter_value_t<Iterator>>;

}  // namespace korrin

/// The number of elements, then each element in order.
template <class T>
struct std::hash<korrin::List<T>> {
  std::size_t operator()(const korrin::List<T>& list) const {
    std::size_t seed = list.size();
    for (const T& element : list) seed = korrin::hashCombine(seed, std::hash<T>{}(element));
    return seed;
  }
};

#pragma GCC visibility pop
