#include "korrin/commands/document_command.h"

#include <string>
#include <type_traits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/laws.h"
#include "tests/support/sample_project.h"

namespace korrin {
namespace {

using test::identifier;
using test::sampleProject;
using test::TestEnvironment;

// What a case says about itself when it is applied to the sample plot.
struct Summary {
  std::string name;
  DocumentCommand command;
  std::size_t index;
  IDSet changedItemIDs;
  bool affectsTechnicalData;
  bool affectsDocumentStructure;
  int touches;
  std::size_t inverseIndex;
};

std::vector<Summary> summaries() {
  using C = DocumentCommand;
  using namespace test::sample;
  const KorrinProject project = sampleProject();
  const UUID fresh = identifier(99);
  const List<PlotItem> items = {test::microphone(fresh), test::microphone(vocal, 5, 5)};
  const List<PlotGroup> groups = {
      PlotGroup{.id = identifier(0x299), .name = "Band", .itemIDs = {guitar, keys}},
      PlotGroup{.id = groupOfTwo, .name = "Group 1", .itemIDs = {vocal, fresh}}};
  KorrinProject another = sampleProject();
  another.items = {test::microphone(fresh), test::microphone(keys)};
  const auto list = [](auto value) { return List{value.back(), value.front()}; };
  ProjectMetadata metadata = project.metadata;
  metadata.title = "Winter tour";
  StageDefinition stage = project.stage;
  stage.size.width = 9000;
  const C nested = C::compound({C::replaceItems(items), C::compound({C::replaceNotes({})})});

  const IDSet none;
  return {
      {"insertItems", C::insertItems({items[0]}), 0, {fresh}, false, true, 1, 1},
      {"deleteItems", C::deleteItems({vocal, fresh}), 1, {vocal, fresh}, true, true, 1, 12},
      {"replaceItems", C::replaceItems(items), 2, {fresh, vocal}, false, false, 1, 2},
      {"replaceGroups",
       C::replaceGroups(groups),
       3,
       {guitar, keys, vocal, fresh},
       false,
       true,
       1,
       3},
      {"replaceLayers", C::replaceLayers(list(project.layers)), 4, none, false, true, 1, 4},
      {"replaceAssetManifest", C::replaceAssetManifest({}), 5, none, false, true, 1, 5},
      {"replaceMetadata", C::replaceMetadata(metadata), 6, none, false, false, 1, 6},
      {"replaceStage", C::replaceStage(stage), 7, none, false, true, 1, 7},
      {"replaceInputs", C::replaceInputs(list(project.inputs)), 8, none, true, false, 1, 8},
      {"replaceMonitorMixes", C::replaceMonitorMixes(list(project.monitorMixes)), 9, none, true,
       false, 1, 9},
      {"replaceEquipment", C::replaceEquipment(list(project.equipmentRequirements)), 10, none, true,
       false, 1, 10},
      {"replaceNotes", C::replaceNotes({}), 11, none, true, false, 1, 11},
      {"replaceProject", C::replaceProject(another), 12, {fresh, keys}, true, true, 0, 12},
      {"compound", nested, 13, {fresh, vocal}, true, false, 2, 13},
  };
}

class CommandCases : public testing::TestWithParam<Summary> {};

TEST_P(CommandCases, HaveTheirNumber) {
  EXPECT_EQ(GetParam().command.payload().index(), GetParam().index);
}

TEST_P(CommandCases, SayWhatTheyTouch) {
  const Summary& expected = GetParam();
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  const CommandResult result = expected.command.apply(project, environment);
  EXPECT_EQ(result.changes,
            (ChangeSet{.changedItemIDs = expected.changedItemIDs,
                       .affectsTechnicalData = expected.affectsTechnicalData,
                       .affectsDocumentStructure = expected.affectsDocumentStructure}));
  EXPECT_EQ(environment.clockReads(), expected.touches);
  EXPECT_EQ(environment.identifiersMade(), 0);
  EXPECT_EQ(result.inverse.payload().index(), expected.inverseIndex);
}

TEST_P(CommandCases, ChangeTheProject) {
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  GetParam().command.apply(project, environment);
  EXPECT_NE(test::withModifiedAt(project, sampleProject().metadata.modifiedAt), sampleProject());
}

TEST_P(CommandCases, HaveTheNameOfTheFunctionThatMakesThem) {
  EXPECT_THAT(GetParam().name, testing::StartsWith(std::string(GetParam().command.caseName())));
}

TEST_P(CommandCases, UndoAndRedo) { test::expectUndoAndRedo(sampleProject(), GetParam().command); }

INSTANTIATE_TEST_SUITE_P(Summary, CommandCases, testing::ValuesIn(summaries()),
                         [](const auto& row) { return row.param.name; });

TEST(DocumentCommand, TellsItsCaseAndItsPayload) {
  const DocumentCommand command = DocumentCommand::deleteItems({identifier(1)});
  ASSERT_NE(command.get<DeleteItems>(), nullptr);
  EXPECT_EQ(command.get<DeleteItems>()->itemIDs, IDSet{identifier(1)});
  EXPECT_EQ(command.get<InsertItems>(), nullptr);
  EXPECT_EQ(command.caseName(), "deleteItems");
  EXPECT_EQ(std::get_if<DeleteItems>(&command.payload()), command.get<DeleteItems>());
}

TEST(DocumentCommand, SharesItsPayloadWithItsCopies) {
  DocumentCommand command = DocumentCommand::replaceItems({test::microphone(identifier(1))});
  const DocumentCommand copy = command;
  EXPECT_EQ(&copy.payload(), &command.payload());
  command = DocumentCommand::compound({});
  ASSERT_NE(copy.get<ReplaceItems>(), nullptr);
  EXPECT_EQ(copy.get<ReplaceItems>()->items.size(), 1u);
}

TEST(DocumentCommand, KeepsItsPayloadWhenMovedFrom) {
  DocumentCommand command = DocumentCommand::deleteItems({identifier(1)});
  const DocumentCommand moved = std::move(command);
  EXPECT_EQ(moved.get<DeleteItems>()->itemIDs.size(), 1u);
  EXPECT_EQ(command.get<DeleteItems>()->itemIDs.size(), 1u);
  EXPECT_TRUE(std::is_nothrow_move_constructible_v<DocumentCommand>);
}

TEST(DocumentCommand, GivesTheSameResultEveryTimeItIsApplied) {
  const DocumentCommand command = DocumentCommand::deleteItems({test::sample::vocal});
  KorrinProject first = sampleProject();
  KorrinProject second = sampleProject();
  TestEnvironment environment;
  TestEnvironment again;
  EXPECT_EQ(command.apply(first, environment).changes, command.apply(second, again).changes);
  EXPECT_EQ(first, second);
}

TEST(DocumentCommand, IsIndependentOfTheProjectItWasMadeFrom) {
  KorrinProject project = sampleProject();
  const DocumentCommand command = DocumentCommand::replaceProject(project);
  project.items.clear();
  project.metadata.title = "Other";
  EXPECT_EQ(command.get<ReplaceProject>()->project, sampleProject());
}

TEST(DocumentCommand, ReadsTheSystemClockWhenGivenNoOther) {
  KorrinProject project = sampleProject();
  const Instant before = Environment::system().now();
  DocumentCommand::replaceNotes({}).apply(project);
  EXPECT_GE(project.metadata.modifiedAt, before);
  EXPECT_LE(project.metadata.modifiedAt, Environment::system().now());
}

TEST(DocumentCommand, LeavesTheProjectAloneWhenTheClockFails) {
  const Environment broken = {.now = []() -> Instant { throw std::runtime_error("no clock"); },
                              .makeUUID = [] { return UUID(); }};
  for (const Summary& row : summaries()) {
    if (row.touches == 0) continue;
    KorrinProject project = sampleProject();
    EXPECT_THROW(row.command.apply(project, broken), std::runtime_error) << row.name;
    EXPECT_EQ(project, sampleProject()) << row.name;
  }
}

}  // namespace
}  // namespace korrin
