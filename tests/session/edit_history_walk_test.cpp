// A walk at random over every operation of the history, beside a model that keeps whole states in
// one row and does everything the plain way.
//
// KORRIN_TEST_WALK sets the number of steps, KORRIN_TEST_SEED the seed.

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <map>
#include <optional>
#include <random>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/foundation/same_bits.h"
#include "korrin/session/edit_history.h"
#include "korrin/session/structural_edits.h"

#include "tests/support/effort.h"
#include "tests/support/laws.h"
#include "tests/support/random_edits.h"
#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

struct ClockFailure : std::runtime_error {
  ClockFailure() : std::runtime_error("the clock failed") {}
};

std::uint64_t numberFrom(const char* variable, std::uint64_t otherwise) {
  const char* const text = std::getenv(variable);
  return text == nullptr ? otherwise : std::strtoull(text, nullptr, 10);
}

struct ModelEntry {
  EditDescription description;
  KorrinProject before;
  KorrinProject after;
  std::size_t hashBefore;  // noticed if what is shared changes after all
  ChangeSet named;         // by the commands themselves
  int number;
};

// What the history should be.
struct Model {
  KorrinProject project;
  HistoryLimits limits;
  std::vector<ModelEntry> entries = {};
  std::size_t done = 0;  // those of the entries that are not undone
  std::optional<ModelEntry> gesture = {};
  bool gestureHasEdits = false;
  bool merges = false;
  Instant lastEdit = {};
  int numbers = 0;
  int forgotten = 0;  // number of the newest entry that was forgotten, 0 for none
  std::optional<int> saved = 0;

  int position() const { return done == 0 ? forgotten : entries[done - 1].number; }

  void add(ModelEntry entry) {
    entries.resize(done, entry);
    entry.number = ++numbers;
    entries.push_back(std::move(entry));
    ++done;
    while (entries.size() > limits.entries) {
      forgotten = entries.front().number;
      entries.erase(entries.begin());
      --done;
    }
  }

  void endGesture() {
    if (gesture && gestureHasEdits) {
      gesture->after = project;
      add(*gesture);
      merges = false;
    }
    gesture.reset();
  }
};

ChangeSet united(ChangeSet a, const ChangeSet& b) {
  a.changedItemIDs.insert(b.changedItemIDs.begin(), b.changedItemIDs.end());
  a.affectsTechnicalData |= b.affectsTechnicalData;
  a.affectsDocumentStructure |= b.affectsDocumentStructure;
  return a;
}

// What differs, found by looking at everything.
ChangeSet differenceOf(const KorrinProject& a, const KorrinProject& b) {
  ChangeSet changes = {{}, false, false};
  std::map<UUID, std::pair<List<PlotItem>, List<PlotItem>>> byID;
  List<UUID> orderA;
  List<UUID> orderB;
  for (const PlotItem& item : a.items) {
    byID[item.id].first.push_back(item);
    orderA.push_back(item.id);
  }
  for (const PlotItem& item : b.items) {
    byID[item.id].second.push_back(item);
    orderB.push_back(item.id);
  }
  for (const auto& [id, items] : byID)
    if (!sameBits(items.first, items.second)) changes.changedItemIDs.insert(id);
  changes.affectsTechnicalData =
      !sameBits(a.inputs, b.inputs) || !sameBits(a.monitorMixes, b.monitorMixes) ||
      !sameBits(a.equipmentRequirements, b.equipmentRequirements) || !sameBits(a.notes, b.notes);
  changes.affectsDocumentStructure = orderA != orderB || !sameBits(a.layers, b.layers) ||
                                     !sameBits(a.groups, b.groups) || !sameBits(a.stage, b.stage) ||
                                     !sameBits(a.assetManifest, b.assetManifest) ||
                                     a.exportSettings != b.exportSettings;
  return changes;
}

void expectCovers(const ChangeSet& changes, const ChangeSet& needed, const ChangeSet& allowed) {
  for (const UUID& id : needed.changedItemIDs)
    ASSERT_TRUE(changes.changedItemIDs.contains(id)) << id.text() << " is not named";
  for (const UUID& id : changes.changedItemIDs)
    ASSERT_TRUE(needed.changedItemIDs.contains(id) || allowed.changedItemIDs.contains(id))
        << id.text() << " is named for nothing";
  ASSERT_LE(needed.affectsTechnicalData, changes.affectsTechnicalData);
  ASSERT_LE(changes.affectsTechnicalData,
            needed.affectsTechnicalData || allowed.affectsTechnicalData);
  ASSERT_LE(needed.affectsDocumentStructure, changes.affectsDocumentStructure);
  ASSERT_LE(changes.affectsDocumentStructure,
            needed.affectsDocumentStructure || allowed.affectsDocumentStructure);
}

