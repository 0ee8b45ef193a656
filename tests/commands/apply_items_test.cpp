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

const UUID fresh = identifier(99);
const UUID unknown = identifier(98);

std::vector<UUID> identifiersOf(const auto& records) {
  std::vector<UUID> ids;
  for (const auto& record : records) ids.push_back(record.id);
  return ids;
}

KorrinProject projectOf(List<PlotItem> items) {
  KorrinProject project = sampleProject();
  project.items = std::move(items);
  project.groups.clear();
  return project;
}

KorrinProject applied(const DocumentCommand& command, KorrinProject project) {
  TestEnvironment environment;
  command.apply(project, environment);
  return project;
}

// --- insertItems

TEST(InsertItems, AppendsInTheOrderGiven) {
  const auto command = DocumentCommand::insertItems({microphone(fresh), microphone(unknown)});
  const KorrinProject project = applied(command, sampleProject());
  EXPECT_THAT(identifiersOf(project.items), ElementsAre(vocal, guitar, wedge, kick, drumRiser, keys,
                                                        truss, spareAmp, fresh, unknown));
}

TEST(InsertItems, StoresItemsAsGiven) {
  PlotItem strange = microphone(fresh, -1e300, 0);
  strange.layerID = unknown;
  strange.groupID = unknown;
  strange.label = "";
  const KorrinProject project = applied(DocumentCommand::insertItems({strange}), sampleProject());
  EXPECT_EQ(project.items.back(), strange);
}

TEST(InsertItems, MovesAnExistingItemToTheEndWithItsNewValues) {
  const KorrinProject project =
      applied(DocumentCommand::insertItems({microphone(guitar, 7, 8)}),
              projectOf({microphone(vocal), microphone(guitar), microphone(wedge)}));
  EXPECT_THAT(identifiersOf(project.items), ElementsAre(vocal, wedge, guitar));
  EXPECT_EQ(project.items.back(), microphone(guitar, 7, 8));
}

TEST(InsertItems, RemovesEveryItemThatHasAGivenIdentifier) {
  const KorrinProject project =
      applied(DocumentCommand::insertItems({microphone(vocal, 7)}),
              projectOf({microphone(vocal, 1), microphone(guitar), microphone(vocal, 2)}));
  EXPECT_EQ(project.items, (List<PlotItem>{microphone(guitar), microphone(vocal, 7)}));
}

TEST(InsertItems, KeepsRepeatedIdentifiersOfTheRequest) {
  const List<PlotItem> twins = {microphone(fresh, 1), microphone(fresh, 2)};
  const KorrinProject project = applied(DocumentCommand::insertItems(twins), projectOf({}));
  EXPECT_EQ(project.items, twins);
}

TEST(InsertItems, TouchesEvenWithoutItems) {
  const KorrinProject project = applied(DocumentCommand::insertItems({}), sampleProject());
  EXPECT_EQ(project, test::withModifiedAt(sampleProject(), TestEnvironment::instantOfRead(1)));
}

TEST(InsertItems, DeletesWhenUndone) {
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  const auto result = DocumentCommand::insertItems({microphone(fresh), microphone(vocal)})
                          .apply(project, environment);
  ASSERT_NE(result.inverse.get<DeleteItems>(), nullptr);
  EXPECT_EQ(result.inverse.get<DeleteItems>()->itemIDs, (IDSet{fresh, vocal}));
}

TEST(InsertItems, LosesAReplacedItemAndItsLinksWhenUndone) {
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  const auto result = DocumentCommand::insertItems({microphone(vocal)}).apply(project, environment);
  result.inverse.apply(project, environment);
  EXPECT_THAT(identifiersOf(project.items),
              ElementsAre(guitar, wedge, kick, drumRiser, keys, truss, spareAmp));
  EXPECT_EQ(project.inputs[1].plotItemID, std::nullopt);
  EXPECT_THAT(project.groups[0].itemIDs, ElementsAre(wedge));
}

TEST(InsertItems, OfNewIdentifiersUndoesAndRedoes) {
  expectUndoAndRedo(sampleProject(),
                    DocumentCommand::insertItems({microphone(fresh), microphone(unknown)}));
}

// --- deleteItems

TEST(DeleteItems, FindsSomeAmongThousands) {
  List<PlotItem> items;
  for (std::uint64_t i = 0; i < 5'000; ++i) items.push_back(microphone(identifier(10'000 + i)));
  const KorrinProject project = projectOf(items);
  std::vector<UUID> gone;
  List<PlotItem> left;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (i % 100 == 99)
      gone.push_back(items[i].id);
    else
      left.push_back(items[i]);
  }
  const auto command = DocumentCommand::deleteItems({gone.begin(), gone.end()});
  EXPECT_EQ(applied(command, project).items, left);
  expectUndoAndRedo(project, command);
}

