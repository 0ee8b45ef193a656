#include "korrin/foundation/record.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/foundation/text.h"

namespace korrin {

struct Pair {
  int first;
  int second;
};
struct Short {
  int first;
  int second;
};
struct Swapped {
  int first;
  Text second;
};
struct Holder {
  std::optional<int> value;
  IDSet ids;
};

template <>
constexpr auto fieldsOf<Pair>() {
  return std::tuple{Field{"first", &Pair::first}, Field{"second", &Pair::second}};
}
template <>
constexpr auto fieldsOf<Short>() {
  return std::tuple{Field{"first", &Short::first}};
}
template <>
constexpr auto fieldsOf<Swapped>() {
  return std::tuple{Field{"second", &Swapped::second}, Field{"first", &Swapped::first}};
}
template <>
constexpr auto fieldsOf<Holder>() {
  return std::tuple{Field{"value", &Holder::value}, Field{"ids", &Holder::ids}};
}

namespace {

template <class Record>
std::size_t hashOf(const Record& record) {
  return std::hash<Record>{}(record);
}

TEST(Record, IsATypeWithATable) {
  EXPECT_TRUE(RecordType<Pair>);
  EXPECT_FALSE(RecordType<int>);
  EXPECT_FALSE(RecordType<Text>);
}

TEST(Record, HasACompleteTableOnlyWhenEveryFieldStandsInItsPlace) {
  EXPECT_TRUE(tableIsComplete<Pair>);
  EXPECT_FALSE(tableIsComplete<Short>);
  EXPECT_FALSE(tableIsComplete<Swapped>);
  EXPECT_TRUE(tableIsComplete<Holder>);
}

TEST(Record, VisitsItsFieldsInTheTablesOrder) {
  Pair pair{.first = 1, .second = 2};
  std::vector<std::string> visited;
  forEachField<Pair>([&](const auto& field) {
    visited.push_back(std::string(field.key) + "=" + std::to_string(pair.*field.member));
    pair.*field.member = 7;
  });
  EXPECT_EQ(visited, (std::vector<std::string>{"first=1", "second=2"}));
  EXPECT_EQ(pair.first, 7);
  EXPECT_EQ(pair.second, 7);
}

TEST(Record, TellsTheKeyOfAMember) {
  static_assert(keyOf(&Pair::second) == "second");
  EXPECT_EQ(keyOf(&Holder::ids), "ids");
  EXPECT_EQ(keyOf(&Short::second), "");
}

TEST(Record, HashesEveryFieldInItsPlace) {
  EXPECT_EQ(hashOf(Pair{1, 2}), hashOf(Pair{1, 2}));
  EXPECT_NE(hashOf(Pair{1, 2}), hashOf(Pair{2, 1}));
  EXPECT_NE(hashOf(Pair{0, 0}), hashOf(Pair{0, 1}));
  EXPECT_NE(hashOf(Pair{0, 0}), hashOf(Pair{1, 0}));
}

TEST(Record, HashesAnAbsentFieldUnlikeAnyPresentOne) {
  EXPECT_NE(hashOf(Holder{}), hashOf(Holder{.value = 0, .ids = {}}));
  EXPECT_NE(hashOf(Holder{.value = 0, .ids = {}}), hashOf(Holder{.value = 1, .ids = {}}));
}

TEST(Record, HashesEqualSetsEquallyWhateverTheirHistory) {
  Holder filled{};
  Holder regrown{};
  std::vector<UUID> ids;
  for (int i = 0; i < 100; ++i) ids.push_back(UUID::random());
  for (const UUID& id : ids) filled.ids.insert(id);
  for (auto id = ids.rbegin(); id != ids.rend(); ++id) regrown.ids.insert(*id);
  regrown.ids.rehash(5000);
  ASSERT_EQ(filled.ids, regrown.ids);
  EXPECT_EQ(hashOf(filled), hashOf(regrown));
  regrown.ids.erase(ids[0]);
  EXPECT_NE(hashOf(filled), hashOf(regrown));
}

}  // namespace
}  // namespace korrin
