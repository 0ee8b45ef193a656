#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "korrin/coding/decoding_report.h"
#include "korrin/model/document_coding.h"

#include "tests/support/decoding_outcome.h"
#include "tests/support/effort.h"
#include "tests/support/full_project.h"
#include "tests/support/mutated_projects.h"

namespace korrin {
namespace {

using Json = nlohmann::ordered_json;
using Kind = DecodingError::Kind;
using test::FullDocument;
using test::Mutation;
using test::Place;
using test::refusalOf;
using test::refusedAt;

class ProjectField : public testing::Test {
 protected:
  const KorrinProject project = test::fullProject();
  const FullDocument document;
  const std::vector<Place>& places = document.places();

  void expectOutcomes(const std::vector<Mutation>& rows) {
    EXPECT_FALSE(rows.empty());
    for (const Mutation& row : rows)
      EXPECT_EQ(refusalOf<KorrinProject>(row.text), row.refusal) << testing::PrintToString(row);
  }
  auto countOf(const std::string& expected) const {
    return std::ranges::count(places, expected, &Place::expected);
  }
};

TEST_F(ProjectField, IsFoundInEveryRecord) {
  const auto fields = std::ranges::count_if(places, [](const Place& p) { return !p.key.empty(); });
  EXPECT_EQ(fields, 93);
  EXPECT_EQ(std::ranges::count_if(places, &Place::isOptional), 9);
  EXPECT_EQ(std::ssize(places) - fields, 9);  // eight lists of one element, one with a list inside
  EXPECT_EQ(std::ranges::count_if(places, [](const Place& p) { return !p.words.empty(); }), 3);
  EXPECT_EQ(countOf("an identifier"), 13);
  EXPECT_EQ(countOf("a date as a string"), 3);
  EXPECT_EQ(countOf("an integer"), 7);
  EXPECT_EQ(countOf("a number"), 10);
  EXPECT_TRUE(decodeJSON<KorrinProject>(document.json().dump()) == project);
}

TEST_F(ProjectField, IsKeyNotFoundWhenItIsMissingUnlessOptional) {
  expectOutcomes(test::keysLeftOut());
}

TEST_F(ProjectField, IsValueNotFoundWhenItIsNullUnlessOptional) { expectOutcomes(test::nulls()); }

TEST_F(ProjectField, IsAbsentWhenItIsNullAsWhenItIsMissing) {
  for (const Place& place : places)
    if (place.isOptional) {
      EXPECT_TRUE(decodeJSON<KorrinProject>(document.with(place, nullptr).dump()) ==
                  decodeJSON<KorrinProject>(document.without(place).dump()))
          << place.keyPath;
    }
}

TEST_F(ProjectField, IsATypeMismatchAsAnyOtherType) { expectOutcomes(test::valuesOfOtherTypes()); }

TEST_F(ProjectField, IsCorruptedWhenItsKeyStandsTwice) { expectOutcomes(test::keysTwice()); }

TEST_F(ProjectField, OfAnEnumerationTakesItsWordsAndNoOthers) {
  expectOutcomes(test::wordsOfEnumerations());
  for (const Place& place : places) {
    if (place.words.empty()) continue;
    for (const std::string other : {"", "\u00E9", "unknown"}) {
      const auto refusal = refusalOf<KorrinProject>(document.with(place, other).dump());
      ASSERT_TRUE(refusal.has_value());
      EXPECT_EQ(refusal->kind, Kind::dataCorrupted);
      EXPECT_EQ(refusal->keyPath, place.keyPath);
    }
  }
}

TEST_F(ProjectField, OfAnIdentifierTakesItsTextInEitherCaseAndNoOther) {
  const std::vector<Mutation> rows = test::identifierTexts();
  expectOutcomes(rows);
  for (const Mutation& row : rows)
    if (!row.refusal) {
      EXPECT_TRUE(decodeJSON<KorrinProject>(row.text) == project) << row.keyPath;
    }
}

TEST_F(ProjectField, OfADateTakesNoOtherText) { expectOutcomes(test::dateTexts()); }

TEST_F(ProjectField, OfANumberTakesNoneThatDoesNotFit) { expectOutcomes(test::numberTexts()); }

TEST_F(ProjectField, ThatIsUnknownIsPassedOverInEveryObject) {
  for (const Mutation& row : test::unknownKeys())
    EXPECT_TRUE(decodeJSON<KorrinProject>(row.text) == project) << row.keyPath;
}

// The members of every object, in another order.
Json shuffled(const Json& json, std::mt19937& random) {
  if (json.is_array()) {
    Json array = Json::array();
    for (const Json& element : json) array.push_back(shuffled(element, random));
    return array;
  }
  if (!json.is_object()) return json;
  std::vector<std::pair<std::string, Json>> members;
  for (const auto& [key, value] : json.items()) members.emplace_back(key, shuffled(value, random));
  std::ranges::shuffle(members, random);
  Json object = Json::object();
  for (const auto& [key, value] : members) object[key] = value;
  return object;
}

TEST_F(ProjectField, IsReadWhereverItsKeyStands) {
  std::mt19937 random(5);
  for (int i = 0; i < 50; ++i)
    EXPECT_TRUE(decodeJSON<KorrinProject>(shuffled(document.json(), random).dump()) == project);
}

TEST_F(ProjectField, IsNamedWhenItIsTheFirstOfSeveralThatAreWrong) {
  constexpr unsigned seed = 6;
  SCOPED_TRACE(testing::Message() << "seed " << seed);
  std::mt19937 random(seed);
  for (int i = 0; i < test::repetitions(5'000, 1'000); ++i) {
    Json changed = document.json();
    std::size_t first = places.size();
    for (int faults = 0; faults < 3; ++faults) {
      // A value of a wrong type inside another one would make its own parts unreachable.
      const std::size_t chosen = random() % places.size();
      const Place& place = places[chosen];
      if (place.type == Json::value_t::object || place.type == Json::value_t::array ||
          !changed.contains(place.pointer))
        continue;
      changed.at(place.pointer) = Json::array();
      first = std::min(first, chosen);
    }
    if (first == places.size()) continue;
    const auto refusal = refusalOf<KorrinProject>(shuffled(changed, random).dump());
    ASSERT_TRUE(refusal.has_value());
    ASSERT_EQ(*refusal, refusedAt(places[first].keyPath, Kind::typeMismatch,
                                  "expected " + places[first].expected + ", found an array"));
  }
}

class WrongProject : public testing::TestWithParam<Mutation> {};

TEST_P(WrongProject, IsRefusedWithOneSentence) {
  EXPECT_EQ(refusalOf<KorrinProject>(GetParam().text), GetParam().refusal);
}

INSTANTIATE_TEST_SUITE_P(, WrongProject, testing::ValuesIn(test::tellingMutations()),
                         [](const auto& row) { return row.param.change; });

TEST(WrongDocument, IsNamedWithoutAKeyPath) {
  for (const Mutation& row : test::otherDocuments())
    EXPECT_EQ(refusalOf<KorrinProject>(row.text), row.refusal) << row.text;
  EXPECT_EQ(refusalOf<List<PlotItem>>("{}"),
            refusedAt("", Kind::typeMismatch, "expected an array, found an object"));
  EXPECT_EQ(refusalOf<PaperSize>("\"A4\""),
            refusedAt("", Kind::dataCorrupted,
                      "expected one of \"a4\" or \"letter\", found \"A4\"; the nearest is \"a4\""));
  EXPECT_EQ(refusalOf<List<StagePoint>>(R"([{"x":1,"y":2},{"x":1}])"),
            refusedAt("[1].y", Kind::keyNotFound, "expected a value, found no such key"));
}

TEST(ExpectedWords, AreJoinedAsASentenceHasThem) {
  EXPECT_EQ(json::oneOf({"a"}), "\"a\"");
  EXPECT_EQ(json::oneOf({"a", "b"}), "one of \"a\" or \"b\"");
  EXPECT_EQ(json::oneOf({"a", "b", "c"}), "one of \"a\", \"b\" or \"c\"");
}

}  // namespace
}  // namespace korrin
