#include "korrin/session/edit_history.h"

#include <chrono>
#include <cmath>
#include <limits>
#include <optional>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/foundation/same_bits.h"

#include "tests/session/history_in_use.h"
#include "tests/support/laws.h"
#include "tests/support/sample_project.h"

namespace korrin {
namespace {

using namespace std::chrono_literals;
using namespace test::sample;
using test::Clock;
using test::expectSame;
using test::identifier;
using test::instant;
using test::microphone;
using test::move;
using test::sampleProject;
using test::withModifiedAt;
using test::xOf;
using C = DocumentCommand;

TEST(EditHistory, OfAFreshPlotIsSavedAndHasNothingToUndo) {
  EditHistory history(sampleProject());
  EXPECT_EQ(history.project(), sampleProject());
  EXPECT_TRUE(history.isSaved());
  EXPECT_EQ(history.undoCount(), 0u);
  EXPECT_EQ(history.redoCount(), 0u);
  EXPECT_EQ(history.undoName(), std::nullopt);
  EXPECT_EQ(history.redoName(), std::nullopt);
  Clock clock;
  EXPECT_FALSE(history.undo(clock.environment));
  EXPECT_FALSE(history.redo(clock.environment));
  EXPECT_EQ(clock.reads, 0);
}

TEST(EditHistory, PerformsAsTheCommandDoes) {
  Clock clock;
  EditHistory history(sampleProject());
  KorrinProject expected = sampleProject();
  const C command = C::deleteItems({vocal, kick});
  const ChangeSet changes = history.perform(command, {.name = "Delete"}, clock.environment);
  EXPECT_EQ(clock.reads, 1);
  EXPECT_EQ(changes, command.apply(expected, clock.environment).changes);
  EXPECT_EQ(history.project(), expected);
  EXPECT_EQ(history.undoName(), Text("Delete"));
  EXPECT_FALSE(history.isSaved());
}

TEST(EditHistory, GivesBackNameAndSelectionWithEachStep) {
  Clock clock;
  EditHistory history(sampleProject());
  history.perform(
      C::deleteItems({vocal}),
      {.name = "Delete", .mergeKey = {}, .selection = {vocal}, .selectionAfterwards = {kick}},
      clock.environment);
  const std::optional<HistoryStep> undone = history.undo(clock.environment);
  ASSERT_TRUE(undone);
  EXPECT_EQ(undone->name, "Delete");
  EXPECT_EQ(undone->selection, IDSet{vocal});
  EXPECT_EQ(history.redoName(), Text("Delete"));
  EXPECT_EQ(history.undoName(), std::nullopt);
  const std::optional<HistoryStep> redone = history.redo(clock.environment);
  ASSERT_TRUE(redone);
  EXPECT_EQ(redone->name, "Delete");
  EXPECT_EQ(redone->selection, IDSet{kick});
}

TEST(EditHistory, NamesAllEntriesInTheOrderInWhichTheyWereMade) {
  EditHistory history(sampleProject());
  for (const char* name : {"One", "Two", "Three", "Four"})
    history.perform(C::replaceNotes({}), {.name = name});
  history.undo();
  history.undo();
  EXPECT_EQ(history.undoNames(), (std::vector<Text>{"One", "Two"}));
  EXPECT_EQ(history.redoNames(), (std::vector<Text>{"Three", "Four"}));
  history.beginGesture({.name = "Drag"});
  history.perform(C::replaceNotes({}));
  EXPECT_EQ(history.undoNames(), (std::vector<Text>{"One", "Two"}));
  history.endGesture();
  EXPECT_EQ(history.undoNames(), (std::vector<Text>{"One", "Two", "Drag"}));
  EXPECT_TRUE(history.redoNames().empty());
}

TEST(EditHistory, NamesAnEntryWithoutNameByTheEmptyText) {
  EditHistory history(sampleProject());
  history.perform(C::deleteItems({vocal}));
  EXPECT_EQ(history.undoName(), Text());
}

// The inverses of these commands are not exact; the history is.
TEST(EditHistory, UndoesExactlyWhateverTheCommandWas) {
  KorrinProject odd = sampleProject();
  odd.groups.push_back(PlotGroup{.id = identifier(0x777), .name = "Empty", .itemIDs = {}});
  odd.items.push_back(microphone(vocal, std::nan(""), -0.0));
  odd.items.edit(0).position.y = std::nan("");
  const std::vector<C> commands = {
      C::insertItems({microphone(guitar), microphone(guitar, 5), microphone(identifier(0x888))}),
      C::deleteItems({identifier(0x999)}),
      C::replaceItems({microphone(vocal, 1), microphone(vocal, 2)}),
      C::compound({C::insertItems({microphone(kick)}), C::deleteItems({kick}),
                   C::insertItems({microphone(kick, 7)})}),
      C::replaceProject(test::sampleProject()),
      C::compound({C::replaceLayers({}), C::replaceProject(odd)}),
  };
  for (const C& command : commands) {
    Clock clock;
    EditHistory history(odd);
    history.perform(command, {}, clock.environment);
    const KorrinProject after = history.project();
    for (int round = 0; round < 3; ++round) {
      ASSERT_TRUE(history.undo(clock.environment));
      expectSame(history.project(), odd);
      ASSERT_TRUE(history.redo(clock.environment));
      expectSame(history.project(), after);
    }
  }
}

TEST(EditHistory, NeverSetsTheInstantOfTheLastChangeBack) {
  Clock clock;
  EditHistory history(sampleProject());
  history.perform(C::deleteItems({vocal}), {}, clock.environment);
  EXPECT_EQ(history.project().metadata.modifiedAt, instant(1000));
  clock.time = instant(1500);
  history.undo(clock.environment);
  EXPECT_EQ(history.project().metadata.modifiedAt, instant(1500));
  clock.time = instant(3);
  history.redo(clock.environment);
  EXPECT_EQ(history.project().metadata.modifiedAt, instant(1500));
}

TEST(EditHistory, NamesTheDeletedItemAndFlagsItsRowsAndNotTheWholePlot) {
  EditHistory history(sampleProject());
  history.perform(C::deleteItems({keys}));  // no row links to the keys
  EXPECT_EQ(history.undo()->changes, (ChangeSet{{keys}, false, true}));
  EXPECT_EQ(history.redo()->changes, (ChangeSet{{keys}, false, true}));
  history.perform(C::deleteItems({kick}));
  EXPECT_EQ(history.undo()->changes, (ChangeSet{{kick}, true, true}));
  history.perform(move(history.project(), 5));
  EXPECT_EQ(history.undo()->changes, (ChangeSet{{vocal}, false, false}));
}

TEST(EditHistory, RaisesTheFlagOfWhateverElseDiffers) {
  const KorrinProject original = sampleProject();
  const auto changesOf = [&](auto change) {
    KorrinProject other = original;
    change(other);
    EditHistory history(original);
    history.perform(C::replaceProject(other));
    return history.undo()->changes;
  };
  const ChangeSet none = {{}, false, false};
  const ChangeSet technical = {{}, true, false};
  const ChangeSet structural = {{}, false, true};
  EXPECT_EQ(changesOf([](KorrinProject&) {}), none);
  EXPECT_EQ(changesOf([](KorrinProject& p) { p.metadata.title = "Other"; }), none);
  EXPECT_EQ(changesOf([](KorrinProject& p) { p.inputs.clear(); }), technical);
  EXPECT_EQ(changesOf([](KorrinProject& p) { p.monitorMixes.edit(0).notes = "!"; }), technical);
  EXPECT_EQ(changesOf([](KorrinProject& p) { p.equipmentRequirements.erase(0); }), technical);
  EXPECT_EQ(changesOf([](KorrinProject& p) { p.notes.clear(); }), technical);
  EXPECT_EQ(changesOf([](KorrinProject& p) { p.groups.erase(1); }), structural);
  EXPECT_EQ(changesOf([](KorrinProject& p) { p.layers.edit(0).zIndex = 9; }), structural);
  EXPECT_EQ(changesOf([](KorrinProject& p) { p.stage.name = "Tent"; }), structural);
  EXPECT_EQ(changesOf([](KorrinProject& p) { p.assetManifest.clear(); }), structural);
  EXPECT_EQ(changesOf([](KorrinProject& p) { p.schemaVersion = 2; }), structural);
  EXPECT_EQ(changesOf([](KorrinProject& p) {
              p.exportSettings.includeNotes = !p.exportSettings.includeNotes;
            }),
            structural);
  EXPECT_EQ(changesOf([](KorrinProject& p) {
              const PlotItem first = p.items[0];
              p.items.erase(0);
              p.items.push_back(first);
            }),
            structural)
      << "another order";
}

// Their order alone tells them apart: afterwards the identifier stands for the other one.
TEST(EditHistory, NamesItemsOfOneIdentifierThatExchangedPlaces) {
  KorrinProject project = sampleProject();
  project.items = {microphone(vocal, 1), microphone(kick), microphone(vocal, 2)};
  KorrinProject exchanged = project;
  exchanged.items.erase(2);
  exchanged.items.insert(0, project.items[2]);
  EditHistory history(project);
  history.perform(C::replaceProject(exchanged));
  EXPECT_EQ(history.undo()->changes, (ChangeSet{{vocal}, false, true}));
}

TEST(EditHistory, LeavesNothingBehindForAnEmptyCompound) {
  Clock clock;
  EditHistory history(sampleProject());
  history.perform(move(history.project(), 1), {}, clock.environment);
  history.undo(clock.environment);
  const KorrinProject before = history.project();
  EXPECT_EQ(history.perform(C::compound({C::compound({}), C::compound({C::compound({})})}), {},
                            clock.environment),
            (ChangeSet{{}, false, false}));
  EXPECT_EQ(history.project(), before);
  EXPECT_EQ(history.undoCount(), 0u);
  EXPECT_EQ(history.redoCount(), 1u);
  EXPECT_TRUE(history.isSaved());
}

TEST(EditHistory, TakesDeeplyNestedCompoundsWithoutStack) {
  C nested = C::compound({});
  for (int i = 0; i < 200'000; ++i) nested = C::compound({nested});
  EditHistory history(sampleProject());
  history.perform(nested);
  EXPECT_EQ(history.undoCount(), 0u);
}

TEST(EditHistory, ForgetsTheOldestEditsBeyondItsLimit) {
  EditHistory history(sampleProject(), {.entries = 3});
  for (int i = 1; i <= 5; ++i) history.perform(move(history.project(), i));
  EXPECT_EQ(history.undoCount(), 3u);
  while (history.undo()) continue;
  EXPECT_EQ(xOf(history), 2);
  EXPECT_EQ(history.redoCount(), 3u);
  EXPECT_FALSE(history.isSaved()) << "where it was saved can't be reached";
}

TEST(EditHistory, ThatKeepsNothingStillEdits) {
  EditHistory history(sampleProject(), {.entries = 0});
  history.perform(move(history.project(), 1), {.mergeKey = "k"});
  history.perform(move(history.project(), 2), {.mergeKey = "k"});
  history.beginGesture();
  history.perform(move(history.project(), 3));
  EXPECT_FALSE(history.undo());
  EXPECT_FALSE(history.isInGesture());
  EXPECT_EQ(history.undoCount(), 0u);
  EXPECT_FALSE(history.isSaved());
  EXPECT_EQ(xOf(history), 3);
  history.markSaved();
  EXPECT_TRUE(history.isSaved());
}

TEST(Saving, IsAPositionAndNotEquality) {
  EditHistory history(sampleProject());
  history.perform(move(history.project(), 1));
  history.markSaved();
  EXPECT_TRUE(history.isSaved());
  history.undo();
  EXPECT_FALSE(history.isSaved());
  history.redo();
  EXPECT_TRUE(history.isSaved());
  history.undo();
  history.perform(move(history.project(), 1));
  EXPECT_FALSE(history.isSaved()) << "equal, but not where it was saved";
  while (history.undo()) EXPECT_FALSE(history.isSaved());
}

TEST(Gesture, IsOneEntryHoweverManyCommandsItPerforms) {
  EditHistory history(sampleProject());
  history.beginGesture({.name = "Drag", .selection = {vocal}, .selectionAfterwards = {vocal}});
  for (int i = 1; i <= 100; ++i) {
    history.perform(move(history.project(), i), {.name = "Step", .selection = {kick}});
    EXPECT_EQ(history.undoCount(), 0u);
    EXPECT_EQ(history.undoName(), std::nullopt);
    EXPECT_TRUE(history.isSaved());
  }
  history.perform(move(history.project(), 101), {.selectionAfterwards = {guitar}});
  history.endGesture();
  EXPECT_EQ(history.undoCount(), 1u);
  EXPECT_EQ(history.undoName(), Text("Drag"));
  EXPECT_FALSE(history.isSaved());
  EXPECT_EQ(history.undo()->selection, IDSet{vocal});
  expectSame(history.project(), sampleProject());
  EXPECT_EQ(history.redo()->selection, IDSet{guitar});
  EXPECT_EQ(xOf(history), 101);
}

TEST(Gesture, KeepsRedoUntilItEndsWithAnEdit) {
  EditHistory history(sampleProject());
  history.perform(move(history.project(), 1), {.name = "First"});
  history.undo();
  history.beginGesture();
  history.perform(move(history.project(), 2));
  EXPECT_EQ(history.redoCount(), 1u);
  EXPECT_EQ(history.redoName(), Text("First"));
  history.endGesture();
  EXPECT_EQ(history.redoCount(), 0u);
}

TEST(Gesture, WithoutCommandLeavesNothing) {
  EditHistory history(sampleProject());
  history.perform(move(history.project(), 1));
  history.undo();
  history.beginGesture();
  history.perform(C::compound({}));
  EXPECT_TRUE(history.redo()) << "an empty gesture leaves redo alone";
  EXPECT_FALSE(history.isInGesture());
  history.beginGesture();
  history.endGesture();
  EXPECT_EQ(history.undoCount(), 1u);
}

TEST(Gesture, ThatIsCancelledGivesBackEverything) {
  Clock clock;
  EditHistory history(sampleProject());
  history.perform(move(history.project(), 1), {.name = "First"}, clock.environment);
  history.perform(move(history.project(), 2), {.name = "Second"}, clock.environment);
  history.undo(clock.environment);
  const KorrinProject before = history.project();
  clock.time += 1h;
  history.beginGesture();
  history.perform(move(history.project(), 9, kick), {}, clock.environment);
  history.perform(C::deleteItems({guitar}), {}, clock.environment);
  EXPECT_EQ(history.cancelGesture(), (ChangeSet{{kick, guitar}, false, true}));
  EXPECT_FALSE(history.isInGesture());
  EXPECT_EQ(history.project(), before) << "the instant of the last change included";
  EXPECT_EQ(history.undoName(), Text("First"));
  EXPECT_EQ(history.redoName(), Text("Second"));
  EXPECT_EQ(history.cancelGesture(), (ChangeSet{{}, false, false}));
}

TEST(Gesture, EndsWhenSomethingElseBegins) {
  EditHistory history(sampleProject());
  const auto drag = [&](double x) {
    history.beginGesture();
    history.perform(move(history.project(), x));
  };
  drag(1);
  drag(2);
  EXPECT_EQ(history.undoCount(), 1u);
  history.markSaved();
  EXPECT_EQ(history.undoCount(), 2u);
  EXPECT_TRUE(history.isSaved());
  drag(3);
  ASSERT_TRUE(history.undo());
  EXPECT_EQ(xOf(history), 2);
  EXPECT_TRUE(history.isSaved());
  drag(4);
  EXPECT_FALSE(history.redo());
  EXPECT_EQ(history.undoCount(), 3u);
  EXPECT_FALSE(history.isInGesture());
}

TEST(EditHistory, IsAValue) {
  EditHistory history(sampleProject());
  history.perform(move(history.project(), 1));
  EditHistory copy = history;
  copy.undo();
  EXPECT_EQ(xOf(history), 1);
  EXPECT_EQ(history.undoCount(), 1u);
  EXPECT_EQ(copy.redoCount(), 1u);
}

struct ClockFailure : std::runtime_error {
  ClockFailure() : std::runtime_error("the clock failed") {}
};

TEST(EditHistory, IsWhatItWasWhenTheClockFails) {
  const Environment broken = {.now = []() -> Instant { throw ClockFailure(); },
                              .makeUUID = [] { return UUID(); }};
  EditHistory history(sampleProject());
  history.perform(move(history.project(), 1));
  history.perform(move(history.project(), 2));
  history.undo();
  history.beginGesture();
  history.perform(move(history.project(), 3));
  const KorrinProject before = history.project();
  EXPECT_THROW(history.perform(C::deleteItems({vocal}), {}, broken), ClockFailure);
  EXPECT_THROW(history.undo(broken), ClockFailure);
  EXPECT_EQ(history.project(), before);
  EXPECT_TRUE(history.isInGesture()) << "an undo that fails does not end it";
  history.cancelGesture();
  EXPECT_THROW(history.redo(broken), ClockFailure);
  EXPECT_THROW(history.perform(C::replaceProject(sampleProject()), {.mergeKey = "k"}, broken),
               ClockFailure);
  EXPECT_EQ(xOf(history), 1);
  EXPECT_EQ(history.undoCount(), 1u);
  EXPECT_EQ(history.redoCount(), 1u);
}

}  // namespace
}  // namespace korrin