class Walk {
 public:
  Walk(std::uint64_t seed, HistoryLimits limits)
      : random_(seed),
        edits_([this](int limit) { return below(limit); }),
        model_{.project = startingProject(), .limits = limits},
        history_(model_.project, limits) {}

  void step() {
    time_ += std::chrono::milliseconds(below(3) == 0 ? below(2000) - 200 : below(300));
    fails_ = below(20) == 0;
    switch (below(12)) {
      case 0:
      case 1:
        return undo();
      case 2:
        return redo();
      case 3:
        model_.endGesture();
        model_.saved = model_.position();
        model_.merges = false;
        return history_.markSaved();
      case 4:
        return beginGesture();
      case 5:
        model_.endGesture();
        return history_.endGesture();
      case 6:
        return cancelGesture();
      default:
        return perform();
    }
  }

  void check() const {
    ASSERT_TRUE(sameBits(history_.project(), model_.project));
    ASSERT_EQ(history_.undoCount(), model_.done);
    ASSERT_EQ(history_.redoCount(), model_.entries.size() - model_.done);
    ASSERT_EQ(history_.isInGesture(), model_.gesture.has_value());
    ASSERT_EQ(history_.isSaved(), model_.saved == model_.position());
    const auto nameOf = [this](std::size_t place) -> std::optional<Text> {
      if (place >= model_.entries.size()) return std::nullopt;
      return model_.entries[place].description.name;
    };
    ASSERT_EQ(history_.undoName(), nameOf(model_.done - 1));
    ASSERT_EQ(history_.redoName(), nameOf(model_.done));
  }

 private:
  int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

  // Repeated identifiers, an empty group and a NaN.
  KorrinProject startingProject() {
    KorrinProject project = edits_.project();
    for (const PlotItem& item : edits_.project().items) project.items.push_back(item);
    project.groups.push_back(PlotGroup{.id = identifier(70), .name = "Empty", .itemIDs = {}});
    if (!project.items.empty()) project.items.edit(0).position.x = std::nan("");
    return project;
  }

  Instant read() {
    if (fails_) throw ClockFailure();
    return time_;
  }

  EditDescription description() {
    static const std::vector<Text> keys = {"", "", "nudge", "type"};
    return {.name = std::to_string(below(5)),
            .mergeKey = keys[static_cast<std::size_t>(below(4))],
            .selection = edits_.identifiers(model_.project),
            .selectionAfterwards = edits_.identifiers(model_.project)};
  }

  std::optional<DocumentCommand> command() {
    const KorrinProject& project = model_.project;
    const IDSet selection = edits_.identifiers(project);
    const UUID layer = identifier(static_cast<std::uint64_t>(below(12)));
    const auto of = [](std::optional<Paste> paste) -> std::optional<DocumentCommand> {
      if (!paste) return std::nullopt;
      return paste->command;
    };
    switch (below(16)) {
      case 0:
        return edits_.anyInsert();
      case 1:
        return DocumentCommand::compound({});
      case 2:
        return movingCommand(project, selection, {.x = below(3) - 1.0, .y = 0});
      case 3:
        return deletingCommand(project, selection);
      case 4:
        return ungroupingCommand(project, selection);
      case 5:
        return stackingCommand(project, selection, static_cast<StackingMove>(below(4)),
                               environment_);
      case 6:
        return layerAssigningCommand(project, selection, layer);
      case 7:
        return layerDeletingCommand(project, layer,
                                    below(2) == 0 ? std::nullopt : std::optional(pooled()));
      case 8:
        return exportSettingsCommand(project, edits_.project().exportSettings, environment_);
      case 9:
        if (project.items.size() > 60) return DocumentCommand::deleteItems(selection);
        return of(duplicatingCommand(project, selection, {.x = 10, .y = 10}, environment_));
      default:
        return edits_.reversibleCommand(project, 2);
    }
  }

  UUID pooled() { return identifier(static_cast<std::uint64_t>(below(12))); }

  void perform() {
    const bool fails = std::exchange(fails_, false);
    const std::optional<DocumentCommand> command = this->command();
    if (!command) return;
    fails_ = fails;
    const EditDescription description = this->description();
    KorrinProject next = model_.project;
    ChangeSet expected;
    try {
      expected = command->apply(next, environment_).changes;
      if (!description.mergeKey.empty() && !model_.gesture && hasCases(*command)) read();
    } catch (const ClockFailure&) {
      EXPECT_THROW(history_.perform(*command, description, environment_), ClockFailure);
      return;
    }
    ASSERT_EQ(history_.perform(*command, description, environment_), expected);
    if (!hasCases(*command)) return;

    const KorrinProject before = std::exchange(model_.project, next);
    if (model_.gesture) {
      model_.gestureHasEdits = true;
      model_.gesture->named = united(model_.gesture->named, expected);
      if (!description.selectionAfterwards.empty())
        model_.gesture->description.selectionAfterwards = description.selectionAfterwards;
      return;
    }
    const bool merges =
        model_.merges && model_.done > 0 && !description.mergeKey.empty() &&
        model_.entries[model_.done - 1].description.mergeKey == description.mergeKey &&
        (time_ > model_.lastEdit ? time_ - model_.lastEdit : model_.lastEdit - time_) <=
            model_.limits.mergeInterval;
    if (merges) {
      ModelEntry& entry = model_.entries[model_.done - 1];
      entry.after = next;
      entry.named = united(entry.named, expected);
      entry.description.selectionAfterwards = description.selectionAfterwards;
    } else {
      model_.add(entryFor(description, before, next, expected));
    }
    model_.merges = true;
    model_.lastEdit = time_;
  }

