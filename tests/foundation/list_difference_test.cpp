#include "korrin/foundation/list_difference.h"

#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace korrin {
namespace {

using Stretch = std::pair<IndexRange, IndexRange>;

template <class T>
std::vector<Stretch> differences(const List<T>& before, const List<T>& after) {
  std::vector<Stretch> stretches;
  forEachDifference(before, after, [&](IndexRange a, IndexRange b) {
    stretches.push_back({a, b});
  });
  return stretches;
}

List<std::string> numbered(int count) {
  List<std::string> list;
  for (int i = 0; i < count; ++i) list.push_back("element " + std::to_string(i));
  return list;
}

TEST(ListDifference, OfAListAndItsCopyIsNothing) {
  for (const int count : {0, 1, 64, 65, 1000}) {
    const List<std::string> list = numbered(count);
    EXPECT_TRUE(differences(list, List<std::string>(list)).empty()) << count;
  }
}

TEST(ListDifference, OfListsThatShareNothingIsAll) {
  const std::vector<Stretch> all = {{{0, 200}, {0, 300}}};
  EXPECT_EQ(differences(numbered(200), numbered(300)), all);
  const std::vector<Stretch> added = {{{0, 0}, {0, 300}}};
  EXPECT_EQ(differences({}, numbered(300)), added);
  const std::vector<Stretch> gone = {{{0, 300}, {0, 0}}};
  EXPECT_EQ(differences(numbered(300), {}), gone);
}

TEST(ListDifference, IsTheOneElementThatWasReplacedInsertedOrErased) {
  const List<std::string> before = numbered(1000);
  for (const std::size_t place : {0u, 1u, 63u, 64u, 500u, 999u}) {
    List<std::string> after = before;
    after.replace(place, "other");
    EXPECT_EQ(differences(before, after),
              (std::vector<Stretch>{{{place, place + 1}, {place, place + 1}}}));
    after = before;
    after.erase(place);
    EXPECT_EQ(differences(before, after),
              (std::vector<Stretch>{{{place, place + 1}, {place, place}}}));
    after = before;
    after.insert(place, "new");
    EXPECT_EQ(differences(before, after),
              (std::vector<Stretch>{{{place, place}, {place, place + 1}}}));
  }
}

TEST(ListDifference, TellsStretchesApart) {
  const List<std::string> before = numbered(1000);
  List<std::string> after = before;
  after.replace(1, "other");
  after.erase(2);
  after.push_back("new");
  after.erase(700);
  const std::vector<Stretch> expected = {
      {{1, 3}, {1, 2}}, {{701, 702}, {700, 700}}, {{1000, 1000}, {998, 999}}};
  EXPECT_EQ(differences(before, after), expected);
}

TEST(ListDifference, TellsStretchesOfOneLeafApart) {
  const List<std::string> shorter = numbered(40);
  for (const std::size_t length : {1u, 7u}) {
    List<std::string> longer = shorter;
    for (std::size_t i = 0; i < length; ++i) longer.insert(20, "new");
    for (std::size_t i = 0; i < length; ++i) longer.insert(5, "new");
    const IndexRange first = {5, 5 + length};
    const IndexRange second = {20 + length, 20 + 2 * length};
    EXPECT_EQ(differences(shorter, longer),
              (std::vector<Stretch>{{{5, 5}, first}, {{20, 20}, second}}));
    EXPECT_EQ(differences(longer, shorter),
              (std::vector<Stretch>{{first, {5, 5}}, {second, {20, 20}}}));
  }
}

// Longer than the search ahead reaches.
TEST(ListDifference, TellsLongStretchesApart) {
  const List<std::string> before = numbered(1000);
  List<std::string> after = before;
  for (std::size_t i = 0; i < 40; ++i) {
    after.replace(100 + i, "other");
    after.replace(300 + i, "other");
  }
  EXPECT_EQ(differences(before, after),
            (std::vector<Stretch>{{{100, 140}, {100, 140}}, {{300, 340}, {300, 340}}}));
}

// Longer than the search ahead reaches, in elements and in leaves.
TEST(ListDifference, IsTheOneLongStretchThatWasInsertedOrErased) {
  const List<std::string> longer = numbered(3000);
  for (const std::size_t length : {40u, 1900u}) {
    for (const std::size_t place : {0u, 1u, 500u, 1000u}) {
      List<std::string> shorter = longer;
      std::size_t index = 0;
      shorter.eraseIf([&](const std::string&) {
        const bool isOfTheStretch = index >= place && index < place + length;
        ++index;
        return isOfTheStretch;
      });
      EXPECT_EQ(differences(longer, shorter),
                (std::vector<Stretch>{{{place, place + length}, {place, place}}}));
      EXPECT_EQ(differences(shorter, longer),
                (std::vector<Stretch>{{{place, place}, {place, place + length}}}));
    }
  }
}

// Elements that stand in their leaf are never shared one by one, hence a leaf is the least.
TEST(ListDifference, OfSmallElementsIsTheirLeaf) {
  List<int> before;
  for (int i = 0; i < 200; ++i) before.push_back(i);
  List<int> after = before;
  after.replace(70, -1);
  EXPECT_EQ(differences(before, after), (std::vector<Stretch>{{{64, 128}, {64, 128}}}));
}

// Outside the stretches the lists hold the very same elements.
TEST(ListDifference, CoversWhateverRandomEditsTouched) {
  const unsigned seed = 20261122;
  std::mt19937 random(seed);
  for (int round = 0; round < 300; ++round) {
    const List<std::string> before = numbered(static_cast<int>(random() % 700));
    List<std::string> after = before;
    const auto edits = random() % 6;
    for (std::size_t edit = 0; edit < edits; ++edit) {
      const std::size_t place = after.empty() ? 0 : random() % after.size();
      switch (random() % 4) {
        case 0:
          after.insert(place, "new");
          break;
        case 1:
          if (!after.empty()) after.erase(place);
          break;
        case 2:
          if (!after.empty()) after.edit(place) += "!";
          break;
        default:
          after.eraseIf([&](const std::string& text) { return text.ends_with("7"); });
      }
    }
    std::size_t a = 0;
    std::size_t b = 0;
    std::size_t stretches = 0;
    const auto expectShared = [&](std::size_t endBefore, std::size_t endAfter) {
      ASSERT_EQ(endBefore - a, endAfter - b) << "seed " << seed << ", round " << round;
      for (; a < endBefore; ++a, ++b) ASSERT_EQ(&before[a], &after[b]);
    };
    for (const auto& [rangeBefore, rangeAfter] : differences(before, after)) {
      expectShared(rangeBefore.first, rangeAfter.first);
      ASSERT_GT(rangeBefore.size() + rangeAfter.size(), 0u);
      a = rangeBefore.last;
      b = rangeAfter.last;
      ++stretches;
    }
    expectShared(before.size(), after.size());
    EXPECT_TRUE(edits > 0 || stretches == 0);
  }
}

}  // namespace
}  // namespace korrin
