// Fails every allocation of the history in turn, and weighs what it keeps.

#include <cstddef>
#include <functional>
#include <new>
#include <optional>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/foundation/same_bits.h"
#include "korrin/session/edit_history.h"
#include "korrin/session/structural_edits.h"

#include "tests/support/allocations.h"
#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

using namespace sample;

// All that can be seen of a history; undo and redo are seen through a copy.
struct Seen {
  KorrinProject project;
  std::size_t undoCount, redoCount;
  bool isSaved, isInGesture;
  std::vector<KorrinProject> states;
  std::vector<IDSet> selections;
};

Seen seen(const EditHistory& history) {
  Seen all = {.project = history.project(),
              .undoCount = history.undoCount(),
              .redoCount = history.redoCount(),
              .isSaved = history.isSaved(),
              .isInGesture = history.isInGesture(),
              .states = {},
              .selections = {}};
  const Environment still = {.now = [] { return instant(0); }, .makeUUID = [] { return UUID(); }};
  EditHistory walked = history;
  while (const auto step = walked.redo(still)) {
    all.states.push_back(walked.project());
    all.selections.push_back(step->selection);
  }
  while (const auto step = walked.undo(still)) {
    all.states.push_back(walked.project());
    all.selections.push_back(step->selection);
  }
  return all;
}

void expectSame(const Seen& a, const Seen& b) {
  EXPECT_TRUE(sameBits(a.project, b.project));
  EXPECT_EQ(a.undoCount, b.undoCount);
  EXPECT_EQ(a.redoCount, b.redoCount);
  EXPECT_EQ(a.isSaved, b.isSaved);
  EXPECT_EQ(a.isInGesture, b.isInGesture);
  EXPECT_EQ(a.selections, b.selections);
  ASSERT_EQ(a.states.size(), b.states.size());
  for (std::size_t i = 0; i < a.states.size(); ++i)
    EXPECT_TRUE(sameBits(a.states[i], b.states[i])) << i;
}

EditDescription described(UUID before, UUID afterwards) {
  return {.name = "An edit with a name that needs memory",
          .mergeKey = "a key that needs memory as well",
          .selection = {before},
          .selectionAfterwards = {afterwards}};
}

// A history in the middle of its life: entries to undo and to redo, saved in between.
EditHistory lived(const Environment& environment) {
  EditHistory history(sampleProject(), {.entries = 3});
  for (const UUID id : {kick, vocal, wedge}) {
    history.perform(DocumentCommand::deleteItems({id}), described(id, guitar), environment);
    history.markSaved();
  }
  history.undo(environment);
  return history;
}

struct Operation {
  std::string name;
  std::function<void(EditHistory&, const Environment&)> prepare;
  std::function<void(EditHistory&, const Environment&)> run;
  friend std::ostream& operator<<(std::ostream& out, const Operation& row) {
    return out << row.name;
  }
};

class OutOfMemory : public testing::TestWithParam<Operation> {};

TEST_P(OutOfMemory, LeavesTheHistoryAsItWas) {
  TestEnvironment environment;
  EditHistory original = lived(environment);
  GetParam().prepare(original, environment);
  const Seen before = seen(original);
  std::size_t allocations = 0;
  for (bool isDone = false; !isDone; ++allocations) {
    EditHistory history = original;
    try {
      const AllocationLimit limit(allocations);
      GetParam().run(history, environment);
      isDone = true;
    } catch (const std::bad_alloc&) {
    }
    if (!isDone) expectSame(seen(history), before);
    if (HasFailure()) FAIL() << "after " << allocations << " allocations";
  }
  EXPECT_GT(allocations, 1u);
}

void perform(EditHistory& history, const Environment& environment) {
  static const DocumentCommand command = DocumentCommand::compound(
      {DocumentCommand::replaceItems({microphone(vocal, 7), microphone(guitar, 8)}),
       DocumentCommand::deleteItems({guitar})});
  static const EditDescription description = described(vocal, guitar);
  history.perform(command, description, environment);
}
void nothing(EditHistory&, const Environment&) {}
void drag(EditHistory& history, const Environment& environment) {
  history.beginGesture(described(keys, keys));
  perform(history, environment);
}
void undo(EditHistory& history, const Environment& environment) { history.undo(environment); }
void redo(EditHistory& history, const Environment& environment) { history.redo(environment); }
void begin(EditHistory& history, const Environment&) {
  static const EditDescription description = described(vocal, guitar);
  history.beginGesture(description);
}
void cancel(EditHistory& history, const Environment&) { history.cancelGesture(); }

