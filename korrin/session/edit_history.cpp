#include "korrin/session/edit_history.h"

#include <algorithm>
#include <iterator>
#include <type_traits>
#include <utility>
#include <vector>

#include "korrin/session/changes_between.h"

namespace korrin {
namespace {

// What commits an edit must not be able to fail.
static_assert(std::is_nothrow_copy_constructible_v<KorrinProject>);
static_assert(std::is_nothrow_swappable_v<KorrinProject>);
static_assert(std::is_nothrow_swappable_v<IDSet>);
static_assert(std::is_nothrow_move_constructible_v<HistoryStep>);

// Whether the command is a compound of nothing, however deep. Nesting is kept off the machine's
// stack.
bool isNothing(const DocumentCommand& command) {
  if (command.get<Compound>() == nullptr) return false;
  std::vector<const Compound*> open = {command.get<Compound>()};
  while (!open.empty()) {
    const Compound& compound = *open.back();
    open.pop_back();
    for (const DocumentCommand& nested : compound.commands) {
      const Compound* const further = nested.get<Compound>();
      if (further == nullptr) return false;
      open.push_back(further);
    }
  }
  return true;
}

// The time between two instants, however far apart.
bool liesWithin(std::chrono::nanoseconds interval, Instant a, Instant b) {
  if (interval.count() < 0) return false;
  const auto earlier = static_cast<std::uint64_t>(std::min(a, b).time_since_epoch().count());
  const auto later = static_cast<std::uint64_t>(std::max(a, b).time_since_epoch().count());
  return later - earlier <= static_cast<std::uint64_t>(interval.count());
}

}  // namespace

EditHistory::EditHistory(KorrinProject project, HistoryLimits limits)
    : project_(std::move(project)), limits_(limits) {}

std::uint64_t EditHistory::position() const noexcept {
  return undo_.empty() ? oldestPosition_ : undo_.back().position;
}

EditHistory::Entries EditHistory::newEntry(EditDescription&& description) const {
  Entries entry;
  entry.push_back({.description = std::move(description), .otherSide = project_, .position = 0});
  return entry;
}

void EditHistory::append(Entries&& entry) noexcept {
  entry.back().position = ++lastPosition_;
  undo_.splice(undo_.end(), entry);
  redo_.clear();
  if (undo_.size() > limits_.entries) {
    oldestPosition_ = undo_.front().position;
    undo_.pop_front();
  }
}

ChangeSet EditHistory::perform(const DocumentCommand& command, EditDescription description,
                               const Environment& environment) {
  if (isNothing(command)) return {{}, false, false};

  // The command's own reading is the edit's time: a clock is not asked twice for one thing.
  std::optional<Instant> readAt;
  const Environment watched = {.now = [&] { return *(readAt = environment.now()); },
                               .makeUUID = environment.makeUUID};
  KorrinProject next = project_;
  ChangeSet changes = command.apply(next, watched).changes;

  if (gesture_) {
    IDSet& afterwards = gesture_->entry.back().description.selectionAfterwards;
    if (!description.selectionAfterwards.empty())
      std::swap(afterwards, description.selectionAfterwards);
    gesture_->hasEdits = true;
    std::swap(project_, next);
    return changes;
  }

  if (!readAt && !description.mergeKey.empty()) readAt = environment.now();
  const bool merges = mergesSince_ && !undo_.empty() && !description.mergeKey.empty() &&
                      undo_.back().description.mergeKey == description.mergeKey &&
                      liesWithin(limits_.mergeInterval, *mergesSince_, *readAt);
  if (merges) {
    std::swap(undo_.back().description.selectionAfterwards, description.selectionAfterwards);
  } else {
    append(newEntry(std::move(description)));
  }
  mergesSince_ = readAt;
  std::swap(project_, next);
  return changes;
}

// What swapping the two states changes.
HistoryStep EditHistory::stepTo(const Entry& entry, const IDSet& selection) const {
  // Made one by one: g++ 12 destroys parts of an aggregate twice when a later part throws.
  ChangeSet changes = changesBetween(project_, entry.otherSide);
  IDSet selected = selection;
  return {.name = entry.description.name,
          .changes = std::move(changes),
          .selection = std::move(selected)};
}

void EditHistory::turnLast(Entries& from, Entries& to, Instant modifiedAt) noexcept {
  std::swap(project_, from.back().otherSide);
  project_.metadata.modifiedAt = modifiedAt;
  to.splice(to.end(), from, std::prev(from.end()));
  mergesSince_ = std::nullopt;
}

std::optional<HistoryStep> EditHistory::undo(const Environment& environment) {
  // The edit of an open gesture is the last one. The gesture ends once nothing can fail any more.
  const bool isGesture = gesture_ && gesture_->hasEdits;
  if (isGesture ? limits_.entries == 0 : undo_.empty()) {
    endGesture();
    return std::nullopt;
  }
  const Entry& entry = isGesture ? gesture_->entry.back() : undo_.back();
  HistoryStep done = stepTo(entry, entry.description.selection);
  const Instant modifiedAt = std::max(environment.now(), project_.metadata.modifiedAt);

  endGesture();
  turnLast(undo_, redo_, modifiedAt);
  return done;
}

std::optional<HistoryStep> EditHistory::redo(const Environment& environment) {
  if (redo_.empty() || (gesture_ && gesture_->hasEdits)) {
    endGesture();
    return std::nullopt;
  }
  HistoryStep done = stepTo(redo_.back(), redo_.back().description.selectionAfterwards);
  const Instant modifiedAt = std::max(environment.now(), project_.metadata.modifiedAt);

  endGesture();
  turnLast(redo_, undo_, modifiedAt);
  return done;
}

std::optional<Text> EditHistory::undoName() const {
  if (undo_.empty()) return std::nullopt;
  return undo_.back().description.name;
}

std::optional<Text> EditHistory::redoName() const {
  if (redo_.empty()) return std::nullopt;
  return redo_.back().description.name;
}

std::vector<Text> EditHistory::undoNames() const {
  std::vector<Text> names;
  names.reserve(undo_.size());
  for (const Entry& entry : undo_) names.push_back(entry.description.name);
  return names;
}

std::vector<Text> EditHistory::redoNames() const {
  std::vector<Text> names;
  names.reserve(redo_.size());
  for (auto entry = redo_.rbegin(); entry != redo_.rend(); ++entry)
    names.push_back(entry->description.name);
  return names;
}

void EditHistory::beginGesture(EditDescription description) {
  Entries entry = newEntry(std::move(description));
  endGesture();
  gesture_ = Gesture{.entry = std::move(entry), .hasEdits = false};
}

void EditHistory::endGesture() noexcept {
  if (gesture_ && gesture_->hasEdits) {
    append(std::move(gesture_->entry));
    mergesSince_ = std::nullopt;
  }
  gesture_ = std::nullopt;
}

ChangeSet EditHistory::cancelGesture() {
  if (!gesture_) return {{}, false, false};
  KorrinProject& former = gesture_->entry.back().otherSide;
  ChangeSet changes = changesBetween(project_, former);
  std::swap(project_, former);
  gesture_ = std::nullopt;
  return changes;
}

void EditHistory::markSaved() noexcept {
  endGesture();
  savedPosition_ = position();
  mergesSince_ = std::nullopt;
}

}  // namespace korrin
