#pragma once

// The lower half of a List's storage: slots that hold one element each, and leaves that hold up to
// 64 neighbouring slots. Hosts use List (list.h), never these.

#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

#include "korrin/foundation/list_loan.h"
#include "korrin/foundation/list_marks.h"
#include "korrin/foundation/shared.h"

#pragma GCC visibility push(default)

namespace korrin::detail {

/// Builds an element in parentheses or, where an aggregate has no such constructor, in braces.
template <class T, class... Arguments>
T construct(Arguments&&... arguments) {
  if constexpr (std::is_constructible_v<T, Arguments...>)
    return T(std::forward<Arguments>(arguments)...);
  else
    return T{std::forward<Arguments>(arguments)...};
}

/// Elements that stand in the slot itself: copying one is cheaper than sharing it and cannot fail.
template <class T>
concept PlainElement = std::is_trivially_copyable_v<T> && sizeof(T) <= 16;

/// One element. A copy of a slot shares its element; copying and moving slots never fails, which is
/// what the guarantees of List rest on.
template <class T>
class ListSlot {
 public:
  template <class... Arguments>
  explicit ListSlot(std::in_place_t, Arguments&&... arguments)
      : record_(Shared<Record>::adopt(
            new Record(std::in_place, std::forward<Arguments>(arguments)...))) {}
  /// Refers to the element of another slot without a share of its own (list_loan.h).
  static ListSlot uncounted(const ListSlot& other) noexcept {
    return ListSlot(Shared<Record>::uncounted(other.record_.get()));
  }

  const T& value() const noexcept { return record_->value; }
  /// For a change. Only when this slot is reached by one list alone and after `makeOwn`.
  T& value() noexcept { return record_->value; }

  /// Copies the element if other slots share it. When the copy fails, nothing has changed.
  void makeOwn() {
    if (!record_.isUnique()) record_ = ListSlot(std::in_place, value()).record_;
  }

 private:
  struct Record : Counted {
    template <class... Arguments>
    explicit Record(std::in_place_t, Arguments&&... arguments)
        : value(construct<T>(std::forward<Arguments>(arguments)...)) {}
    static void destroy(Record* record) noexcept { delete record; }

    T value;
  };

  explicit ListSlot(Shared<Record> record) noexcept : record_(std::move(record)) {}

  Shared<Record> record_;
};

template <PlainElement T>
class ListSlot<T> {
 public:
  template <class... Arguments>
  explicit ListSlot(std::in_place_t, Arguments&&... arguments)
      : value_(construct<T>(std::forward<Arguments>(arguments)...)) {}

  const T& value() const noexcept { return value_; }
  T& value() noexcept { return value_; }
  void makeOwn() noexcept {}

 private:
  T value_;
};

struct NoLoan {};

/// Plain elements have no owners to count, hence nothing to lend.
template <class T>
using LoanOf = std::conditional_t<PlainElement<T>, NoLoan, LeafLoan>;

/// Up to 64 slots behind one count of owners, in memory for `capacity()` of them, with the marks of
/// their elements. Only a leaf with a single owner, itself reached by one list alone, may be
/// changed. To lend is no change: threads that share a leaf may copy it at the same time.
template <class T>
class ListLeaf : public Counted, public LoanOf<T> {
 public:
  using Slot = ListSlot<T>;

  /// A choice among the slots of a leaf: bit n stands for slot n.
  using Mask = SlotMask;
  static constexpr std::size_t maximum = slotsOfALeaf;

  /// An empty leaf with room for `capacity` slots, at most `maximum`.
  static Shared<ListLeaf> make(std::size_t capacity) {
    static_assert(sizeof(ListLeaf) % alignof(Slot) == 0);
    void* const memory = ::operator new(sizeof(ListLeaf) + capacity * sizeof(Slot));
    return Shared<ListLeaf>::adopt(::new (memory) ListLeaf(capacity));
  }
  static void destroy(ListLeaf* leaf) noexcept {
    if constexpr (isLending)
      if (leaf->hasLoan()) return destroyInLoan(leaf);
    std::destroy_n(leaf->slots(), leaf->count_);
    freeMemoryOf(leaf);
  }

  std::size_t count() const noexcept { return count_; }
  std::size_t capacity() const noexcept { return capacity_; }

  Slot* slots() noexcept { return reinterpret_cast<Slot*>(this + 1); }
  const Slot* slots() const noexcept { return reinterpret_cast<const Slot*>(this + 1); }

  /// The slots whose elements may have the identifier. No other element has it.
  Mask matches(const UUID& id) const noexcept { return marks_.matches(count_, id); }

  /// The slot, whose element the caller may change until `settle`.
  Slot& handOut(std::size_t slot) noexcept {
    marks_.handOut(slot);
    return slots()[slot];
  }
  /// As `handOut`, after copying the element if other leaves hold it. When that fails, nothing has
  /// changed.
  Slot& edit(std::size_t slot) {
    hold(Mask{1} << slot);
    slots()[slot].makeOwn();
    return handOut(slot);
  }
  /// Ends the time in which elements that were handed out may be changed.
  void settle() noexcept { marks_.settle(slots()); }
  /// As `settle`, for a leaf that more than one list reaches, which other threads may be searching
  /// or copying.
  void settleShared() const noexcept { marks_.settleShared(slots(), isSettling_); }

