#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korrin/foundation/list.h"
#include "korrin/foundation/list_marks.h"
#include "korrin/foundation/record.h"
#include "korrin/foundation/uuid.h"

#include "tests/support/crafted_values.h"

namespace korrin {
namespace {

using testing::IsEmpty;
using testing::Lt;
using testing::SizeIs;

struct Symbol {
  UUID id;
  int colour;
};
struct Row {
  UUID id;
  std::optional<UUID> link;
};
struct Bundle {
  List<UUID> members;
};

}  // namespace

template <>
inline constexpr auto searchKey<Symbol> = &Symbol::id;
template <>
inline constexpr auto searchKey<Row> = &Row::link;
template <>
inline constexpr auto searchKey<Bundle> = &Bundle::members;

namespace {

// Spread as random identifiers are, the same in each run.
UUID identifier(std::uint64_t n) {
  UUID::Bytes bytes{};
  for (std::uint8_t& byte : bytes) {
    n = n * 6364136223846793005u + 1442695040888963407u;
    byte = static_cast<std::uint8_t>(n >> 56);
  }
  return UUID(bytes);
}

List<Symbol> symbols(std::size_t count) {
  List<Symbol> list;
  for (std::size_t i = 0; i < count; ++i) list.push_back({.id = identifier(i), .colour = 0});
  return list;
}

template <class T>
std::vector<std::size_t> candidates(const List<T>& list, const std::vector<UUID>& ids) {
  std::vector<std::size_t> places;
  list.forEachCandidate(ids, [&](std::size_t place, const T& element) {
    EXPECT_EQ(&element, &list[place]);
    places.push_back(place);
  });
  return places;
}
template <class T>
std::vector<std::size_t> candidates(const List<T>& list, const UUID& id) {
  return candidates(list, std::vector{id});
}

static_assert(Searchable<Symbol> && Searchable<Row> && Searchable<Bundle>);
static_assert(!Searchable<int> && !Searchable<UUID>);

TEST(ListSearch, FindsNothingInAnEmptyList) {
  EXPECT_THAT(candidates(List<Symbol>(), identifier(1)), IsEmpty());
  List<Symbol> emptied = symbols(3);
  emptied.eraseIf([](const Symbol&) { return true; });
  EXPECT_THAT(candidates(emptied, identifier(1)), IsEmpty());
  List<Symbol> reserved;
  reserved.reserve(100);
  EXPECT_THAT(candidates(reserved, identifier(1)), IsEmpty());
}

// There may be empty lists among the elements, which are candidates whatever is sought.
TEST(ListSearch, SeesEveryElementWhereNoneOrManyIdentifiersAreSought) {
  EXPECT_THAT(candidates(symbols(200), std::vector<UUID>()), SizeIs(200u));
  EXPECT_THAT(candidates(symbols(200), std::vector<UUID>(17, identifier(1000))), SizeIs(200u));
  EXPECT_THAT(candidates(symbols(200), std::vector<UUID>(16, identifier(1000))), SizeIs(Lt(20u)));
}

TEST(ListSearch, FindsEachElementAndPassesOverNearlyAllOthers) {
  const List<Symbol> list = symbols(2000);
  std::size_t seen = 0;
  for (std::size_t i = 0; i < list.size(); ++i) {
    const std::vector<std::size_t> found = candidates(list, list[i].id);
    ASSERT_THAT(found, testing::Contains(i));
    seen += found.size();
  }
  // One in 255 others by chance, and the last one.
  EXPECT_LT(seen, list.size() * (2000 / 255 * 3 / 2 + 2));
}

TEST(ListSearch, SeesEachCandidateOnceAndInOrder) {
  const List<Symbol> list = symbols(1000);
  std::vector<UUID> ids;
  for (const std::size_t i : {700u, 3u, 64u, 63u, 3u, 999u}) ids.push_back(list[i].id);
  const std::vector<std::size_t> found = candidates(list, ids);
  EXPECT_THAT(found, testing::IsSupersetOf({3u, 63u, 64u, 700u, 999u}));
  EXPECT_TRUE(std::ranges::adjacent_find(found, std::ranges::greater_equal()) == found.end());
}

TEST(ListSearch, FindsWhatIsWrittenThroughAReference) {
  for (const std::size_t count : {1u, 63u, 64u, 65u, 200u}) {
    List<Symbol> list = symbols(count);
    Symbol& fresh = list.emplace_back(Symbol{});
    fresh.id = identifier(5000);
    EXPECT_THAT(candidates(list, identifier(5000)), testing::Contains(count));
    Symbol& edited = list.edit(count / 2);
    EXPECT_THAT(candidates(list, identifier(5000)), testing::Contains(count));
    edited.id = identifier(6000);
    EXPECT_THAT(candidates(list, identifier(6000)), testing::Contains(count / 2));
    edited.id = identifier(7000);
    EXPECT_THAT(candidates(list, identifier(7000)), testing::Contains(count / 2));
    const List<Symbol> copy = list;
    list.edit(0).id = identifier(8000);
    EXPECT_THAT(candidates(list, identifier(8000)), testing::Contains(0u));
    if (count > 1) {
      EXPECT_THAT(candidates(copy, identifier(7000)), testing::Contains(count / 2));
      EXPECT_THAT(candidates(list, identifier(7000)), testing::Contains(count / 2));
    }
  }
}

// Any of several references may be written through at any time, until the list changes.
TEST(ListSearch, FindsWhatIsWrittenThroughSeveralReferences) {
  for (const std::size_t other : {1u, 63u, 64u, 199u}) {
    List<Symbol> list = symbols(200);
    Symbol& first = list.edit(0);
    Symbol& second = list.edit(other);
    Symbol& again = list.edit(0);
    first.id = identifier(5000);
    second.id = identifier(6000);
    EXPECT_THAT(candidates(list, identifier(5000)), testing::Contains(0u));
    EXPECT_THAT(candidates(list, identifier(6000)), testing::Contains(other));
    again.id = identifier(7000);
    EXPECT_THAT(candidates(list, identifier(7000)), testing::Contains(0u));
    std::swap(list.edit(0), list.edit(other));
    EXPECT_THAT(candidates(list, identifier(7000)), testing::Contains(other));
    EXPECT_THAT(candidates(list, identifier(6000)), testing::Contains(0u));
  }
}

TEST(ListSearch, FindsWhatWasWrittenBesideAReplacedElement) {
  for (const std::size_t written : {1u, 30u, 62u, 63u, 64u, 198u}) {
    for (const std::size_t replaced : {written - 1, written + 1}) {
      List<Symbol> list = symbols(200);
      list.edit(written).id = identifier(5000);
      list.replace(replaced, {.id = identifier(6000), .colour = 1});
      EXPECT_THAT(candidates(list, identifier(5000)), testing::Contains(written));
      EXPECT_THAT(candidates(list, identifier(6000)), testing::Contains(replaced));
    }
  }
}

TEST(ListSearch, FindsWhatIsWrittenThroughReferencesIntoASharedList) {
  List<Symbol> list = symbols(200);
  Symbol& fresh = list.emplace_back(Symbol{});
  Symbol& edited = list.edit(3);
  fresh.id = identifier(5000);
  edited.id = identifier(6000);
  const List<Symbol> copy = list;
  Symbol& later = list.edit(3);
  Symbol& last = list.edit(200);
  later.id = identifier(7000);
  last.id = identifier(8000);
  EXPECT_THAT(candidates(copy, identifier(5000)), testing::Contains(200u));
  EXPECT_THAT(candidates(copy, identifier(6000)), testing::Contains(3u));
  EXPECT_THAT(candidates(list, identifier(7000)), testing::Contains(3u));
  EXPECT_THAT(candidates(list, identifier(8000)), testing::Contains(200u));
}

TEST(ListSearch, FindsElementsThatWereExchangedOrMoved) {
  List<Symbol> list = symbols(200);
  list.edit(5).id = identifier(5000);
  list.edit(150).id = identifier(6000);
  list.swap(5, 150);
  EXPECT_THAT(candidates(list, identifier(5000)), testing::Contains(150u));
  EXPECT_THAT(candidates(list, identifier(6000)), testing::Contains(5u));
  list.move(150, 0);
  EXPECT_THAT(candidates(list, identifier(5000)), testing::Contains(0u));
  EXPECT_THAT(candidates(list, identifier(6000)), testing::Contains(6u));
}

// A mark is a part of a hash: were it one that can be foreseen, all marks could be made alike.
TEST(ListSearch, PassesOverIdentifiersThatWereChosenToCollide) {
  for (const test::IdentifierFamily& family : test::identifierFamilies()) {
    SCOPED_TRACE(family.name);
    List<Symbol> list;
    List<Bundle> bundles;
    for (std::size_t i = 0; i < 6400; ++i) {
      list.push_back({.id = family.member(i), .colour = 0});
      bundles.push_back({.members = {family.member(i)}});
    }
    EXPECT_THAT(candidates(list, family.member(100)), SizeIs(Lt(200u)));
    EXPECT_THAT(candidates(bundles, family.member(100)), SizeIs(Lt(640u)));
  }
}

TEST(ListSearch, FindsEachElementBehindOthersThatCameOrWent) {
  List<Symbol> list = symbols(100);
  List<Bundle> bundles;
  for (std::size_t i = 0; i < 100; ++i) bundles.push_back({.members = {identifier(i)}});
  for (const std::size_t place : {70u, 10u, 0u}) {
    list.insert(place, {.id = identifier(200 + place), .colour = 1});
    bundles.insert(place, {.members = {identifier(200 + place)}});
    list.erase(place + 5);
    bundles.erase(place + 5);
    for (std::size_t i = 0; i < list.size(); ++i) {
      ASSERT_THAT(candidates(list, list[i].id), testing::Contains(i));
      ASSERT_THAT(candidates(bundles, bundles[i].members[0]), testing::Contains(i));
    }
  }
}

TEST(ListSearch, MarksListsOfIdentifiersWithAllBitsAlike) {
  std::array<int, 32> identifiers{};
  for (std::uint64_t i = 0; i < 32'000; ++i)
    for (std::size_t bit = 0; bit < 32; ++bit)
      identifiers[bit] += static_cast<int>(detail::FilterMark::of(identifier(i)) >> bit & 1);
  // Two bits of 32 for each, and one where they meet.
  EXPECT_THAT(identifiers, testing::Each(testing::AllOf(testing::Gt(1650), Lt(2350))));
}

TEST(ListSearch, PassesOverElementsThatWereEditedBeforeTheirLeafWasCopied) {
  List<Symbol> list = symbols(64 * 100);
  for (std::size_t i = 0; i < list.size(); ++i) list.edit(i).id = identifier(10'000 + i);
  const List<Symbol> copy = list;
  for (std::size_t i = 0; i < list.size(); i += 64) list.edit(i).id = identifier(20'000 + i);
  // One in 128 or 255 others by chance, and one open slot a leaf.
  EXPECT_THAT(candidates(list, identifier(1)), SizeIs(Lt(300u)));
}

// A copy ends the use of every reference, and the first search then makes the marks.
TEST(ListSearch, PassesOverElementsThatWereEditedBeforeTheListWasCopied) {
  constexpr std::size_t count = 64 * 100;
  List<Symbol> list = symbols(count);
  for (std::size_t i = 0; i < count; ++i) list.edit(i).id = identifier(10'000 + i);
  EXPECT_THAT(candidates(list, identifier(1)), SizeIs(count));
  {
    const List<Symbol> copy = list;
    EXPECT_THAT(candidates(copy, identifier(1)), SizeIs(Lt(150u)));
    EXPECT_THAT(candidates(list, identifier(1)), SizeIs(Lt(150u)));
  }
  EXPECT_THAT(candidates(list, identifier(1)), SizeIs(Lt(150u)));
  for (std::size_t i = 0; i < count; i += 7)
    ASSERT_THAT(candidates(list, identifier(10'000 + i)), testing::Contains(i));
}

TEST(ListSearch, PassesOverElementsOfTheLeavesThatACopyLeftAlone) {
  List<Symbol> list = symbols(64 * 100);
  for (std::size_t i = 0; i < list.size(); ++i) list.edit(i).id = identifier(10'000 + i);
  List<Symbol> copy = list;
  copy.edit(70).id = identifier(2);
  EXPECT_THAT(candidates(copy, identifier(1)), SizeIs(Lt(150u)));
  EXPECT_THAT(candidates(copy, identifier(2)), testing::Contains(70u));
  // The leaf that the copy has replaced is the list's alone, and was settled all the same.
  EXPECT_THAT(candidates(list, identifier(1)), SizeIs(Lt(150u)));
  EXPECT_THAT(candidates(list, identifier(10'070)), testing::Contains(70u));
}

TEST(ListSearch, FindsWhatIsWrittenThroughReferencesThatAreYoungerThanTheMarks) {
  for (const std::size_t other : {4u, 63u, 64u, 199u}) {
    List<Symbol> list = symbols(200);
    for (std::size_t i = 0; i < list.size(); ++i) list.edit(i).id = identifier(10'000 + i);
    {
      const List<Symbol> copy = list;
      EXPECT_THAT(candidates(copy, identifier(10'003)), testing::Contains(3u));
    }
    Symbol& first = list.edit(3);
    Symbol& second = list.edit(other);
    first.id = identifier(5000);
    EXPECT_THAT(candidates(list, identifier(5000)), testing::Contains(3u));
    second.id = identifier(6000);
    first.id = identifier(7000);
    EXPECT_THAT(candidates(list, identifier(6000)), testing::Contains(other));
    EXPECT_THAT(candidates(list, identifier(7000)), testing::Contains(3u));
    for (const std::size_t at : {0u, 2u, 5u, 62u, 65u, 198u})
      EXPECT_THAT(candidates(list, identifier(10'000 + at)), testing::Contains(at));
  }
}

TEST(ListSearch, PassesOverElementsWhateverTheirKeyOnceTheListIsCopied) {
  List<Row> rows;
  List<Bundle> bundles;
  for (std::size_t i = 0; i < 640; ++i) {
    rows.push_back({.id = identifier(i), .link = std::nullopt});
    bundles.push_back({.members = {}});
  }
  for (std::size_t i = 0; i < 640; ++i) {
    rows.edit(i).link = identifier(1000 + i);
    bundles.edit(i).members.push_back(identifier(1000 + i));
  }
  const List<Row> copyOfRows = rows;
  const List<Bundle> copyOfBundles = bundles;
  EXPECT_THAT(candidates(rows, identifier(1100)), testing::Contains(100u));
  EXPECT_THAT(candidates(rows, identifier(1)), SizeIs(Lt(40u)));
  EXPECT_THAT(candidates(bundles, identifier(1100)), testing::Contains(100u));
  EXPECT_THAT(candidates(bundles, identifier(1)), SizeIs(Lt(200u)));
}

TEST(ListSearch, PassesOverElementsThatWereReplacedOneByOne) {
  List<Symbol> list = symbols(64 * 100);
  for (std::size_t i = 0; i < list.size(); i += 3)
    list.replace(i, {.id = identifier(10'000 + i), .colour = 1});
  EXPECT_THAT(candidates(list, identifier(1)), SizeIs(Lt(150u)));
  EXPECT_THAT(candidates(list, identifier(10'003)), testing::Contains(3u));
}

TEST(ListSearch, PassesOverElementsWithoutLink) {
  List<Row> rows;
  for (std::size_t i = 0; i < 640; ++i)
    rows.push_back({.id = identifier(i),
                    .link = i % 10 == 0 ? std::optional(identifier(1000 + i)) : std::nullopt});
  EXPECT_THAT(candidates(rows, identifier(1100)), testing::Contains(100u));
  EXPECT_THAT(candidates(rows, identifier(1)), SizeIs(Lt(6u)));
}

TEST(ListSearch, FindsEveryListThatHoldsTheIdentifierOrIsEmpty) {
  List<Bundle> bundles;
  for (std::size_t i = 0; i < 640; ++i) {
    Bundle& bundle = bundles.emplace_back(Bundle{});
    for (std::size_t member = 0; i != 200 && member < 4; ++member)
      bundle.members.push_back(identifier(i * 4 + member));
  }
  for (std::size_t i = 0; i < 640; ++i) {
    for (const UUID& member : bundles[i].members)
      ASSERT_THAT(candidates(bundles, member), testing::IsSupersetOf({i, std::size_t{200}}));
  }
  // An absent identifier is found in 5 % of the bundles, or in 21 % if its two bits are one: the
  // mean over many says what a single one, under a hash of another key each time, cannot.
  std::size_t found = 0;
  for (std::uint64_t absent = 0; absent < 500; ++absent)
    found += candidates(bundles, identifier(1'000'000 + absent)).size() - 1;
  EXPECT_LT(found / 500, 50u);
}

// Whoever chooses identifiers alike gains no more than that each element is looked at.
TEST(ListSearch, SeesNoElementTwiceHoweverAlikeIdentifiersAre) {
  List<Symbol> list;
  for (int i = 0; i < 1000; ++i) list.push_back({.id = UUID(), .colour = i});
  EXPECT_THAT(candidates(list, std::vector<UUID>(3)), SizeIs(1000u));

  List<Bundle> bundles;
  for (std::size_t i = 0; i < 100; ++i) {
    Bundle& bundle = bundles.emplace_back(Bundle{});
    for (std::size_t member = 0; member < 200; ++member)
      bundle.members.push_back(identifier(i * 200 + member));
  }
  EXPECT_THAT(candidates(bundles, identifier(1)), SizeIs(100u));
}

}  // namespace
}  // namespace korrin
