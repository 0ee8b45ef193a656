// What a List and its copies share, and what a change of one of them copies.

#include <cstddef>
#include <string>
#include <unordered_set>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/foundation/list.h"
#include "korrin/foundation/uuid.h"

#include "tests/foundation/watched.h"

namespace korrin {
namespace {

template <class T>
std::vector<const T*> addresses(const List<T>& list) {
  std::vector<const T*> result;
  for (const T& element : list) result.push_back(&element);
  return result;
}

TEST(ListSharing, CopyHasEveryElement) {
  const List<std::string> list = std::vector<std::string>(200, "element");
  const List<std::string> copy = list;
  EXPECT_EQ(addresses(copy), addresses(list));
}

TEST(ListSharing, EditCopiesTheOneElementThatIsShared) {
  Watch watch;
  List<Watched> list = watched(watch, 1000);
  const List<Watched> copy = list;
  const auto before = addresses(copy);
  list.edit(500).setValue(-1);
  EXPECT_EQ(watch.copies, 1);
  EXPECT_EQ(list[500].value(), -1);
  EXPECT_EQ(copy[500].value(), 500);
  EXPECT_EQ(addresses(copy), before);
  const auto after = addresses(list);
  for (std::size_t i = 0; i < after.size(); ++i) ASSERT_EQ(after[i] == before[i], i != 500) << i;

  list.edit(500).setValue(-2);
  list.edit(501).setValue(-3);
  EXPECT_EQ(watch.copies, 2);
  EXPECT_EQ(addresses(list)[500], after[500]);
}

TEST(ListSharing, EditsFarApartStayApartFromACopyThatWasMadeBetween) {
  List<std::string> list = std::vector<std::string>(200, "element");
  list.edit(0) = "list";
  List<std::string> copy = list;
  copy.edit(199) = "copy";
  list.edit(199) = "list";
  copy.edit(0) = "copy";
  EXPECT_EQ(list[0], "list");
  EXPECT_EQ(list[199], "list");
  EXPECT_EQ(copy[0], "copy");
  EXPECT_EQ(copy[199], "copy");
}

TEST(ListSharing, ReplacesAnElementWithoutCopyingTheFormer) {
  Watch watch;
  List<Watched> list;
  for (int i = 0; i < 100; ++i) list.emplace_back(watch, i);
  const List<Watched> copy = list;
  watch.copies = 0;
  list.replace(70, Watched(watch, -1));
  EXPECT_EQ(watch.copies, 0);
  EXPECT_EQ(list[70].value(), -1);
  EXPECT_EQ(copy[70].value(), 70);
  EXPECT_EQ(&list[71], &copy[71]);
  list.replace(70, list[3]);
  EXPECT_EQ(list[70].value(), 3);
  EXPECT_EQ(watch.alive, 101);
}

TEST(ListSharing, ExchangesAndMovesElementsWithoutCopyingThem) {
  Watch watch;
  List<Watched> list = watched(watch, 200);
  const List<Watched> copy = list;
  const auto before = addresses(copy);
  list.swap(3, 150);
  list.move(0, 199);
  EXPECT_EQ(watch.copies, 0);
  EXPECT_EQ(addresses(copy), before);
  EXPECT_EQ(&list[2], before[150]);
  EXPECT_EQ(&list[149], before[3]);
  EXPECT_EQ(&list[199], before[0]);
}

TEST(ListSharing, EditsInPlaceWhatNobodyShares) {
  Watch watch;
  List<Watched> list = watched(watch, 100);
  { const List<Watched> gone = list; }
  const auto before = addresses(list);
  list.edit(7).setValue(-1);
  EXPECT_EQ(addresses(list), before);
  EXPECT_EQ(watch.copies, 0);
}

TEST(ListSharing, ReadsAppendsInsertsAndErasesWithoutCopyingAnElement) {
  Watch watch;
  List<Watched> list = watched(watch, 300);
  const List<Watched> copy = list;
  const auto before = addresses(copy);
  list.erase(100);
  list.insert(17, Watched(watch, -1));
  list.insert(200, Watched(watch, -2));
  list.push_back(Watched(watch, -3));
  list.reserve(1000);
  EXPECT_EQ(list.eraseIf([](const Watched& element) { return element.value() < 0; }), 3u);
  int sum = 0;
  for (const Watched& element : list) sum += element.value();
  EXPECT_EQ(sum, 299 * 300 / 2 - 100);
  EXPECT_EQ(watch.copies, 0);
  EXPECT_EQ(addresses(copy), before);
  auto expected = before;
  expected.erase(expected.begin() + 100);
  EXPECT_EQ(addresses(list), expected);
}

TEST(ListSharing, EraseIfWithoutAMatchGoesOnSharing) {
  // Small plain elements stand in the leaf: their addresses tell whether the leaf is shared.
  List<UUID> list;
  for (int i = 0; i < 200; ++i) list.push_back(UUID::random());
  const List<UUID> copy = list;
  EXPECT_EQ(list.eraseIf([](const UUID&) { return false; }), 0u);
  EXPECT_EQ(addresses(list), addresses(copy));
}

TEST(ListSharing, ChangesShareTheLeavesTheyLeaveAlone) {
  List<UUID> list;
  for (int i = 0; i < 64 * 5; ++i) list.push_back(UUID::random());
  const List<UUID> copy = list;
  const auto before = addresses(copy);
  const auto sharedLeaves = [&before](const List<UUID>& changed) {
    const auto after = addresses(changed);
    const std::unordered_set<const UUID*> places(after.begin(), after.end());
    std::string shared;
    for (std::size_t leaf = 0; leaf < 5; ++leaf)
      shared += places.contains(before[leaf * 64]) ? 's' : '-';
    return shared;
  };
  EXPECT_EQ(sharedLeaves(list), "sssss");
  list.edit(64 * 2 + 5) = UUID();
  EXPECT_EQ(sharedLeaves(list), "ss-ss");
  list = copy;
  list.erase(64 * 4);
  EXPECT_EQ(sharedLeaves(list), "ssss-");
  list = copy;
  list.insert(64 * 1 + 5, UUID());
  EXPECT_EQ(sharedLeaves(list), "s-sss");
  list = copy;
  list.push_back(UUID());
  EXPECT_EQ(sharedLeaves(list), "sssss");
  list = copy;
  EXPECT_EQ(list.eraseIf([&copy](const UUID& id) { return id == copy[3] || id == copy[200]; }), 2u);
  EXPECT_EQ(sharedLeaves(list), "-ss-s");
}

}  // namespace
}  // namespace korrin
