#include "korrin/foundation/list.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <list>
#include <numeric>
#include <sstream>
#include <string>
#include <type_traits>
#include <unordered_set>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/foundation/numbers.h"
#include "tests/foundation/watched.h"

namespace korrin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

static_assert(std::is_same_v<decltype(List<std::string>()[0]), const std::string&>);
static_assert(std::is_nothrow_copy_constructible_v<List<std::string>>);
static_assert(std::is_nothrow_move_constructible_v<List<std::string>>);
static_assert(std::is_convertible_v<std::vector<std::string>, List<std::string>>);
static_assert(sizeof(List<std::string>) == sizeof(void*));

List<std::string> texts(int count) {
  List<std::string> list;
  for (int i = 0; i < count; ++i) list.push_back("element number " + std::to_string(i));
  return list;
}

TEST(List, IsEmptyByDefault) {
  const List<std::string> list;
  EXPECT_TRUE(list.empty());
  EXPECT_EQ(list.size(), 0u);
  EXPECT_EQ(list.begin(), list.end());
  EXPECT_THAT(list.toVector(), IsEmpty());
}

TEST(List, IsBuiltFromBracesIteratorsAndVectors) {
  EXPECT_THAT((List<int>{3, 1, 2}), ElementsAre(3, 1, 2));
  EXPECT_THAT((List<std::string>{"a", "b"}), ElementsAre("a", "b"));
  EXPECT_THAT(List<int>(std::vector<int>{4, 5}), ElementsAre(4, 5));
  const std::list<std::string> linked{"x", "y", "z"};
  EXPECT_THAT((List<std::string>(linked.begin(), linked.end())), ElementsAre("x", "y", "z"));
  std::istringstream stream("7 8 9");
  EXPECT_THAT((List<int>(std::istream_iterator<int>(stream), std::istream_iterator<int>())),
              ElementsAre(7, 8, 9));
  EXPECT_THAT(List<bool>(std::vector<bool>{true, false}), ElementsAre(true, false));
}

TEST(List, TakesTheElementsOfAVectorWithoutCopies) {
  Watch watch;
  std::vector<Watched> elements;
  for (int i = 0; i < 100; ++i) elements.emplace_back(watch, i);
  watch.copies = 0;
  const List<Watched> list = std::move(elements);
  EXPECT_EQ(watch.copies, 0);
  EXPECT_EQ(list[99].value(), 99);
}