  // The changes below need room for what they add.

  /// Adds a slot.
  Slot& append(Slot slot) noexcept {
    settle();
    std::construct_at(slots() + count_, std::move(slot));
    return handOut(count_++);
  }

  void appendCopies(ListLeaf& other, std::size_t first, std::size_t last) noexcept {
    appendCopiesExcept(other, firstSlots(first) | ~firstSlots(last));
  }

  /// An empty leaf borrows the elements where `other` can lend them (list_loan.h).
  void appendCopiesExcept(ListLeaf& other, Mask left) noexcept {
    const Mask copied = firstSlots(other.count_) & ~left;
    bool isLoan = false;
    if constexpr (isLending)
      isLoan = count_ == 0 &&
               other.lendTo(*this, static_cast<std::size_t>(std::popcount(copied)), ~copied);
    for (Mask rest = copied; rest != 0; rest &= rest - 1)
      appendCopy(other, static_cast<std::size_t>(std::countr_zero(rest)), isLoan);
  }

  /// Makes this leaf, which is empty, what `other` was, which may only be destroyed afterwards.
  void take(ListLeaf& other) noexcept {
    other.hold(allSlots);
    for (; count_ < other.count_; ++count_)
      std::construct_at(slots() + count_, std::move(other.slots()[count_]));
    marks_.take(other.marks_);
  }

  void insert(std::size_t offset, Slot slot) noexcept {
    settle();
    hold(allSlots);
    for (Slot* gap = slots() + count_; gap != slots() + offset; --gap) moveSlot(gap - 1, gap);
    std::construct_at(slots() + offset, std::move(slot));
    marks_.insertAt(offset, count_++, slots()[offset].value());
  }

  /// Puts another slot in the place of one, which is returned.
  Slot replace(std::size_t offset, Slot slot) noexcept {
    hold(Mask{1} << offset);
    Slot former = std::move(slots()[offset]);
    std::destroy_at(slots() + offset);
    std::construct_at(slots() + offset, std::move(slot));
    marks_.note(offset, slots()[offset].value());
    return former;
  }

  Slot remove(std::size_t offset) noexcept {
    settle();
    hold(allSlots);
    Slot removed = std::move(slots()[offset]);
    std::destroy_at(slots() + offset);
    marks_.removeAt(offset, count_--);
    for (Slot* gap = slots() + offset; gap != slots() + count_; ++gap) moveSlot(gap + 1, gap);
    return removed;
  }

 private:
  static constexpr bool isLending = !PlainElement<T>;
  static constexpr Mask allSlots = ~Mask{0};

  explicit ListLeaf(std::size_t capacity) noexcept
      : capacity_(static_cast<std::uint16_t>(capacity)) {}

  static void freeMemoryOf(ListLeaf* leaf) noexcept {
    std::destroy_at(leaf);
    ::operator delete(leaf);
  }

  /// Destroys the slots whose elements the leaf at the other end does not go on holding.
  static void destroyInLoan(ListLeaf* leaf) noexcept {
    const Mask left = leaf->letGo(allSlots);
    for (std::size_t i = 0; i < leaf->count_; ++i)
      if ((left >> i & 1) == 0) std::destroy_at(leaf->slots() + i);
    leaf->endLoan();
    if (!leaf->leavesMemory()) freeMemoryOf(leaf);
  }

  /// Gives slots shares of their own in elements that are held jointly with the leaf at the other
  /// end: the chosen slots of a borrower, all of a lender.
  void hold([[maybe_unused]] Mask chosen) noexcept {
    if constexpr (isLending) {
      const Mask joint = this->joint(chosen);
      if (joint == 0) return;
      for (Mask rest = joint; rest != 0; rest &= rest - 1) {
        Slot* const slot = slots() + std::countr_zero(rest);
        std::construct_at(slot, Slot(*slot));
      }
      // Where the other leaf had let go before, the joint share is this leaf's as well.
      for (Mask rest = joint & ~this->letGo(chosen); rest != 0; rest &= rest - 1)
        [[maybe_unused]] const Slot surplus = Slot::uncounted(slots()[std::countr_zero(rest)]);
      endLoan();
    }
  }

  void endLoan() noexcept {
    if (LeafLoan* const lender = this->endOfLoan()) freeMemoryOf(static_cast<ListLeaf*>(lender));
  }

  void appendCopy(const ListLeaf& other, std::size_t from, [[maybe_unused]] bool isLoan) noexcept {
    const Slot& slot = other.slots()[from];
    if constexpr (isLending)
      std::construct_at(slots() + count_, isLoan ? Slot::uncounted(slot) : Slot(slot));
    else
      std::construct_at(slots() + count_, slot);
    marks_.copy(count_, other.marks_, from, slots()[count_].value());
    ++count_;
  }

  static void moveSlot(Slot* from, Slot* to) noexcept {
    std::construct_at(to, std::move(*from));
    std::destroy_at(from);
  }

  std::uint16_t count_ = 0;
  std::uint16_t capacity_;
  mutable std::atomic<bool> isSettling_ = false;  // whether a thread is within `settleShared`
  [[no_unique_address]] ListMarks<T> marks_;
  // The slots follow, from the end of this object on.
};

}  // namespace korrin::detail

#pragma GCC visibility pop
