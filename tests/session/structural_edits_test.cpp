#include "korrin/session/structural_edits.h"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <map>
#include <optional>
#include <random>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/foundation/same_bits.h"

#include "tests/session/applied.h"
#include "tests/support/effort.h"
#include "tests/support/laws.h"
#include "tests/support/random_edits.h"
#include "tests/support/sample_project.h"

namespace korrin {
namespace {

using namespace test::sample;
using test::after;
using test::identifier;
using test::instant;
using test::itemOf;
using test::microphone;
using test::sampleProject;
using test::TestEnvironment;

bool holds(const KorrinProject& project, UUID id) {
  for (const PlotItem& item : project.items)
    if (item.id == id) return true;
  return false;
}

// Exact undo, an exact redo, and a change of more than the instant of the last change.
void expectExact(const KorrinProject& project, const std::optional<DocumentCommand>& command) {
  ASSERT_TRUE(command);
  KorrinProject edited = project;
  const CommandResult result = command->apply(edited, TestEnvironment());
  EXPECT_FALSE(sameBits(test::withModifiedAt(edited, {}), test::withModifiedAt(project, {})));
  const CommandResult undone = result.inverse.apply(edited, TestEnvironment());
  EXPECT_TRUE(sameBits(test::withModifiedAt(edited, {}), test::withModifiedAt(project, {})));
  undone.inverse.apply(edited, TestEnvironment());
  EXPECT_TRUE(sameBits(test::withModifiedAt(edited, {}),
                       test::withModifiedAt(after(project, command), {})));
}

TEST(Moving, MovesTheItemsThatMayBeEdited) {
  const KorrinProject project = sampleProject();
  const auto command = movingCommand(project, {vocal, kick, keys, truss, spareAmp, identifier(99)},
                                     {.x = 10, .y = -20});
  expectExact(project, command);
  ASSERT_TRUE(command->get<ReplaceItems>());
  EXPECT_EQ(command->get<ReplaceItems>()->items.size(), 2u);
  const KorrinProject moved = after(project, command);
  EXPECT_EQ(itemOf(moved, vocal).position.x, itemOf(project, vocal).position.x + 10);
  EXPECT_EQ(itemOf(moved, kick).position.y, itemOf(project, kick).position.y - 20);
  for (const UUID still : {keys, truss, spareAmp, guitar})
    EXPECT_EQ(itemOf(moved, still), itemOf(project, still));
}

TEST(Moving, IsNothingWhereNoPositionChanges) {
  KorrinProject project = sampleProject();
  const double nan = std::nan("");
  EXPECT_FALSE(movingCommand(project, {}, {.x = 1, .y = 1}));
  EXPECT_FALSE(movingCommand(project, {keys, truss, identifier(99)}, {.x = 1, .y = 1}));
  EXPECT_FALSE(movingCommand(project, {vocal}, {.x = 0, .y = -0.0}));
  project.items.edit(0).position = {.x = 1e308, .y = -0.0};
  ASSERT_EQ(project.items[0].id, vocal);
  EXPECT_FALSE(movingCommand(project, {vocal}, {.x = 1e-9, .y = 0}));
  EXPECT_TRUE(movingCommand(project, {vocal}, {.x = nan, .y = 0}));
  project.items.edit(0).position = {.x = nan, .y = std::numeric_limits<double>::infinity()};
  EXPECT_FALSE(movingCommand(project, {vocal}, {.x = 5, .y = 5}));
}

TEST(Moving, TouchesNoItemThatSharesItsIdentifierWithALockedOne) {
  KorrinProject project = sampleProject();
  PlotItem twin = microphone(vocal);
  twin.isLocked = true;
  project.items.insert(0, twin);
  EXPECT_FALSE(movingCommand(project, {vocal}, {.x = 1, .y = 1}));
  project.items.edit(0).isLocked = false;
  project.items.edit(0).layerID = front;
  const KorrinProject moved = after(project, movingCommand(project, {vocal}, {.x = 1, .y = 1}));
  EXPECT_EQ(moved.items[0].position.x, 1);
  EXPECT_EQ(moved.items[1], project.items[1]) << "the first stands for both";
}

TEST(Deleting, DeletesTheItemsThatMayBeEdited) {
  const KorrinProject project = sampleProject();
  const auto command = deletingCommand(project, {vocal, keys, truss, spareAmp});
  expectExact(project, command);
  const KorrinProject rest = after(project, command);
  EXPECT_FALSE(holds(rest, vocal));
  EXPECT_EQ(rest.items.size(), project.items.size() - 1);
  EXPECT_EQ(rest.inputs[1].plotItemID, std::nullopt);
  EXPECT_FALSE(deletingCommand(project, {keys, truss, spareAmp, identifier(99)}));
  EXPECT_FALSE(deletingCommand(project, {}));
}

TEST(Ungrouping, DissolvesTheGroupsOfTheSelection) {
  const KorrinProject project = sampleProject();
  const auto command = ungroupingCommand(project, {vocal});
  expectExact(project, command);
  const KorrinProject rest = after(project, command);
  ASSERT_EQ(rest.groups.size(), 1u);
  EXPECT_EQ(rest.groups[0].id, groupOfThree);
  EXPECT_EQ(itemOf(rest, vocal).groupID, std::nullopt);
  EXPECT_EQ(itemOf(rest, wedge).groupID, std::nullopt);
  EXPECT_EQ(itemOf(rest, kick).groupID, groupOfThree);
  EXPECT_EQ(after(project, ungroupingCommand(project, {vocal, kick})).groups.size(), 0u);
  EXPECT_FALSE(ungroupingCommand(project, {keys, identifier(99)}));
}

TEST(Ungrouping, LeavesAGroupThatListsWhatMayNotBeEdited) {
  KorrinProject project = sampleProject();
  project.groups.edit(0).itemIDs.push_back(keys);
  EXPECT_FALSE(ungroupingCommand(project, {vocal}));
  project.groups.edit(0).itemIDs = {vocal, identifier(99)};
  EXPECT_TRUE(ungroupingCommand(project, {vocal})) << "what is not there is in nobody's way";
}

TEST(Ungrouping, FreesEveryItemThatNamesTheGroupListedOrNot) {
  KorrinProject project = sampleProject();
  for (std::size_t i = 0; i < project.items.size(); ++i)
    if (project.items[i].id == keys) project.items.edit(i).groupID = groupOfTwo;
  const auto command = ungroupingCommand(project, {vocal});
  expectExact(project, command);
  EXPECT_EQ(itemOf(after(project, command), keys).groupID, std::nullopt);
  EXPECT_TRUE(itemOf(after(project, command), keys).isLocked);
}

// Items named by letters: capitals may be edited, small ones are locked, and each stands on the
// layer of the digit behind it.
KorrinProject stacked(const std::string& plot) {
  KorrinProject project = sampleProject();
  project.layers.clear();
  for (std::uint64_t i = 0; i < 3; ++i)
    project.layers.push_back(PlotLayer{
        .id = identifier(i), .name = "Layer", .isVisible = true, .isLocked = i == 2, .zIndex = 0});
  project.items.clear();
  for (std::size_t i = 0; i < plot.size(); i += 2) {
    PlotItem item = microphone(identifier(static_cast<std::uint64_t>(plot[i])));
    item.label = plot.substr(i, 1);
    item.layerID = identifier(static_cast<std::uint64_t>(plot[i + 1] - '0'));
    item.isLocked = plot[i] >= 'a';
    project.items.push_back(item);
  }
  return project;
}

IDSet letters(const std::string& names) {
  IDSet ids;
  for (const char name : names) ids.insert(identifier(static_cast<std::uint64_t>(name)));
  return ids;
}

struct Restack {
  std::string name;
  std::string plot;
  std::string selection;
  StackingMove move;
  std::string result;  // empty for nothing
  friend std::ostream& operator<<(std::ostream& out, const Restack& row) { return out << row.name; }
};

class Stacking : public testing::TestWithParam<Restack> {};

TEST_P(Stacking, GivesTheOrder) {
  const Restack& row = GetParam();
  const KorrinProject project = stacked(row.plot);
  TestEnvironment environment;
  const auto command = stackingCommand(project, letters(row.selection), row.move, environment);
  EXPECT_EQ(command.has_value(), !row.result.empty());
  EXPECT_EQ(environment.clockReads(), command ? 1 : 0);
  if (!command) return;
  expectExact(project, command);
  std::string order;
  const KorrinProject result = after(project, command);
  for (const PlotItem& item : result.items) order += item.label.str();
  EXPECT_EQ(order, row.result);
  EXPECT_EQ(result.metadata.modifiedAt, TestEnvironment::instantOfRead(1));
}

constexpr StackingMove toFront = StackingMove::toFront;
constexpr StackingMove forward = StackingMove::forward;
constexpr StackingMove backward = StackingMove::backward;
constexpr StackingMove toBack = StackingMove::toBack;

INSTANTIATE_TEST_SUITE_P(
    Rows, Stacking,
    testing::Values(Restack{"ToFrontKeepsTheOrderOfTheSelected", "A0B0X1C0D0", "BC", toFront,
                            "ADXBC"},
                    Restack{"ToBack", "A0B0X1C0D0", "BC", toBack, "BCXAD"},
                    Restack{"Forward", "A0B0X1C0D0", "BC", forward, "ADXBC"},
                    Restack{"Backward", "A0B0X1C0D0", "BC", backward, "BCXAD"},
                    Restack{"ForwardStaysAtTheFront", "A0B0C0", "C", forward, ""},
                    Restack{"ForwardLetsTheOthersCatchUp", "A0B0D0C0", "BC", forward, "ADBC"},
                    Restack{"BackwardStaysAtTheBack", "A0B0C0", "AB", backward, ""},
                    Restack{"BackwardLetsTheOthersCatchUp", "A0D0B0C0", "AB", backward, "ABDC"},
                    Restack{"ForwardPassesOne", "A0B0C0D0", "AC", forward, "BADC"},
                    Restack{"LayersKeepTheirPlaces", "A0P1B0Q1C0R1", "AP", toFront, "BQCRAP"},
                    Restack{"LockedItemsCountAsUnselected", "A0b0C0", "Ab", forward, "bAC"},
                    Restack{"LockedItemsArePassedToTheFront", "A0b0C0", "Ab", toFront, "bCA"},
                    Restack{"NothingOnALockedLayer", "A2B2", "A", toFront, ""},
                    Restack{"NothingWhenAllAreSelected", "A0B0", "AB", toFront, ""},
                    Restack{"NothingWhenAloneOnTheLayer", "A0B1", "A", toFront, ""},
                    Restack{"NothingForUnknownItems", "A0B0", "Z", toBack, ""}),
    [](const auto& each) { return each.param.name; });

TEST(LayerAssigning, PutsTheEditableItemsOnTheLayer) {
  KorrinProject project = sampleProject();
  const auto command = layerAssigningCommand(project, {vocal, keys, truss}, archive);
  expectExact(project, command);
  const KorrinProject assigned = after(project, command);
  EXPECT_EQ(itemOf(assigned, vocal).layerID, archive) << "a hidden layer will do";
  EXPECT_EQ(itemOf(assigned, keys).layerID, front);
  EXPECT_EQ(itemOf(assigned, truss).layerID, rigging);
  EXPECT_FALSE(layerAssigningCommand(project, {vocal}, front)) << "there already";
  EXPECT_FALSE(layerAssigningCommand(project, {vocal}, rigging)) << "locked";
  EXPECT_FALSE(layerAssigningCommand(project, {vocal}, identifier(99)));
  EXPECT_FALSE(layerAssigningCommand(project, {}, archive));
}

KorrinProject withoutLocks(KorrinProject project) {
  for (std::size_t i = 0; i < project.items.size(); ++i) project.items.edit(i).isLocked = false;
  for (std::size_t i = 0; i < project.layers.size(); ++i) project.layers.edit(i).isLocked = false;
  return project;
}

TEST(LayerDeleting, MovesTheItemsToTheOtherLayer) {
  const KorrinProject project = withoutLocks(sampleProject());
  for (const UUID layerID : {front, archive}) {
    const auto command = layerDeletingCommand(project, layerID, rigging);
    expectExact(project, command);
    const KorrinProject rest = after(project, command);
    EXPECT_EQ(rest.layers.size(), 2u);
    EXPECT_EQ(rest.items.size(), project.items.size());
    for (const PlotItem& item : rest.items) EXPECT_NE(item.layerID, layerID);
    EXPECT_EQ(rest.inputs, project.inputs);
  }
}

TEST(LayerDeleting, DeletesTheItemsWithTheirLinks) {
  const KorrinProject project = withoutLocks(sampleProject());
  const auto command = layerDeletingCommand(project, front, std::nullopt);
  expectExact(project, command);
  const KorrinProject rest = after(project, command);
  EXPECT_EQ(rest.items.size(), 2u);
  EXPECT_EQ(rest.groups.size(), 0u);
  EXPECT_EQ(rest.inputs[0].plotItemID, std::nullopt);
}

TEST(LayerDeleting, TakesAnEmptyLayerAway) {
  KorrinProject project = sampleProject();
  project.layers.push_back(PlotLayer{
      .id = identifier(0x104), .name = "Empty", .isVisible = true, .isLocked = false, .zIndex = 3});
  const auto command = layerDeletingCommand(project, identifier(0x104), std::nullopt);
  expectExact(project, command);
  EXPECT_TRUE(command->get<ReplaceLayers>());
}

TEST(LayerDeleting, IsRefusedWhereItWouldLoseOrUnlockSomething) {
  KorrinProject project = withoutLocks(sampleProject());
  EXPECT_FALSE(layerDeletingCommand(project, identifier(99), std::nullopt)) << "unknown";
  EXPECT_FALSE(layerDeletingCommand(project, front, front)) << "to itself";
  EXPECT_FALSE(layerDeletingCommand(project, front, identifier(99))) << "to an unknown one";
  EXPECT_FALSE(layerDeletingCommand(sampleProject(), rigging, front)) << "locked";
  EXPECT_FALSE(layerDeletingCommand(sampleProject(), front, archive)) << "a locked item";
  EXPECT_FALSE(layerDeletingCommand(sampleProject(), archive, rigging)) << "to a locked one";
  KorrinProject repeated = project;
  repeated.items.push_back(microphone(spareAmp));
  EXPECT_FALSE(layerDeletingCommand(repeated, archive, std::nullopt)) << "a shared identifier";
  project.layers = {project.layers[0]};
  EXPECT_FALSE(layerDeletingCommand(project, front, std::nullopt)) << "the last one";
  project.layers.clear();
  EXPECT_FALSE(layerDeletingCommand(project, front, std::nullopt));
}

TEST(ExportSettingsCommand, ReplacesThemThroughTheProject) {
  const KorrinProject project = sampleProject();
  ExportSettings settings = project.exportSettings;
  TestEnvironment environment;
  EXPECT_FALSE(exportSettingsCommand(project, settings, environment));
  EXPECT_EQ(environment.clockReads(), 0);
  settings.includeNotes = !settings.includeNotes;
  const auto command = exportSettingsCommand(project, settings, environment);
  expectExact(project, command);
  EXPECT_TRUE(command->get<ReplaceProject>());
  EXPECT_EQ(after(project, command).exportSettings, settings);
  EXPECT_EQ(after(project, command).metadata.modifiedAt, TestEnvironment::instantOfRead(1));
}

TEST(Duplicating, PutsCopiesInFrontOfEverything) {
  const KorrinProject project = sampleProject();
  TestEnvironment environment;
  const auto paste =
      duplicatingCommand(project, {wedge, vocal, keys}, {.x = 100, .y = 50}, environment);
  ASSERT_TRUE(paste);
  expectExact(project, paste->command);
  const KorrinProject result = after(project, paste->command);
  ASSERT_EQ(result.items.size(), project.items.size() + 3);
  ASSERT_EQ(paste->itemIDs.size(), 3u);
  const PlotItem& copy = result.items[project.items.size()];
  EXPECT_EQ(copy.id, paste->itemIDs[0]);
  EXPECT_EQ(copy.position.x, itemOf(project, vocal).position.x + 100);
  EXPECT_EQ(copy.layerID, front);
  ASSERT_EQ(result.groups.size(), 3u);
  EXPECT_EQ(copy.groupID, result.groups[2].id);
  EXPECT_EQ(result.assetManifest, project.assetManifest);
  EXPECT_FALSE(duplicatingCommand(project, {identifier(99)}, StagePoint::zero, environment));
}

// What holds for all of them on all plots without repeated identifiers and empty groups.
TEST(StructuralEdits, ChangeSomethingAndUndoExactlyOnRandomPlots) {
  const auto seed = static_cast<std::uint64_t>(std::random_device{}());
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937_64 random(seed);
  const auto below = [&](int limit) {
    return static_cast<int>(random() % static_cast<unsigned>(limit));
  };
  test::RandomEdits edits(below);
  const auto layerID = [&] { return identifier(static_cast<std::uint64_t>(below(4))); };
  std::map<int, int> made;
  for (int round = 0; round < test::repetitions(20'000, 4'000) && !testing::Test::HasFailure();
       ++round) {
    KorrinProject project = edits.project();
    // Layers without repeated identifiers that most items stand on.
    project.layers = stacked("").layers;
    for (std::size_t i = 0; i < project.items.size(); ++i)
      project.items.edit(i).layerID = identifier(static_cast<std::uint64_t>(below(4)));
    const KorrinProject before = project;
    const IDSet selection = edits.identifiers(project);
    TestEnvironment environment;
    const int kind = below(8);
    std::optional<DocumentCommand> command;
    switch (kind) {
      case 0:
        command = movingCommand(project, selection, {.x = below(2) + 0.0, .y = 0});
        break;
      case 1:
        command = deletingCommand(project, selection);
        break;
      case 2:
        command = ungroupingCommand(project, selection);
        break;
      case 3:
        command =
            stackingCommand(project, selection, static_cast<StackingMove>(below(4)), environment);
        break;
      case 4:
        command = layerAssigningCommand(project, selection, layerID());
        break;
      case 5:
        command = layerDeletingCommand(project, layerID(),
                                       below(2) == 0 ? std::nullopt : std::optional(layerID()));
        break;
      case 6:
        command = exportSettingsCommand(project, edits.project().exportSettings, environment);
        break;
      default:
        if (auto paste = duplicatingCommand(project, selection, {.x = 5, .y = 5}, environment))
          command = paste->command;
    }
    ASSERT_EQ(project, before);
    if (!command) continue;
    ++made[kind];
    expectExact(project, command);
    if (kind == 2 || kind == 5) continue;  // these reach what names a group or stands on a layer
    for (const PlotItem& item : project.items) {
      if (project.canEditItem(item)) continue;
      ASSERT_EQ(itemOf(after(project, command), item.id), item) << "may not be edited";
    }
  }
  for (const int kind : {0, 1, 2, 3, 4, 5, 7}) EXPECT_GT(made[kind], 5) << kind;
}

}  // namespace
}  // namespace korrin
