#pragma once

// What a leaf of a List (list.h) knows of its elements without reading them. Elements stand apart
// in memory, so that looking at each costs a wait for memory; the marks of a whole leaf stand side
// by side. A mark never misses an identifier. It may take one for another, which costs a look at
// the element.

#include <algorithm>
#include <array>
#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <limits>
#include <optional>
#include <type_traits>

#include "korrin/foundation/search_key.h"
#include "korrin/foundation/uuid.h"

#pragma GCC visibility push(default)

namespace korrin::detail {

/// A choice among the slots of a leaf: bit n stands for slot n.
using SlotMask = std::uint64_t;
inline constexpr std::size_t slotsOfALeaf = 64;

/// The slots before slot `count`: none of them for 0, all for 64.
constexpr SlotMask firstSlots(std::size_t count) noexcept {
  return (SlotMask{count < slotsOfALeaf} << count % slotsOfALeaf) - 1;
}

/// The mark of one identifier, or of none: a byte of its hash.
struct ByteMark {
  using Type = std::uint8_t;

  static Type of(const UUID& id) noexcept {
    return std::max(static_cast<Type>(std::hash<UUID>{}(id)), Type{1});
  }
  static Type of(const std::optional<UUID>& id) noexcept { return id ? of(*id) : Type{0}; }

  static SlotMask matches(const Type* marks, std::size_t count, Type sought) noexcept {
    SlotMask found = 0;
    const Type* at = marks;
    const Type* const end = marks + count;
    while ((at = static_cast<const Type*>(
                std::memchr(at, sought, static_cast<std::size_t>(end - at)))) != nullptr)
      found |= SlotMask{1} << (at++ - marks);
    return found;
  }
};

/// The mark of several identifiers: two bits for each, or all bits for so many that nearly all
/// would be set anyway. Thus a mark is made in constant time.
struct FilterMark {
  using Type = std::uint32_t;
  static constexpr std::size_t mostIDs = 32;

  static Type of(const UUID& id) noexcept {
    const std::size_t hash = std::hash<UUID>{}(id);
    return Type{1} << (hash & 31) | Type{1} << (hash >> 5 & 31);
  }
  /// An empty list has every bit: who searches lists for their members wants to see it as well.
  template <class IDs>
  static Type of(const IDs& ids) noexcept {
    if (ids.empty() || ids.size() > mostIDs) return std::numeric_limits<Type>::max();
    Type mark = 0;
    for (const UUID& id : ids) mark |= of(id);
    return mark;
  }

  static SlotMask matches(const Type* marks, std::size_t count, Type sought) noexcept {
    SlotMask found = 0;
    for (std::size_t i = 0; i < count; ++i) found |= SlotMask{(marks[i] & sought) == sought} << i;
    return found;
  }
};

template <class T>
struct MemberType;
template <class Record, class Value>
struct MemberType<Value Record::*> {
  using Type = Value;
};

template <Searchable T>
using SearchKey = typename MemberType<std::remove_cv_t<decltype(searchKey<T>)>>::Type;

template <Searchable T>
using MarkOf = std::conditional_t<std::is_same_v<SearchKey<T>, UUID> ||
                                      std::is_same_v<SearchKey<T>, std::optional<UUID>>,
                                  ByteMark, FilterMark>;

/// The marks of the slots of one leaf; nothing for elements that nobody looks for.
template <class T>
class ListMarks {
 public:
  void handOut(std::size_t) noexcept {}
  template <class Slot>
  void settle(const Slot*) noexcept {}
  template <class Slot>
  void settleShared(const Slot*, std::atomic<bool>&) const noexcept {}
  void note(std::size_t, const T&) noexcept {}
  void copy(std::size_t, const ListMarks&, std::size_t, const T&) noexcept {}
  void take(const ListMarks&) noexcept {}
  void insertAt(std::size_t, std::size_t, const T&) noexcept {}
  void removeAt(std::size_t, std::size_t) noexcept {}
};

/// An element is handed out when somebody has a reference through which to change it, its key too.
/// It matches whatever is sought, since its mark may be out of date.
///
/// Several threads may call the functions that are `const` at the same time. None reads the mark of
/// an element that is handed out, so that one of them may write it (`settleShared`).
template <Searchable T>
class ListMarks<T> {
  using Mark = MarkOf<T>;

