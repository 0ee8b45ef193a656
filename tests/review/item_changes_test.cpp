#include "korrin/review/item_changes.h"

#include <gmock/gmock.h>

#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ItemChanges changesBetween(const KorrinProject& before, const KorrinProject& after) {
  return itemChanges(differences(before, after), before);
}

std::vector<UUID> idsOf(const List<PlotItem>& items) {
  std::vector<UUID> ids;
  for (const PlotItem& item : items) ids.push_back(item.id);
  return ids;
}

class ItemChangesTest : public testing::Test {
 protected:
  KorrinProject before = KorrinProject::example();
  KorrinProject after = before;
};

TEST_F(ItemChangesTest, AreNoneOfAPlotAndItself) {
  const ItemChanges changes = changesBetween(before, after);
  EXPECT_THAT(changes.added, IsEmpty());
  EXPECT_THAT(changes.changed, IsEmpty());
  EXPECT_THAT(idsOf(changes.moved), IsEmpty());
  EXPECT_THAT(idsOf(changes.gone), IsEmpty());
}

TEST_F(ItemChangesTest, NameEachItemOnce) {
  const UUID moved = before.items[0].id;
  const UUID changed = before.items[1].id;
  const UUID gone = before.items[2].id;
  // What moved and changed as well has moved.
  after.items.edit(0).position.x += 100;
  after.items.edit(0).label = "elsewhere";
  after.items.edit(1).label = "renamed";
  after.items.edit(1).rotationDegrees += 15;
  after.items.erase(2);
  PlotItem fresh = before.items[3];
  fresh.id = identifier(77);
  after.items.push_back(fresh);

  const ItemChanges changes = changesBetween(before, after);
  EXPECT_THAT(changes.added, ElementsAre(identifier(77)));
  EXPECT_THAT(changes.changed, ElementsAre(changed));
  EXPECT_THAT(idsOf(changes.moved), ElementsAre(moved));
  EXPECT_THAT(idsOf(changes.gone), ElementsAre(gone));
  // As they were.
  EXPECT_EQ(changes.moved[0], before.items[0]);
  EXPECT_EQ(changes.gone[0], before.items[2]);
}

TEST_F(ItemChangesTest, PassOverWhatNobodySawBefore) {
  before.layers.edit(0).isVisible = false;
  after.layers.edit(0).isVisible = false;
  after.items.edit(0).position.x += 100;
  after.items.erase(2);
  const ItemChanges changes = changesBetween(before, after);
  EXPECT_THAT(idsOf(changes.moved), IsEmpty());
  EXPECT_THAT(idsOf(changes.gone), IsEmpty());
}

TEST_F(ItemChangesTest, PassOverAnotherOrderAndOtherLists) {
  after.items.move(0, 2);
  after.inputs.erase(0);
  const ItemChanges changes = changesBetween(before, after);
  EXPECT_THAT(changes.changed, IsEmpty());
  EXPECT_THAT(idsOf(changes.moved), IsEmpty());
  EXPECT_THAT(idsOf(changes.gone), IsEmpty());
}

}  // namespace
}  // namespace korrin::test