INSTANTIATE_TEST_SUITE_P(
    Rows, OutOfMemory,
    testing::Values(Operation{"Perform", nothing, perform}, Operation{"Merge", perform, perform},
                    Operation{"PerformInAGesture", drag, perform}, Operation{"Undo", nothing, undo},
                    Operation{"UndoOfAGesture", drag, undo}, Operation{"Redo", nothing, redo},
                    Operation{"RedoInAnEmptyGesture", begin, redo},
                    Operation{"BeginGesture", nothing, begin},
                    Operation{"BeginGestureInAGesture", drag, begin},
                    Operation{"CancelGesture", drag, cancel}),
    [](const auto& each) { return each.param.name; });

TEST(Memory, EndingAGestureAndSavingNeedNone) {
  TestEnvironment environment;
  for (const bool saves : {false, true}) {
    EditHistory history = lived(environment);
    history.beginGesture();
    perform(history, environment);
    {
      const AllocationLimit none(0);
      saves ? history.markSaved() : history.endGesture();
    }
    EXPECT_EQ(history.undoCount(), 3u);
    EXPECT_EQ(history.isSaved(), saves);
  }
}

KorrinProject largeProject(std::uint64_t items) {
  KorrinProject project = sampleProject();
  for (std::uint64_t i = 0; i < items; ++i)
    project.items.push_back(microphone(identifier(100'000 + i)));
  return project;
}

std::ptrdiff_t heapOfADrag(int steps) {
  TestEnvironment environment;
  EditHistory history(largeProject(1'000));
  const std::ptrdiff_t before = liveBytes();
  history.beginGesture({.name = "Drag", .selection = {identifier(100'500)}});
  for (int step = 1; step <= steps; ++step)
    history.perform(*movingCommand(history.project(), {vocal}, {.x = 1, .y = 1}), {}, environment);
  history.endGesture();
  return liveBytes() - before;
}

TEST(Memory, OfADragDoesNotGrowWithItsSteps) { EXPECT_EQ(heapOfADrag(10'000), heapOfADrag(1)); }

// The leaf that holds the item, the row of leaves, the item twice, and the entry itself.
TEST(Memory, OfAnEntryIsSmall) {
  TestEnvironment environment;
  EditHistory history(largeProject(1'000));
  const std::ptrdiff_t before = liveBytes();
  for (int i = 0; i < 100; ++i)
    history.perform(*movingCommand(history.project(), {vocal}, {.x = 1, .y = 1}), {}, environment);
  EXPECT_LT((liveBytes() - before) / 100, 3'000);
}

TEST(OutOfMemory, LeavesThePlotOfEveryBuilderAlone) {
  TestEnvironment environment;
  const KorrinProject project = sampleProject();
  const IDSet selection = {vocal, wedge, kick, keys};
  const ExportSettings otherSettings = {
      .paperSize = PaperSize::letter,
      .includeInputList = !project.exportSettings.includeInputList,
      .includeMonitorMixes = true,
      .includeEquipment = true,
      .includeNotes = true};
  PlotFragment fragment = fragmentOf(project, selection);
  fragment.assetManifest.push_back({.sha256 = "a digest of more than fifteen bytes",
                                    .filename = "a name of more than fifteen bytes",
                                    .mediaType = "image/png",
                                    .byteCount = 1});
  KorrinProject empty = project;  // which takes the fragment's layers
  empty.items.clear();
  empty.groups.clear();
  empty.layers.clear();
  const std::vector<std::function<bool()>> builders = {
      [&] { return movingCommand(project, selection, {.x = 1, .y = 1}).has_value(); },
      [&] { return deletingCommand(project, selection).has_value(); },
      [&] { return ungroupingCommand(project, selection).has_value(); },
      [&] {
        return stackingCommand(project, selection, StackingMove::toFront, environment).has_value();
      },
      [&] { return layerAssigningCommand(project, selection, archive).has_value(); },
      [&] { return layerDeletingCommand(project, archive, front).has_value(); },
      [&] {
        return duplicatingCommand(project, selection, {.x = 1, .y = 1}, environment).has_value();
      },
      [&] { return exportSettingsCommand(project, otherSettings, environment).has_value(); },
      [&] { return fragmentOf(project, selection).items.size() == selection.size(); },
      [&] { return pastingCommand(project, fragment, {}, environment).has_value(); },
      [&] { return pastingCommand(empty, fragment, {}, environment).has_value(); }};
  for (const auto& build : builders) {
    std::size_t allocations = 0;
    for (bool isDone = false; !isDone; ++allocations) {
      try {
        const AllocationLimit limit(allocations);
        isDone = build();
        ASSERT_TRUE(isDone);
      } catch (const std::bad_alloc&) {
      }
      ASSERT_TRUE(sameBits(project, sampleProject()));
    }
    EXPECT_GT(allocations, 1u);
  }
}

}  // namespace
}  // namespace korrin::test