TEST(List, GivesItsElementsToAVector) {
  EXPECT_THAT((List<std::string>{"a", "b"}).toVector(),
              testing::ContainerEq(std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(numbers(200).toVector().size(), 200u);
}

TEST(List, IndexesEveryElementAcrossLeaves) {
  for (const int count : {1, 4, 5, 63, 64, 65, 128, 129, 1000}) {
    const List<int> list = numbers(count);
    ASSERT_EQ(list.size(), static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) ASSERT_EQ(list[static_cast<std::size_t>(i)], i) << count;
    EXPECT_EQ(list.front(), 0);
    EXPECT_EQ(list.back(), count - 1);
  }
}

TEST(List, IndexesEveryElementWhereLeavesAreNotFull) {
  List<int> list = numbers(1000);
  std::vector<int> expected = list.toVector();
  for (int round = 0; round < 300; ++round) {
    const std::size_t i = static_cast<std::size_t>(round * 37) % list.size();
    list.erase(i);
    expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(i));
  }
  for (std::size_t i = 0; i < expected.size(); ++i) ASSERT_EQ(list[i], expected[i]);
}

TEST(List, IndexesEveryElementOfManyThousands) {
  List<int> list = numbers(100'000);
  std::vector<int> expected = list.toVector();
  for (std::size_t round = 0; round < 200; ++round) {
    const std::size_t i = round * 32'749 % list.size();
    const auto at = expected.begin() + static_cast<std::ptrdiff_t>(i);
    if (round % 2 == 0) {
      list.erase(i);
      expected.erase(at);
    } else {
      list.insert(i, -1);
      expected.insert(at, -1);
    }
    ASSERT_EQ(list.size(), expected.size());
    for (std::size_t k = round; k < list.size(); k += 997) ASSERT_EQ(list[k], expected[k]);
  }
  EXPECT_EQ(list.toVector(), expected);
  const auto isOdd = [](int element) { return element % 2 != 0; };
  EXPECT_EQ(list.eraseIf(isOdd), std::erase_if(expected, isOdd));
  for (std::size_t i = 0; i < expected.size(); ++i) ASSERT_EQ(list[i], expected[i]);
}

TEST(List, IndexesEveryElementBehindManyThatWereErased) {
  List<int> list = numbers(100'000);
  std::vector<int> expected = list.toVector();
  for (std::size_t i = 100; i < 30'000; i += 100) {
    list.erase(i);
    expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(i));
  }
  for (std::size_t i = 0; i < expected.size(); ++i) ASSERT_EQ(list[i], expected[i]);
}

TEST(List, GivesTheFreshElementToItsMaker) {
  List<std::string> list = texts(64);
  const List<std::string> copy = list;
  std::string& fresh = list.emplace_back(std::size_t{3}, 'x');
  EXPECT_EQ(fresh, "xxx");
  fresh = "filled in";
  EXPECT_EQ(list.back(), "filled in");
  EXPECT_EQ(copy, texts(64));
}

struct Place {
  double x;
  double y;
  friend bool operator==(const Place&, const Place&) = default;
};

struct Named {
  std::string name;
  List<Named> parts;
  friend bool operator==(const Named&, const Named&) = default;
};

TEST(List, BuildsAggregatesFromTheirFields) {
  List<Place> places;
  places.emplace_back(1.0, 2.0);
  EXPECT_EQ(places.front(), (Place{.x = 1, .y = 2}));
  List<Named> named;
  named.emplace_back("stage", List<Named>{});
  named.emplace_back().name = "monitors";
  EXPECT_EQ(named[0].name, "stage");
  EXPECT_EQ(named[1], (Named{.name = "monitors", .parts = {}}));
}

TEST(List, MayHoldElementsThatHoldSuchLists) {
  Named tree{.name = "root", .parts = {Named{.name = "leaf", .parts = {}}}};
  const Named copy = tree;
  tree.parts.edit(0).parts.push_back(copy);
  EXPECT_EQ(tree.parts[0].parts[0], copy);
  EXPECT_NE(tree, copy);
}

TEST(List, InsertsBeforeEveryIndex) {
  for (const int count : {0, 1, 5, 63, 64, 65, 128, 200}) {
    for (int i = 0; i <= count; ++i) {
      List<int> list = numbers(count);
      std::vector<int> expected = list.toVector();
      const List<int> copy = list;
      list.insert(static_cast<std::size_t>(i), -1);
      expected.insert(expected.begin() + i, -1);
      ASSERT_EQ(list, expected) << i << " of " << count;
      ASSERT_EQ(copy, numbers(count));
    }
  }
}

TEST(List, ExchangesAnyTwoElements) {
  for (const auto& [i, j] : std::vector<std::pair<std::size_t, std::size_t>>{
           {0, 1}, {1, 0}, {3, 3}, {0, 199}, {63, 64}, {150, 70}}) {
    List<std::string> list = texts(200);
    std::vector<std::string> expected = list.toVector();
    list.swap(i, j);
    std::swap(expected[i], expected[j]);
    EXPECT_EQ(list.toVector(), expected) << i << ", " << j;
  }
}

TEST(List, MovesAnElementToWhereItIsAskedFor) {
  List<std::string> letters = {"A", "B", "C", "D"};
  letters.move(0, 2);
  EXPECT_THAT(letters, ElementsAre("B", "C", "A", "D"));
  letters = {"A", "B", "C", "D"};
  letters.move(3, 1);
  EXPECT_THAT(letters, ElementsAre("A", "D", "B", "C"));
  for (const std::size_t from : {0u, 1u, 63u, 64u, 128u, 199u}) {
    for (const std::size_t to : {0u, 1u, 63u, 64u, 128u, 199u}) {
      List<int> list = numbers(200);
      std::vector<int> expected = list.toVector();
      list.move(from, to);
      expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(from));
      expected.insert(expected.begin() + static_cast<std::ptrdiff_t>(to), static_cast<int>(from));
      EXPECT_EQ(list.toVector(), expected) << from << ", " << to;
    }
  }
}

TEST(List, LetsSeveralReferencesBeHeldAtOnce) {
  List<std::string> list = texts(200);
  const List<std::string> copy = list;
  std::string& fresh = list.emplace_back("fresh");
  std::string& near = list.edit(0);
  std::string& next = list.edit(1);
  std::string& far = list.edit(150);
  std::string& again = list.edit(0);
  fresh = "a";
  near = "b";
  next = "c";
  far = "d";
  EXPECT_EQ(list.back(), "a");
  EXPECT_EQ(list[0], "b");
  EXPECT_EQ(list[1], "c");
  EXPECT_EQ(list[150], "d");
  std::swap(again, far);
  EXPECT_EQ(list[0], "d");
  EXPECT_EQ(list[150], "b");
  EXPECT_EQ(copy, texts(200));
}

TEST(List, ErasesAtEveryIndex) {
  for (const int count : {1, 5, 63, 64, 65, 128, 200}) {
    for (int i = 0; i < count; ++i) {
      List<int> list = numbers(count);
      std::vector<int> expected = list.toVector();
      const List<int> copy = list;
      list.erase(static_cast<std::size_t>(i));
      expected.erase(expected.begin() + i);
      ASSERT_EQ(list, expected) << i << " of " << count;
      ASSERT_EQ(copy, numbers(count));
    }
  }
}

TEST(List, GrowsAtItsFrontAsAtItsEnd) {
  List<int> list;
  for (int i = 0; i < 500; ++i) list.insert(0, i);
  for (int i = 0; i < 500; ++i) ASSERT_EQ(list[static_cast<std::size_t>(i)], 499 - i);
}

TEST(List, EmptiesFromEitherEnd) {
  List<std::string> list = texts(300);
  while (!list.empty()) list.erase(0);
  EXPECT_EQ(list, List<std::string>{});
  list = texts(300);
  while (!list.empty()) list.erase(list.size() - 1);
  EXPECT_EQ(list, List<std::string>{});
  list.push_back("again");
  EXPECT_THAT(list, ElementsAre("again"));
}

TEST(List, EraseIfKeepsTheOrderOfTheOthers) {
  List<int> list = numbers(1000);
  EXPECT_EQ(list.eraseIf([](int n) { return n % 3 == 0; }), 334u);
  std::vector<int> expected(1000);
  std::iota(expected.begin(), expected.end(), 0);
  std::erase_if(expected, [](int n) { return n % 3 == 0; });
  EXPECT_EQ(list, expected);
}

TEST(List, EraseIfAsksForEachElementOnceInOrder) {
  List<int> list = numbers(300);
  std::vector<int> asked;
  list.eraseIf([&asked](int n) {
    asked.push_back(n);
    return n % 2 == 0;
  });
  EXPECT_EQ(asked, numbers(300).toVector());
}

TEST(List, EraseIfRemovesAllOrNothing) {
  List<int> list = numbers(300);
  EXPECT_EQ(list.eraseIf([](int) { return false; }), 0u);
  EXPECT_EQ(list, numbers(300));
  EXPECT_EQ(list.eraseIf([](int) { return true; }), 300u);
  EXPECT_TRUE(list.empty());
  EXPECT_EQ(list.eraseIf([](int) { return true; }), 0u);
}

TEST(List, AssignsBracesIteratorsAndRepetitions) {
  List<int> list = numbers(100);
  const List<int> copy = list;
  list.assign({1, 2});
  EXPECT_THAT(list, ElementsAre(1, 2));
  list.assign(copy.begin() + 10, copy.begin() + 13);
  EXPECT_THAT(list, ElementsAre(10, 11, 12));
  list.assign(3, 7);
  EXPECT_THAT(list, ElementsAre(7, 7, 7));
  EXPECT_EQ(copy, numbers(100));
}

TEST(List, TakesItsOwnElementsAsArguments) {
  for (const int count : {1, 4, 8, 63, 64, 65}) {
    List<std::string> list = texts(count);
    const std::string last = list.back();
    list.push_back(list[0]);
    EXPECT_EQ(list.back(), "element number 0");
    list.insert(0, list[static_cast<std::size_t>(count) - 1]);
    EXPECT_EQ(list.front(), last);
    list.push_back(std::move(list.edit(1)));
    EXPECT_EQ(list.back(), "element number 0");
    list.assign(2, list.back());
    EXPECT_THAT(list, ElementsAre("element number 0", "element number 0"));
  }
  List<int> list = numbers(64);
  list.push_back(list[7]);
  list.insert(3, list[64]);
  EXPECT_EQ(list[3], 7);
  list.assign(list.begin() + 1, list.begin() + 4);
  EXPECT_THAT(list, ElementsAre(1, 2, 7));
}

TEST(List, IsEmptyAfterAMove) {
  List<std::string> list = texts(3);
  const List<std::string> target = std::move(list);
  EXPECT_TRUE(list.empty());  // NOLINT: the promise under test
  EXPECT_EQ(target, texts(3));
}

TEST(List, AssignsItselfToItself) {
  List<std::string> list = texts(70);
  const List<std::string>& same = list;
  list = same;
  EXPECT_EQ(list, texts(70));
}

TEST(List, ReserveChangesNoElement) {
  for (const int count : {0, 1, 63, 64, 65, 130}) {
    for (const std::size_t reserved : {0u, 1u, 64u, 65u, 100u, 1000u}) {
      List<std::string> list = texts(count);
      const List<std::string> copy = list;
      list.reserve(reserved);
      EXPECT_EQ(list, texts(count));
      EXPECT_EQ(std::distance(list.begin(), list.end()), count);
      list.push_back("one more");
      EXPECT_EQ(list.back(), "one more");
      EXPECT_EQ(copy, texts(count));
    }
  }
}

TEST(List, EqualsAListOfEqualElementsHoweverItsLeavesAreCut) {
  List<int> list = numbers(200);
  for (int i = 0; i < 50; ++i) list.insert(32, -1);
  for (int i = 0; i < 50; ++i) list.erase(32);
  EXPECT_EQ(list, numbers(200));
  EXPECT_EQ(std::hash<List<int>>{}(list), std::hash<List<int>>{}(numbers(200)));
  EXPECT_NE(list, numbers(199));
  list.edit(150) = -1;
  EXPECT_NE(list, numbers(200));
}

TEST(List, DiffersFromItsCopyWhenAnElementDiffersFromItself) {
  const List<double> list{1.0, std::numeric_limits<double>::quiet_NaN()};
  const List<double> copy = list;
  EXPECT_FALSE(list == copy);
  EXPECT_FALSE(list == list);
  EXPECT_EQ((List<double>{0.0}), (List<double>{-0.0}));
}

TEST(List, HashesInOrderAndByCount) {
  const std::hash<List<int>> hash;
  std::unordered_set<std::size_t> hashes;
  for (const List<int>& list : {List<int>{}, {0}, {0, 0}, {1}, {1, 0}, {0, 1}, {1, 2}, {2, 1}})
    hashes.insert(hash(list));
  EXPECT_EQ(hashes.size(), 8u);
  const std::unordered_set<List<List<int>>> nested{{{1}, {2}}, {{1, 2}}, {{1}, {2}}};
  EXPECT_EQ(nested.size(), 2u);
}

class ListDeathTest : public testing::TestWithParam<int> {};

TEST_P(ListDeathTest, EndsTheProgramOnAnIndexBehindTheEnd) {
  List<std::string> list = texts(GetParam());
  const std::size_t size = list.size();
  constexpr const char* message = "korrin: list index out of range";
  EXPECT_DEATH(static_cast<void>(list[size]), message);
  EXPECT_DEATH(list.edit(size), message);
  EXPECT_DEATH(list.replace(size, "x"), message);
  EXPECT_DEATH(list.erase(size), message);
  EXPECT_DEATH(list.swap(size, 0), message);
  EXPECT_DEATH(list.swap(0, size), message);
  EXPECT_DEATH(list.move(size, 0), message);
  EXPECT_DEATH(list.move(0, size), message);
  EXPECT_DEATH(list.insert(size + 1, "x"), message);
  EXPECT_DEATH(static_cast<void>(list[std::numeric_limits<std::size_t>::max()]), message);
}

INSTANTIATE_TEST_SUITE_P(OfCount, ListDeathTest, testing::Values(0, 3, 64),
                         testing::PrintToStringParamName());

TEST(ListDeathTest, EndsTheProgramOnTheEndsOfAnEmptyList) {
  List<std::string> list;
  EXPECT_DEATH(static_cast<void>(list.front()), "korrin: list index out of range");
  list.reserve(10);
  EXPECT_DEATH(static_cast<void>(list.back()), "korrin: list index out of range");
}

}  // namespace
}  // namespace korrin