TEST(DeleteItems, KeepsTheOrderOfTheOthers) {
  const KorrinProject project =
      applied(DocumentCommand::deleteItems({guitar, kick, truss}), sampleProject());
  EXPECT_THAT(identifiersOf(project.items), ElementsAre(vocal, wedge, drumRiser, keys, spareAmp));
}

TEST(DeleteItems, RemovesEveryItemThatHasTheIdentifier) {
  const KorrinProject project =
      applied(DocumentCommand::deleteItems({vocal}),
              projectOf({microphone(vocal, 1), microphone(guitar), microphone(vocal, 2)}));
  EXPECT_EQ(project.items, List<PlotItem>{microphone(guitar)});
}

TEST(DeleteItems, ClearsTheLinksOfTheListsAndKeepsTheRows) {
  KorrinProject expected = sampleProject();
  const KorrinProject project =
      applied(DocumentCommand::deleteItems({vocal, wedge, drumRiser}), sampleProject());
  expected.inputs.edit(1).plotItemID = std::nullopt;
  expected.monitorMixes.edit(0).plotItemID = std::nullopt;
  expected.equipmentRequirements.edit(0).plotItemID = std::nullopt;
  EXPECT_EQ(project.inputs, expected.inputs);
  EXPECT_EQ(project.monitorMixes, expected.monitorMixes);
  EXPECT_EQ(project.equipmentRequirements, expected.equipmentRequirements);
}

TEST(DeleteItems, ClearsEveryLinkToTheSameItem) {
  KorrinProject before = sampleProject();
  for (std::size_t i = 0; i < before.inputs.size(); ++i) before.inputs.edit(i).plotItemID = kick;
  const KorrinProject project = applied(DocumentCommand::deleteItems({kick}), before);
  for (const InputChannel& row : project.inputs) EXPECT_EQ(row.plotItemID, std::nullopt);
}

TEST(DeleteItems, ClearsLinksToItemsThatDoNotExist) {
  KorrinProject before = sampleProject();
  before.inputs.edit(2).plotItemID = unknown;
  const KorrinProject project = applied(DocumentCommand::deleteItems({unknown}), before);
  EXPECT_EQ(project.inputs, sampleProject().inputs);
}

TEST(DeleteItems, RemovesAGroupWhoseOnlyMemberGoes) {
  KorrinProject before = sampleProject();
  before.groups.edit(0).itemIDs = {vocal};
  const KorrinProject project = applied(DocumentCommand::deleteItems({vocal}), before);
  EXPECT_EQ(project.groups, List<PlotGroup>{sampleProject().groups[1]});
}

TEST(DeleteItems, KeepsAGroupThatStillHasOneMember) {
  KorrinProject expected = sampleProject();
  const KorrinProject project = applied(DocumentCommand::deleteItems({vocal}), sampleProject());
  expected.groups.edit(0).itemIDs = {wedge};
  EXPECT_EQ(project.groups, expected.groups);
}

TEST(DeleteItems, KeepsTheOrderOfMembersAndGroups) {
  KorrinProject before = sampleProject();
  before.groups.insert(1, PlotGroup{.id = fresh, .name = "Loner", .itemIDs = {drumRiser}});
  const KorrinProject project = applied(DocumentCommand::deleteItems({drumRiser}), before);
  EXPECT_THAT(identifiersOf(project.groups), ElementsAre(groupOfTwo, groupOfThree));
  EXPECT_THAT(project.groups[1].itemIDs, ElementsAre(kick, guitar));
  EXPECT_EQ(project.groups[1].name, "Group 2");
}

TEST(DeleteItems, DropsAGroupThatWasEmptyBefore) {
  KorrinProject before = sampleProject();
  before.groups.insert(0, PlotGroup{.id = fresh, .name = "Empty", .itemIDs = {}});
  const KorrinProject project = applied(DocumentCommand::deleteItems({unknown}), before);
  EXPECT_EQ(project.groups, sampleProject().groups);
}

TEST(DeleteItems, OfNothingDropsAnEmptyGroupAsWell) {
  KorrinProject project = sampleProject();
  project.groups.push_back({.id = identifier(77), .name = "Empty", .itemIDs = {}});
  EXPECT_EQ(applied(DocumentCommand::deleteItems({}), project).groups, sampleProject().groups);
}

TEST(DeleteItems, RemovesMembersThatAreNoItems) {
  KorrinProject before = sampleProject();
  before.groups.edit(0).itemIDs = {vocal, unknown, wedge, unknown};
  const KorrinProject project = applied(DocumentCommand::deleteItems({unknown}), before);
  EXPECT_EQ(project.groups, sampleProject().groups);
}

