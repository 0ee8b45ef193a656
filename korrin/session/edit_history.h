#pragma once

// One open plot with everything that can be undone and redone.
//
// The history keeps the plot as it was before each edit. Plots share what edits leave alone: an
// entry costs a few hundred bytes, what the edit replaced, and 10 bytes for every 64 elements of
// the lists that it touched.
//
// Every operation that fails, because memory ran out, the clock threw or an edit did, leaves the
// history and its project as they were. A history is a value: it may be copied, and one object is
// used by one thread at a time.

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <list>
#include <optional>
#include <vector>

#include "korrin/commands/document_command.h"

#pragma GCC visibility push(default)

namespace korrin {

/// What a host says about an edit. All of it may be left out.
struct EditDescription {
  Text name = {};  ///< What menus call the edit, such as "Move"; empty for an edit without name.
  Text mergeKey = {};    ///< Edits in a row with the same key become one entry; empty: never.
  IDSet selection = {};  ///< What was selected before; undo gives it back.
  IDSet selectionAfterwards = {};  ///< What is selected after it; redo gives it back.
};

/// How much a history keeps, and what it takes for one edit.
struct HistoryLimits {
  /// The most edits that can be undone; the oldest go first. 0: none can.
  std::size_t entries = 1'000;
  /// The longest time between two edits that merge. Negative: none merge.
  std::chrono::nanoseconds mergeInterval = std::chrono::seconds(1);
};

/// What an undo or a redo did.
struct HistoryStep {
  Text name;          ///< Of the edit; empty when it has none.
  ChangeSet changes;  ///< What differs between the states before and after this step, no more.
  IDSet selection;    ///< What to select now.
};

/// A project, edited through commands, with undo and redo.
class EditHistory {
 public:
  /// A history without edits, whose project counts as saved.
  explicit EditHistory(KorrinProject project, HistoryLimits limits = {});

  /// The plot as it stands. The reference holds as long as this history; what it refers to changes
  /// with every edit. A copy costs no allocation.
  const KorrinProject& project() const noexcept { return project_; }

  /// Applies the command and returns what it changed. What was undone before cannot be redone any
  /// more. A command that is nothing but empty compounds leaves no entry, and redo as it is.
  ///
  /// The edit joins the last entry when both have the same merge key, the time between them by the
  /// environment's clock is at most `HistoryLimits::mergeInterval`, and since the last edit nothing
  /// was undone, redone, marked as saved or made by a gesture. The entry keeps its first name and
  /// `selection`, takes this `selectionAfterwards`, and the interval starts again.
  ///
  /// Inside a gesture the edit joins the gesture, and of its description nothing counts but a
  /// `selectionAfterwards` that is not empty.
  ///
  /// Reads the clock as often as the command does; once more when there is a merge key and the
  /// command reads none.
  ChangeSet perform(const DocumentCommand& command, EditDescription description = {},
                    const Environment& environment = Environment::system());

  /// Takes the last edit back: every field is as it was before it, to the bit, whatever the command
  /// was. `metadata.modifiedAt` alone goes on: it is the clock's instant, or stays when that is
  /// earlier. Nothing when there is no edit to undo. Ends an open gesture first. Reads the clock
  /// once.
  std::optional<HistoryStep> undo(const Environment& environment = Environment::system());

  /// Makes the edit that was undone last once more, in the same way.
  std::optional<HistoryStep> redo(const Environment& environment = Environment::system());

  /// @{
  /// Name of the edit that `undo` or `redo` would take next, the empty text when it has none;
  /// nothing when there is no such edit. Inside a gesture as at its beginning.
  std::optional<Text> undoName() const;
  std::optional<Text> redoName() const;
  /// @}
  /// @{
  /// Names of all edits that can be undone or redone, in the order in which they were made: the
  /// last of `undoNames` is undone next, the first of `redoNames` is redone next. The empty text
  /// for an edit without a name. Inside a gesture as at its beginning.
  std::vector<Text> undoNames() const;
  std::vector<Text> redoNames() const;
  /// @}
  /// @{
  /// Number of edits that can be undone or redone. Inside a gesture as at its beginning.
  std::size_t undoCount() const noexcept { return undo_.size(); }
  std::size_t redoCount() const noexcept { return redo_.size(); }
  /// @}

  /// Begins a gesture, such as a drag: all edits until its end are one entry, with this
  /// description. Ends an open gesture first.
  void beginGesture(EditDescription description = {});
  /// Ends the gesture. One without a command leaves no entry and redo as it is. Without a gesture
  /// nothing happens.
  void endGesture() noexcept;
  /// Takes all edits of the gesture back, `metadata.modifiedAt` included; undo and redo are as they
  /// were at its beginning. Returns what differs. Without a gesture nothing happens.
  ChangeSet cancelGesture();
  /// Whether a gesture is open.
  bool isInGesture() const noexcept { return gesture_.has_value(); }

  /// Notes that the plot as it stands was saved. Ends an open gesture first.
  void markSaved() noexcept;
  /// Whether the plot stands where it was saved: at the same place between undo and redo, not in an
  /// equal state. False for good once that place can't be reached any more. Inside a gesture as at
  /// its beginning.
  bool isSaved() const noexcept { return savedPosition_ == position(); }

 private:
  struct Entry {
    EditDescription description;
    KorrinProject otherSide;  // before the edit while it can be undone, after it while redone
    std::uint64_t position;   // unlike that of all others; where the plot stands after the edit
  };
  // Entries move between the lists as nodes, which can't fail.
  using Entries = std::list<Entry>;

  struct Gesture {
    Entries entry;  // one, with the project as it was at the beginning
    bool hasEdits;
  };

  std::uint64_t position() const noexcept;
  Entries newEntry(EditDescription&& description) const;
  void append(Entries&& entry) noexcept;
  HistoryStep stepTo(const Entry& entry, const IDSet& selection) const;
  void turnLast(Entries& from, Entries& to, Instant modifiedAt) noexcept;

  KorrinProject project_;
  HistoryLimits limits_;
  Entries undo_;  // the newest edit last
  Entries redo_;  // what is redone next last
  std::optional<Gesture> gesture_;
  std::optional<Instant> mergesSince_;  // the last edit, while another may join its entry
  std::uint64_t oldestPosition_ = 0;    // where the plot stands when all edits are undone
  std::uint64_t lastPosition_ = 0;
  std::uint64_t savedPosition_ = 0;
};

}  // namespace korrin

#pragma GCC visibility pop
