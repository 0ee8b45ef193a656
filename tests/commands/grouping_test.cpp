#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korrin/commands/document_command.h"

#include "tests/support/laws.h"
#include "tests/support/sample_project.h"

namespace korrin {
namespace {

using test::expectUndoAndRedo;
using test::identifier;
using test::microphone;
using test::sampleProject;
using test::TestEnvironment;
using testing::ElementsAre;
using namespace test::sample;

const UUID newGroup = TestEnvironment::identifierMade(1);

KorrinProject grouped(KorrinProject project, const IDSet& selection) {
  TestEnvironment environment;
  const auto command = project.groupingCommand(selection, environment);
  if (command)
    command->apply(project, environment);
  else
    ADD_FAILURE() << "the selection is not grouped";
  return project;
}

std::vector<Text> namesOf(const List<PlotGroup>& groups) {
  std::vector<Text> names;
  for (const PlotGroup& group : groups) names.push_back(group.name);
  return names;
}

TEST(Grouping, IsACompoundOfReplacedItemsAndThenGroups) {
  const KorrinProject project = sampleProject();
  TestEnvironment environment;
  const auto command = project.groupingCommand({kick, vocal}, environment);
  ASSERT_TRUE(command);
  ASSERT_NE(command->get<Compound>(), nullptr);
  const auto& parts = command->get<Compound>()->commands;
  ASSERT_EQ(parts.size(), 2u);

  PlotItem newVocal = project.items[0];
  PlotItem newKick = project.items[3];
  newVocal.groupID = newKick.groupID = newGroup;
  ASSERT_NE(parts[0].get<ReplaceItems>(), nullptr);
  EXPECT_EQ(parts[0].get<ReplaceItems>()->items, (List<PlotItem>{newVocal, newKick}));
  ASSERT_NE(parts[1].get<ReplaceGroups>(), nullptr);
  EXPECT_EQ(parts[1].get<ReplaceGroups>()->groups,
            (List<PlotGroup>{
                PlotGroup{.id = groupOfTwo, .name = "Group 1", .itemIDs = {wedge}},
                PlotGroup{.id = groupOfThree, .name = "Group 2", .itemIDs = {drumRiser, guitar}},
                PlotGroup{.id = newGroup, .name = "Group 3", .itemIDs = {vocal, kick}}}));
}

TEST(Grouping, MakesOneIdentifierAndReadsNoClock) {
  TestEnvironment environment;
  EXPECT_TRUE(sampleProject().groupingCommand({vocal, kick}, environment));
  EXPECT_EQ(environment.identifiersMade(), 1);
  EXPECT_EQ(environment.clockReads(), 0);
}

TEST(Grouping, MakesAnotherGroupAtEveryCall) {
  TestEnvironment environment;
  const KorrinProject project = sampleProject();
  const auto idOfGroup = [&] {
    const auto command = project.groupingCommand({vocal, kick}, environment);
    return command->get<Compound>()->commands[1].get<ReplaceGroups>()->groups.back().id;
  };
  EXPECT_NE(idOfGroup(), idOfGroup());
}

TEST(Grouping, WantsTwoItemsThatMayBeEdited) {
  const KorrinProject project = sampleProject();
  TestEnvironment environment;
  EXPECT_FALSE(project.groupingCommand({}, environment));
  EXPECT_FALSE(project.groupingCommand({vocal}, environment));
  EXPECT_FALSE(project.groupingCommand({vocal, identifier(0x999)}, environment)) << "unknown";
  EXPECT_FALSE(project.groupingCommand({vocal, keys}, environment)) << "locked item";
  EXPECT_FALSE(project.groupingCommand({vocal, truss}, environment)) << "locked layer";
  EXPECT_FALSE(project.groupingCommand({vocal, spareAmp}, environment)) << "hidden layer";
  EXPECT_EQ(environment.identifiersMade(), 0);
}

TEST(Grouping, CountsIdentifiersAndNotItems) {
  KorrinProject project = sampleProject();
  project.items.push_back(microphone(vocal));
  TestEnvironment environment;
  EXPECT_FALSE(project.groupingCommand({vocal}, environment));
}

TEST(Grouping, LeavesOutWhatMayNotBeEdited) {
  const KorrinProject project =
      grouped(sampleProject(), {vocal, guitar, keys, truss, spareAmp, identifier(0x999)});
  EXPECT_THAT(project.groups.back().itemIDs, ElementsAre(vocal, guitar));
  for (const std::size_t i : {5u, 6u, 7u}) EXPECT_EQ(project.items[i], sampleProject().items[i]);
}

TEST(Grouping, GroupsOnceWhatIsNamedTwice) {
  IDSet selection = {vocal};
  selection.insert(vocal);
  selection.insert(kick);
  EXPECT_THAT(grouped(sampleProject(), selection).groups.back().itemIDs, ElementsAre(vocal, kick));
}

TEST(Grouping, ListsEachMemberOnceInTheOrderOfTheItems) {
  KorrinProject project = sampleProject();
  project.items.insert(0, microphone(kick));
  project.groups.clear();
  EXPECT_THAT(grouped(project, {guitar, vocal, kick}).groups.back().itemIDs,
              ElementsAre(kick, vocal, guitar));
}

TEST(Grouping, RegroupsALockedItemThatSharesItsIdentifierWithAnEditableOne) {
  KorrinProject project = sampleProject();
  PlotItem lockedTwin = microphone(vocal);
  lockedTwin.isLocked = true;
  project.items.push_back(lockedTwin);
  TestEnvironment environment;
  const auto command = project.groupingCommand({vocal, kick}, environment);
  const List<PlotItem>& regrouped =
      command->get<Compound>()->commands[0].get<ReplaceItems>()->items;
  ASSERT_EQ(regrouped.size(), 3u);
  EXPECT_EQ(regrouped[2].id, vocal);
  EXPECT_TRUE(regrouped[2].isLocked);
  EXPECT_EQ(regrouped[2].groupID, newGroup);
}

TEST(Grouping, DissolvesAGroupWhoseMembersAllMove) {
  const KorrinProject project = grouped(sampleProject(), {vocal, wedge});
  ASSERT_EQ(project.groups.size(), 2u);
  EXPECT_EQ(project.groups[0], sampleProject().groups[1]);
  EXPECT_EQ(project.groups[1].id, newGroup);
}

TEST(Grouping, LeavesAGroupOfThreeWithTwoMembersAndInTheirOrder) {
  const KorrinProject project = grouped(sampleProject(), {drumRiser, vocal});
  EXPECT_THAT(project.groups[1].itemIDs, ElementsAre(kick, guitar));
  EXPECT_THAT(project.groups[0].itemIDs, ElementsAre(wedge));
}

TEST(Grouping, DropsAGroupThatWasEmptyBefore) {
  KorrinProject project = sampleProject();
  project.groups.insert(0, PlotGroup{.id = identifier(0x299), .name = "Empty", .itemIDs = {}});
  project = grouped(project, {drumRiser, kick});
  EXPECT_THAT(namesOf(project.groups), ElementsAre("Group 1", "Group 2", "Group 4"));
}

TEST(Grouping, NumbersTheGroupByTheGroupsThatStandBefore) {
  KorrinProject project = sampleProject();
  project.groups.clear();
  EXPECT_EQ(grouped(project, {vocal, kick}).groups.back().name, "Group 1");
  EXPECT_EQ(grouped(sampleProject(), {vocal, wedge}).groups.back().name, "Group 3")
      << "a group that is dissolved counts";
}

TEST(Grouping, DoesNotLookForANameThatIsFree) {
  KorrinProject project = sampleProject();
  project.groups.edit(1).name = "Group 3";
  EXPECT_THAT(namesOf(grouped(project, {vocal, kick}).groups),
              ElementsAre("Group 1", "Group 3", "Group 3"));
}

TEST(Grouping, ReportsTheGroupedItemsAndTheMembersOfAllGroups) {
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  const auto command = project.groupingCommand({vocal, wedge}, environment);
  const CommandResult result = command->apply(project, environment);
  EXPECT_EQ(result.changes, (ChangeSet{.changedItemIDs = {vocal, wedge, kick, drumRiser, guitar},
                                       .affectsTechnicalData = false,
                                       .affectsDocumentStructure = true}));
  EXPECT_EQ(environment.clockReads(), 2);
}

TEST(Grouping, UndoesAndRedoes) {
  const KorrinProject project = sampleProject();
  TestEnvironment environment;
  for (const IDSet& selection : {IDSet{vocal, wedge}, IDSet{vocal, kick, guitar, drumRiser}})
    expectUndoAndRedo(project, *project.groupingCommand(selection, environment));
}

TEST(Grouping, InvertsToTheOldGroupsAndThenTheOldItems) {
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  const auto result =
      project.groupingCommand({vocal, kick}, environment)->apply(project, environment);
  const auto& inverses = result.inverse.get<Compound>()->commands;
  ASSERT_EQ(inverses.size(), 2u);
  EXPECT_EQ(inverses[0].get<ReplaceGroups>()->groups, sampleProject().groups);
  EXPECT_EQ(inverses[1].get<ReplaceItems>()->items,
            (List<PlotItem>{sampleProject().items[0], sampleProject().items[3]}));
}

TEST(Grouping, SharesTheGroupsThatItLeavesAlone) {
  const KorrinProject project = sampleProject();
  EXPECT_EQ(&grouped(project, {kick, guitar}).groups[0], &project.groups[0]);
}

}  // namespace
}  // namespace korrin