  static bool hasCases(const DocumentCommand& command) { return !unfolded(command).empty(); }

  static ModelEntry entryFor(const EditDescription& description, const KorrinProject& before,
                             const KorrinProject& after, const ChangeSet& named) {
    return {.description = description,
            .before = before,
            .after = after,
            .hashBefore = std::hash<KorrinProject>{}(before),
            .named = named,
            .number = 0};
  }

  void beginGesture() {
    const EditDescription description = this->description();
    model_.endGesture();
    model_.gesture = entryFor(description, model_.project, model_.project, {{}, false, false});
    model_.gestureHasEdits = false;
    history_.beginGesture(description);
  }

  bool hasPendingEdit() const { return model_.gesture && model_.gestureHasEdits; }

  void cancelGesture() {
    const KorrinProject before = model_.project;
    ChangeSet named = {{}, false, false};
    if (model_.gesture) {
      model_.project = model_.gesture->before;
      named = model_.gesture->named;
    }
    model_.gesture.reset();
    expectCovers(history_.cancelGesture(), differenceOf(before, model_.project), named);
  }

  void undo() {
    const bool isVain = hasPendingEdit() ? model_.limits.entries == 0 : model_.done == 0;
    if (fails_ && !isVain) {
      EXPECT_THROW(history_.undo(environment_), ClockFailure);
      return;
    }
    model_.endGesture();
    const std::optional<HistoryStep> step = history_.undo(environment_);
    ASSERT_EQ(step.has_value(), !isVain);
    if (isVain) return;
    const ModelEntry& entry = model_.entries[--model_.done];
    ASSERT_EQ(entry.hashBefore, std::hash<KorrinProject>{}(entry.before));
    turnTo(entry.before, entry, entry.description.selection, *step);
  }

  void redo() {
    const bool isVain = hasPendingEdit() || model_.done == model_.entries.size();
    if (fails_ && !isVain) {
      EXPECT_THROW(history_.redo(environment_), ClockFailure);
      return;
    }
    model_.endGesture();
    const std::optional<HistoryStep> step = history_.redo(environment_);
    ASSERT_EQ(step.has_value(), !isVain);
    if (isVain) return;
    const ModelEntry& entry = model_.entries[model_.done++];
    turnTo(entry.after, entry, entry.description.selectionAfterwards, *step);
  }

  void turnTo(KorrinProject next, const ModelEntry& entry, const IDSet& selection,
              const HistoryStep& step) {
    next.metadata.modifiedAt = std::max(time_, model_.project.metadata.modifiedAt);
    const KorrinProject before = std::exchange(model_.project, next);
    model_.merges = false;
    ASSERT_EQ(step.name, entry.description.name);
    ASSERT_EQ(step.selection, selection);
    expectCovers(step.changes, differenceOf(before, model_.project), entry.named);
  }

  std::mt19937_64 random_;
  RandomEdits edits_;
  Instant time_ = instant(5'000'000);
  bool fails_ = false;
  std::uint64_t nextID_ = 5'000'000;
  Environment environment_ = {.now = [this] { return read(); },
                              .makeUUID = [this] { return identifier(nextID_++); }};
  Model model_;
  EditHistory history_;
};

TEST(EditHistoryWalk, GoesWhereTheModelGoes) {
  const std::uint64_t seed = numberFrom("KORRIN_TEST_SEED", std::random_device{}());
  const std::uint64_t steps =
      numberFrom("KORRIN_TEST_WALK", static_cast<std::uint64_t>(repetitions(100'000, 6'000)));
  for (const std::size_t entries : {5u, 1'000u, 0u, 1u}) {
    SCOPED_TRACE("seed " + std::to_string(seed) + ", limit " + std::to_string(entries));
    Walk walk(seed, {.entries = entries});
    for (std::uint64_t step = 0; step < steps / 4; ++step) {
      walk.step();
      if (!testing::Test::HasFatalFailure()) walk.check();
      if (testing::Test::HasFailure()) FAIL() << "at step " << step;
    }
  }
}

}  // namespace
}  // namespace korrin::test