 public:
  /// Somebody may change the element of the slot from here on.
  void handOut(std::size_t slot) noexcept { setHandedOut(handedOut() | bit(slot)); }
  /// Nobody changes an element any more that was handed out.
  template <class Slot>
  void settle(const Slot* slots) noexcept {
    if (handedOut() == 0) return;
    makeMarks(slots);
    setHandedOut(0);
  }
  /// As `settle`, for a leaf that several lists reach, while others read the marks. Does nothing
  /// while another thread does it, for which this one need not wait. `isClaimed` belongs to these
  /// marks; it stands apart because they would be larger with it.
  template <class Slot>
  void settleShared(const Slot* slots, std::atomic<bool>& isClaimed) const noexcept {
    if (handedOut() == 0 || isClaimed.exchange(true, std::memory_order_acquire)) return;
    makeMarks(slots);
    handedOut_.store(0, std::memory_order_release);
    isClaimed.store(false, std::memory_order_release);
  }
  /// The slot holds this element, which nobody changes.
  void note(std::size_t slot, const T& element) noexcept {
    marks_[slot] = Mark::of(element.*searchKey<T>);
    setHandedOut(handedOut() & ~bit(slot));
  }
  /// The slot holds `element`, which stands in slot `from` of another leaf too, and which nobody
  /// changes.
  void copy(std::size_t slot, const ListMarks& other, std::size_t from, const T& element) noexcept {
    if ((other.handedOut() & bit(from)) != 0)
      note(slot, element);
    else
      marks_[slot] = other.marks_[from];
  }
  /// Makes these marks what `other` is.
  void take(const ListMarks& other) noexcept {
    marks_ = other.marks_;
    setHandedOut(other.handedOut());
  }
  /// Follows an insertion before, or a removal of, one of `count` slots. All are settled.
  void insertAt(std::size_t slot, std::size_t count, const T& element) noexcept {
    std::copy_backward(marks_.begin() + slot, marks_.begin() + count, marks_.begin() + count + 1);
    note(slot, element);
  }
  void removeAt(std::size_t slot, std::size_t count) noexcept {
    std::copy(marks_.begin() + slot + 1, marks_.begin() + count, marks_.begin() + slot);
  }

  /// Those of the first `count` slots, of which there is one, whose element may have the
  /// identifier.
  SlotMask matches(std::size_t count, const UUID& id) const noexcept {
    const auto sought = Mark::of(id);
    SlotMask found = handedOut();
    // One stretch of slots after the other that are not handed out; mostly there is but one.
    for (SlotMask rest = ~found & firstSlots(count); rest != 0;) {
      const auto first = static_cast<std::size_t>(std::countr_zero(rest));
      const auto length = static_cast<std::size_t>(std::countr_one(rest >> first));
      found |= Mark::matches(marks_.data() + first, length, sought) << first;
      rest &= ~(firstSlots(length) << first);
    }
    return found;
  }

 private:
  static SlotMask bit(std::size_t slot) noexcept { return SlotMask{1} << slot; }

  // Acquire: where a bit is gone, the mark that another thread made is there.
  SlotMask handedOut() const noexcept { return handedOut_.load(std::memory_order_acquire); }
  void setHandedOut(SlotMask slots) noexcept { handedOut_.store(slots, std::memory_order_relaxed); }

  template <class Slot>
  void makeMarks(const Slot* slots) const noexcept {
    for (SlotMask rest = handedOut(); rest != 0; rest &= rest - 1) {
      const auto slot = static_cast<std::size_t>(std::countr_zero(rest));
      marks_[slot] = Mark::of(slots[slot].value().*searchKey<T>);
    }
  }

  mutable std::atomic<SlotMask> handedOut_ = 0;
  // Zero until made, since `take` copies all of them. With 64 bits for each list of identifiers a
  // leaf would exceed 1,024 bytes: glibc consolidates its free memory when a block of that size is
  // requested, which slows decoding by a tenth.
  mutable std::array<typename Mark::Type, slotsOfALeaf> marks_{};
};

}  // namespace korrin::detail

#pragma GCC visibility pop