TEST(DeleteItems, LeavesTheGroupReferenceOfRemainingItems) {
  const KorrinProject project =
      applied(DocumentCommand::deleteItems({vocal, unknown}), sampleProject());
  EXPECT_EQ(project.items[1].id, wedge);
  EXPECT_EQ(project.items[1].groupID, groupOfTwo);
}

TEST(DeleteItems, OfAnUnknownIdentifierStillTouchesAndReportsIt) {
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  const auto result = DocumentCommand::deleteItems({unknown}).apply(project, environment);
  EXPECT_EQ(project, test::withModifiedAt(sampleProject(), TestEnvironment::instantOfRead(1)));
  EXPECT_EQ(result.changes.changedItemIDs, IDSet{unknown});
  ASSERT_NE(result.inverse.get<ReplaceProject>(), nullptr);
  EXPECT_EQ(result.inverse.get<ReplaceProject>()->project, sampleProject());
}

TEST(DeleteItems, RestoresModifiedAtWhenUndone) {
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  const auto result = DocumentCommand::deleteItems({vocal}).apply(project, environment);
  EXPECT_EQ(project.metadata.modifiedAt, TestEnvironment::instantOfRead(1));
  result.inverse.apply(project, environment);
  EXPECT_EQ(project, sampleProject());
  EXPECT_EQ(environment.clockReads(), 1);
}

TEST(DeleteItems, SharesTheListsInWhichNothingChanges) {
  const KorrinProject before = sampleProject();
  const KorrinProject after = applied(DocumentCommand::deleteItems({guitar}), before);
  EXPECT_EQ(&after.inputs.front(), &before.inputs.front());
  EXPECT_EQ(&after.monitorMixes.front(), &before.monitorMixes.front());
  EXPECT_EQ(&after.equipmentRequirements.front(), &before.equipmentRequirements.front());
  EXPECT_EQ(&after.notes.front(), &before.notes.front());
  EXPECT_EQ(&after.groups[0], &before.groups[0]);
  EXPECT_NE(&after.groups[1], &before.groups[1]);
  EXPECT_EQ(&after.items.front(), &before.items.front());
}

// A thousand items, half of them in groups of four, and rows linked to them in no order.
KorrinProject festival() {
  KorrinProject project = sampleProject();
  const InputChannel input = project.inputs[0];
  const MonitorMix mix = project.monitorMixes[0];
  const EquipmentRequirement line = project.equipmentRequirements[0];
  for (std::uint64_t i = 0; i < 1000; ++i) {
    project.items.push_back(microphone(identifier(1000 + i)));
    if (i % 8 < 4) {
      if (i % 8 == 0) project.groups.push_back({.id = identifier(i), .name = "", .itemIDs = {}});
      project.groups.edit(project.groups.size() - 1).itemIDs.push_back(identifier(1000 + i));
    }
    const std::optional<UUID> link =
        i % 5 == 0 ? std::nullopt : std::optional(identifier(1000 + i * 7 % 1000));
    project.inputs.emplace_back(input).plotItemID = link;
    project.monitorMixes.emplace_back(mix).plotItemID = link;
    project.equipmentRequirements.emplace_back(line).plotItemID = link;
  }
  return project;
}

template <class Row>
void clearLinks(List<Row>& rows, const IDSet& ids) {
  for (std::size_t i = 0; i < rows.size(); ++i)
    if (rows[i].plotItemID && ids.contains(*rows[i].plotItemID)) rows.edit(i).plotItemID.reset();
}

TEST(DeleteItems, DoesWhatPlainLoopsDoHoweverManyItemsGo) {
  KorrinProject project = festival();
  std::uint64_t next = 0;
  for (const int count : {1, 3, 16, 17, 200, 1, 0, 16}) {
    IDSet ids;
    for (int i = 0; i < count; ++i) ids.insert(identifier(1000 + ++next * 3 % 1000));
    KorrinProject expected = project;
    expected.items.eraseIf([&](const PlotItem& item) { return ids.contains(item.id); });
    clearLinks(expected.inputs, ids);
    clearLinks(expected.monitorMixes, ids);
    clearLinks(expected.equipmentRequirements, ids);
    for (std::size_t i = 0; i < expected.groups.size(); ++i)
      expected.groups.edit(i).itemIDs.eraseIf([&](const UUID& id) { return ids.contains(id); });
    expected.groups.eraseIf([](const PlotGroup& group) { return group.itemIDs.empty(); });

    project = applied(DocumentCommand::deleteItems(ids), project);
    EXPECT_EQ(project, test::withModifiedAt(expected, project.metadata.modifiedAt)) << count;
  }
}

TEST(DeleteItems, OfEverythingUndoesAndRedoes) {
  IDSet all = {unknown};
  for (const PlotItem& item : sampleProject().items) all.insert(item.id);
  expectUndoAndRedo(sampleProject(), DocumentCommand::deleteItems(all));
  expectUndoAndRedo(sampleProject(), DocumentCommand::deleteItems({}));
}

