#pragma once

// How a leaf of a List (list.h) and a copy of it hold the same elements without two shares of each.
//
// The copy *borrows*: in an element that lender and borrower hold jointly they own one share. A
// word of the lender names these elements, with a bit for each slot of the borrower. Who lets go of
// an element first clears its bit and leaves the share to the other; who finds the bit cleared is
// the last, and the share is its own. Thus an element lives exactly as long as it would with two
// shares, and one atomic instruction does for up to 64 what took one for each.
//
// A leaf lends to one borrower at a time, and a borrower lends nothing: all other copies count
// shares of their own. So no chain of loans forms. A lender that is disposed of first leaves its
// memory, but no element, until the loan ends.

#include <atomic>
#include <cstddef>
#include <cstdint>

#include "korrin/foundation/list_marks.h"
#include "korrin/foundation/shared.h"

#pragma GCC visibility push(default)

namespace korrin::detail {

/// What a leaf knows of its loan. Several threads may call `lendTo` at the same time; the rest is
/// for the only owner of the leaf, while that at the other end may do the same.
class LeafLoan {
 public:
  /// Lends to a new leaf, which is about to get `count` slots: those of this leaf but `leftOut`.
  /// Returns whether it does. Few elements, and any number while no other thread runs, have their
  /// shares counted as quickly.
  bool lendTo(LeafLoan& borrower, std::size_t count, SlotMask leftOut) noexcept {
    Role role = Role::none;
    if (count < fewest || isOnlyThread() ||
        !role_.compare_exchange_strong(role, Role::lender, std::memory_order_acquire))
      return false;
    leftOut_ = leftOut;
    joint_.store(firstSlots(count), std::memory_order_relaxed);
    borrower.lender_ = this;
    borrower.joint_.store(firstSlots(count), std::memory_order_relaxed);
    borrower.role_.store(Role::borrower, std::memory_order_relaxed);
    return true;
  }

  /// Whether a loan has not ended. If it has, what the other end did with elements comes before
  /// what is done from here on.
  bool hasLoan() const noexcept { return role_.load(std::memory_order_acquire) != Role::none; }

  /// The slots whose elements may be held jointly: of a borrower only those that are chosen.
  SlotMask joint(SlotMask chosen) const noexcept {
    const SlotMask joint = joint_.load(std::memory_order_acquire);
    return isBorrower() ? joint & chosen : ofLender(joint);
  }

  /// Lets go of the slots that `joint` names. Returns those of which the other leaf has the share
  /// from then on; this leaf has that of the others.
  SlotMask letGo(SlotMask chosen) noexcept {
    // Release: what was read here comes before a change by the other. Acquire: the reverse.
    if (!isBorrower()) return ofLender(joint_.exchange(0, std::memory_order_acq_rel));
    const SlotMask borrowed = joint(chosen);
    joint_.store(joint_.load(std::memory_order_relaxed) & ~borrowed, std::memory_order_relaxed);
    return lender_->joint_.fetch_and(~borrowed, std::memory_order_acq_rel) & borrowed;
  }

  /// Ends the loan of a borrower that has let go of all. Returns the lender if that has been
  /// disposed of: its memory is then the caller's to free.
  LeafLoan* endOfLoan() noexcept {
    if (!isBorrower() || joint_.load(std::memory_order_relaxed) != 0) return nullptr;
    LeafLoan* const lender = lender_;
    leftOut_ = 0;
    role_.store(Role::none, std::memory_order_relaxed);
    const Role former = lender->role_.exchange(Role::none, std::memory_order_acq_rel);
    return former == Role::disposedOf ? lender : nullptr;
  }

  /// At the disposal of this leaf: whether its memory stays until the loan ends.
  bool leavesMemory() noexcept {
    Role role = Role::lender;
    return role_.compare_exchange_strong(role, Role::disposedOf, std::memory_order_acq_rel);
  }

 private:
  enum class Role : std::uint8_t { none, lender, disposedOf, borrower };
  static constexpr std::size_t fewest = slotsOfALeaf / 4;

  bool isBorrower() const noexcept {
    return role_.load(std::memory_order_relaxed) == Role::borrower;
  }

  /// The lender's slots that correspond to slots of the borrower.
  SlotMask ofLender(SlotMask slots) const noexcept {
    SlotMask result = 0;
    for (SlotMask held = ~leftOut_; slots != 0; slots >>= 1, held &= held - 1)
      if ((slots & 1) != 0) result |= held & (~held + 1);
    return result;
  }

  std::atomic<SlotMask> joint_ = 0;  // slots of the borrower, at both ends
  union {
    SlotMask leftOut_ = 0;  // of a lender
    LeafLoan* lender_;      // of a borrower
  };
  std::atomic<Role> role_ = Role::none;
};

}  // namespace korrin::detail

#pragma GCC visibility pop
