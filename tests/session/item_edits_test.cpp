#include "korrin/session/item_edits.h"

#include <cmath>
#include <optional>

#include <gtest/gtest.h>

#include "korrin/foundation/same_bits.h"

#include "tests/session/applied.h"
#include "tests/support/laws.h"
#include "tests/support/sample_project.h"

namespace korrin {
namespace {

using namespace test::sample;
using test::after;
using test::identifier;
using test::itemOf;
using test::sampleProject;
using test::TestEnvironment;

void turn(PlotItem& item) { item.rotationDegrees += 90; }

TEST(Changing, ChangesTheItemsThatMayBeEdited) {
  const KorrinProject project = sampleProject();
  const auto command =
      changingCommand(project, {vocal, kick, keys, truss, spareAmp, identifier(99)}, turn);
  ASSERT_TRUE(command);
  test::expectUndoAndRedo(project, *command);
  EXPECT_EQ(command->get<ReplaceItems>()->items.size(), 2u);
  const KorrinProject turned = after(project, command);
  EXPECT_EQ(itemOf(turned, vocal).rotationDegrees, itemOf(project, vocal).rotationDegrees + 90);
  for (const UUID still : {keys, truss, spareAmp, guitar})
    EXPECT_EQ(itemOf(turned, still), itemOf(project, still));
}

TEST(Changing, LeavesOutWhatStaysAsItIs) {
  const KorrinProject project = sampleProject();
  const auto command = changingCommand(project, {vocal, kick}, [](PlotItem& item) {
    if (item.id == vocal) item.label = "Lead";
  });
  ASSERT_TRUE(command);
  EXPECT_EQ(command->get<ReplaceItems>()->items.size(), 1u);
  EXPECT_FALSE(changingCommand(project, {vocal, kick}, [](PlotItem&) {}));
  EXPECT_FALSE(changingCommand(project, {keys, truss, identifier(99)}, turn));
  EXPECT_FALSE(changingCommand(project, {}, turn));
}

TEST(Changing, KeepsTheIdentifierAndTellsNotANumberFromNothing) {
  KorrinProject project = sampleProject();
  const auto command = changingCommand(project, {vocal}, [](PlotItem& item) {
    item.id = identifier(77);
    item.label = "Lead";
  });
  EXPECT_EQ(itemOf(after(project, command), vocal).label, "Lead");
  ASSERT_EQ(project.items[0].id, vocal);
  project.items.edit(0).rotationDegrees = std::nan("");
  EXPECT_FALSE(changingCommand(project, {vocal}, [](PlotItem&) {}));
}

TEST(Aligning, AlignsTheItemsThatMayBeEdited) {
  const KorrinProject project = sampleProject();
  const auto command =
      aligningCommand(project, {vocal, guitar, keys, truss}, ItemAlignment::verticalCenter);
  ASSERT_TRUE(command);
  test::expectUndoAndRedo(project, *command);
  const KorrinProject aligned = after(project, command);
  EXPECT_EQ(itemOf(aligned, vocal).position.y, itemOf(aligned, guitar).position.y);
  EXPECT_EQ(itemOf(aligned, keys), itemOf(project, keys));
  EXPECT_FALSE(
      aligningCommand(aligned, {vocal, guitar, keys, truss}, ItemAlignment::verticalCenter));
}

TEST(Aligning, IsNothingForTooFewItems) {
  const KorrinProject project = sampleProject();
  EXPECT_FALSE(aligningCommand(project, {vocal}, ItemAlignment::left));
  EXPECT_FALSE(aligningCommand(project, {vocal, keys}, ItemAlignment::left));
  EXPECT_FALSE(aligningCommand(project, {vocal, guitar}, ItemAlignment::distributeVertically));
}

TEST(Locking, IsAboutLockedItemsToo) {
  const KorrinProject project = sampleProject();
  ASSERT_TRUE(itemOf(project, keys).isLocked);
  const auto unlock = lockingCommand(project, {keys, truss, spareAmp}, false);
  ASSERT_TRUE(unlock);
  test::expectUndoAndRedo(project, *unlock);
  EXPECT_FALSE(itemOf(after(project, unlock), keys).isLocked);
  EXPECT_EQ(unlock->get<ReplaceItems>()->items.size(), 1u) << "layers keep their items";
  EXPECT_FALSE(lockingCommand(project, {keys}, true)) << "it is locked";
  EXPECT_TRUE(itemOf(after(project, lockingCommand(project, {vocal}, true)), vocal).isLocked);
}

TEST(GroupMembers, ComeWithTheOneThatIsSelected) {
  const KorrinProject project = sampleProject();
  EXPECT_EQ(withGroupMembers(project, {vocal}), (IDSet{vocal, wedge}));
  EXPECT_EQ(withGroupMembers(project, {vocal, guitar}),
            (IDSet{vocal, wedge, guitar, kick, drumRiser}));
  EXPECT_EQ(withGroupMembers(project, {keys}), (IDSet{keys}));
  EXPECT_EQ(withGroupMembers(project, {truss, identifier(99)}), IDSet{});
  EXPECT_EQ(withGroupMembers(project, {}), IDSet{});
}

TEST(GroupMembers, StayOutWhereTheyMayNotBeSelected) {
  KorrinProject project = sampleProject();
  project.groups.edit(0).itemIDs.push_back(truss);
  project.groups.edit(0).itemIDs.push_back(keys);
  const IDSet members = withGroupMembers(project, {vocal});
  EXPECT_FALSE(members.contains(truss));
  EXPECT_TRUE(members.contains(keys)) << "a locked item can be selected";
}

}  // namespace
}  // namespace korrin