// --- replaceItems

TEST(ReplaceItems, OverwritesEveryFieldInPlace) {
  KorrinProject expected = sampleProject();
  PlotItem moved = microphone(wedge, 11, 12);
  moved.layerID = rigging;
  moved.groupID = unknown;
  expected.items.edit(2) = moved;
  const KorrinProject project = applied(DocumentCommand::replaceItems({moved}), sampleProject());
  EXPECT_EQ(project.items, expected.items);
  EXPECT_EQ(project.groups, expected.groups);
}

TEST(ReplaceItems, KeepsPositionsWhateverTheOrderOfTheRequest) {
  const List<PlotItem> request = {microphone(keys, 1), microphone(unknown), microphone(vocal, 2)};
  const KorrinProject project = applied(DocumentCommand::replaceItems(request), sampleProject());
  EXPECT_EQ(identifiersOf(project.items), identifiersOf(sampleProject().items));
  EXPECT_EQ(project.items[5], request[0]);
  EXPECT_EQ(project.items[0], request[2]);
}

TEST(ReplaceItems, LeavesOutUnknownItemsAndTheirMentionInTheInverse) {
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  const auto result =
      DocumentCommand::replaceItems({microphone(unknown)}).apply(project, environment);
  EXPECT_EQ(project.items, sampleProject().items);
  EXPECT_EQ(project.metadata.modifiedAt, TestEnvironment::instantOfRead(1));
  EXPECT_EQ(result.changes.changedItemIDs, IDSet{unknown});
  ASSERT_NE(result.inverse.get<ReplaceItems>(), nullptr);
  EXPECT_TRUE(result.inverse.get<ReplaceItems>()->items.empty());
}

TEST(ReplaceItems, InvertsToTheOldItemsInProjectOrder) {
  KorrinProject project = sampleProject();
  TestEnvironment environment;
  const auto result = DocumentCommand::replaceItems({microphone(keys), microphone(vocal)})
                          .apply(project, environment);
  EXPECT_EQ(result.inverse.get<ReplaceItems>()->items,
            (List<PlotItem>{sampleProject().items[0], sampleProject().items[5]}));
}

TEST(ReplaceItems, TakesTheLastOfRepeatedItems) {
  const List<PlotItem> request = {microphone(vocal, 1), microphone(vocal, 2)};
  const KorrinProject project = applied(DocumentCommand::replaceItems(request), sampleProject());
  EXPECT_EQ(project.items[0], request[1]);
  expectUndoAndRedo(sampleProject(), DocumentCommand::replaceItems(request));
}

TEST(ReplaceItems, OverwritesTheFirstOfRepeatedItemsOfTheProject) {
  KorrinProject project =
      projectOf({microphone(guitar), microphone(vocal, 1), microphone(vocal, 2)});
  TestEnvironment environment;
  const auto result = DocumentCommand::replaceItems({microphone(vocal, 3), microphone(vocal, 4)})
                          .apply(project, environment);
  EXPECT_EQ(project.items,
            (List<PlotItem>{microphone(guitar), microphone(vocal, 4), microphone(vocal, 2)}));
  // The inverse carries both, and the second overwrites what the first restores.
  EXPECT_EQ(result.inverse.get<ReplaceItems>()->items,
            (List<PlotItem>{microphone(vocal, 1), microphone(vocal, 2)}));
  result.inverse.apply(project, environment);
  EXPECT_EQ(project.items,
            (List<PlotItem>{microphone(guitar), microphone(vocal, 2), microphone(vocal, 2)}));
}

TEST(ReplaceItems, FindsTheSamePlacesAsASearchFromTheStart) {
  // A thousand items with every third identifier repeated, and a request with repetitions.
  KorrinProject project = projectOf({});
  for (std::uint64_t i = 0; i < 1000; ++i)
    project.items.push_back(microphone(identifier(i % 3 == 0 ? i / 2 : i), static_cast<double>(i)));
  List<PlotItem> request;
  for (std::uint64_t i = 0; i < 400; ++i)
    request.push_back(microphone(identifier(i * 7 % 1200), -static_cast<double>(i)));

  List<PlotItem> expected = project.items;
  for (const PlotItem& item : request) {
    const auto first = std::ranges::find(expected, item.id, &PlotItem::id);
    if (first != expected.end())
      expected.edit(static_cast<std::size_t>(first - expected.begin())) = item;
  }
  EXPECT_EQ(applied(DocumentCommand::replaceItems(request), project).items, expected);
}

TEST(ReplaceItems, TouchesEvenWithoutItems) {
  const KorrinProject project = applied(DocumentCommand::replaceItems({}), sampleProject());
  EXPECT_EQ(project, test::withModifiedAt(sampleProject(), TestEnvironment::instantOfRead(1)));
}

}  // namespace
}  // namespace korrin
