#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "korrin/model/document_coding.h"

#include "tests/support/decoding_outcome.h"
#include "tests/support/effort.h"
#include "tests/support/full_project.h"

namespace korrin {
namespace {

using Json = nlohmann::ordered_json;
using Kind = DecodingError::Kind;
using test::Refusal;
using test::refusalOf;
using test::refusedAt;

// What a field's type looks like in a document, and how a refusal names it.
struct Shape {
  Json::value_t type;
  std::string expected;
};
Shape shapeOf(bool) { return {Json::value_t::boolean, "true or false"}; }
Shape shapeOf(double) { return {Json::value_t::number_integer, "a number"}; }
Shape shapeOf(std::int64_t) { return {Json::value_t::number_integer, "an integer"}; }
Shape shapeOf(const Text&) { return {Json::value_t::string, "a string"}; }
Shape shapeOf(const UUID&) { return {Json::value_t::string, "an identifier"}; }
Shape shapeOf(Instant) { return {Json::value_t::string, "a date as a string"}; }
template <RawValueEnumeration Enumeration>
Shape shapeOf(Enumeration) {
  return {Json::value_t::string, "a string"};
}
template <RecordType Record>
Shape shapeOf(const Record&) {
  return {Json::value_t::object, "an object"};
}
template <class Element>
Shape shapeOf(const List<Element>&) {
  return {Json::value_t::array, "an array"};
}

// One value inside the document of a full project.
struct Place {
  std::string keyPath;
  Json::json_pointer pointer;
  std::string key;  // empty for an element of a list
  bool isOptional;
  Shape shape;
  std::vector<std::string> words;  // of an enumeration
};

// All places below a value, depth first and in field order.
class Places {
 public:
  template <class Value>
  static std::vector<Place> of(const Value& value) {
    Places places;
    places.descend(value, "", Json::json_pointer());
    return places.found_;
  }

 private:
  template <class Value>
  void descend(const Value&, const std::string&, const Json::json_pointer&) {}
  template <class Value>
  void descend(const std::optional<Value>& value, const std::string& path,
               const Json::json_pointer& pointer) {
    descend(value.value(), path, pointer);
  }
  template <class Element>
  void descend(const List<Element>& list, const std::string& path,
               const Json::json_pointer& pointer) {
    for (std::size_t i = 0; i < list.size(); ++i)
      add(list[i], path + "[" + std::to_string(i) + "]", pointer / i, "", false);
  }
  template <RecordType Record>
  void descend(const Record& record, const std::string& path, const Json::json_pointer& pointer) {
    forEachField<Record>([&](const auto& field) {
      const std::string key(field.key);
      addField(record.*field.member, path.empty() ? key : path + "." + key, pointer / key, key);
    });
  }

  template <class Value>
  void addField(const Value& value, const std::string& path, const Json::json_pointer& pointer,
                const std::string& key) {
    add(value, path, pointer, key, false);
  }
  template <class Value>
  void addField(const std::optional<Value>& value, const std::string& path,
                const Json::json_pointer& pointer, const std::string& key) {
    add(value.value(), path, pointer, key, true);
  }

  template <class Value>
  void add(const Value& value, const std::string& path, const Json::json_pointer& pointer,
           const std::string& key, bool isOptional) {
    std::vector<std::string> words;
    if constexpr (RawValueEnumeration<Value>)
      for (const auto& row : CaseTable<Value>::cases) words.emplace_back(row.rawValue);
    found_.push_back({path, pointer, key, isOptional, shapeOf(value), words});
    descend(value, path, pointer);
  }

  std::vector<Place> found_;
};

class ProjectField : public testing::Test {
 protected:
  const KorrinProject project = test::fullProject();
  const Json document = Json::parse(encodeJSON(project));
  const std::vector<Place> places = Places::of(project);

  Json without(const Place& place) const {
    Json changed = document;
    changed.at(place.pointer.parent_pointer()).erase(place.key);
    return changed;
  }
  Json with(const Place& place, const Json& value) const {
    Json changed = document;
    changed.at(place.pointer) = value;
    return changed;
  }
  // Any text as the value, whether JSON readers could hold it or not.
  std::string withRaw(const Place& place, const std::string& raw) const {
    std::string text = with(place, "@raw@").dump();
    return text.replace(text.find("\"@raw@\""), 7, raw);
  }
  std::string withKeyTwice(const Place& place) const {
    Json changed = document;
    changed.at(place.pointer.parent_pointer())["@again@"] = changed.at(place.pointer);
    std::string text = changed.dump();
    return text.replace(text.find("@again@"), 7, place.key);
  }
};

TEST_F(ProjectField, IsFoundInEveryRecord) {
  const auto fields = std::ranges::count_if(places, [](const Place& p) { return !p.key.empty(); });
  const auto optional = std::ranges::count_if(places, &Place::isOptional);
  EXPECT_EQ(fields, 93);
  EXPECT_EQ(optional, 9);
  EXPECT_EQ(std::ssize(places) - fields, 9);  // eight lists of one element, one with a list inside
  EXPECT_TRUE(decodeJSON<KorrinProject>(document.dump()) == project);
}

TEST_F(ProjectField, IsKeyNotFoundWhenItIsMissingUnlessOptional) {
  for (const Place& place : places) {
    if (place.key.empty()) continue;
    const auto refusal = refusalOf<KorrinProject>(without(place).dump());
    if (place.isOptional)
      EXPECT_EQ(refusal, std::nullopt) << place.keyPath;
    else
      EXPECT_EQ(refusal,
                refusedAt(place.keyPath, Kind::keyNotFound, "expected a value, found no such key"));
  }
}

TEST_F(ProjectField, IsValueNotFoundWhenItIsNullUnlessOptional) {
  for (const Place& place : places) {
    const Json changed = with(place, nullptr);
    if (place.isOptional)
      EXPECT_TRUE(decodeJSON<KorrinProject>(changed.dump()) ==
                  decodeJSON<KorrinProject>(without(place).dump()))
          << place.keyPath;
    else
      EXPECT_EQ(refusalOf<KorrinProject>(changed.dump()),
                refusedAt(place.keyPath, Kind::valueNotFound,
                          "expected " + place.shape.expected + ", found null"));
  }
}

TEST_F(ProjectField, IsATypeMismatchAsAnyOtherType) {
  struct Other {
    Json value;
    std::string name;
  };
  const std::vector<Other> others = {{Json::object(), "an object"},
                                     {Json::array(), "an array"},
                                     {"x", "a string"},
                                     {1, "a number"},
                                     {-0.5, "a number"},
                                     {true, "a Boolean"},
                                     {false, "a Boolean"},
                                     {"", "a string"}};
  for (const Place& place : places) {
    for (const Other& other : others) {
      const bool isNumber = place.shape.type == Json::value_t::number_integer;
      if (other.value.type() == place.shape.type || (isNumber && other.value.is_number()) ||
          (place.shape.type == Json::value_t::number_integer && other.value.is_number()))
        continue;
      EXPECT_EQ(refusalOf<KorrinProject>(with(place, other.value).dump()),
                refusedAt(place.keyPath, Kind::typeMismatch,
                          "expected " + place.shape.expected + ", found " + other.name));
    }
  }
}

TEST_F(ProjectField, IsCorruptedWhenItsKeyStandsTwice) {
  for (const Place& place : places) {
    if (place.key.empty()) continue;
    EXPECT_EQ(
        refusalOf<KorrinProject>(withKeyTwice(place)),
        refusedAt(place.keyPath, Kind::dataCorrupted, "expected the key once, found it twice"))
        << place.keyPath;
  }
}

TEST_F(ProjectField, OfAnEnumerationTakesItsWordsAndNoOthers) {
  int enumerations = 0;
  for (const Place& place : places) {
    if (place.words.empty()) continue;
    ++enumerations;
    std::string list;
    for (std::size_t i = 0; i < place.words.size(); ++i)
      list += (i == 0                        ? "one of \""
               : i + 1 == place.words.size() ? " or \""
                                             : ", \"") +
              place.words[i] + "\"";
    for (const std::string& word : place.words) {
      EXPECT_EQ(refusalOf<KorrinProject>(with(place, word).dump()), std::nullopt);
      std::string capital = word;
      capital[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(capital[0])));
      for (const std::string& other : {capital, " " + word, word + " ", word + word[0]})
        EXPECT_EQ(refusalOf<KorrinProject>(with(place, other).dump()),
                  refusedAt(place.keyPath, Kind::dataCorrupted,
                            "expected " + list + ", found \"" + other + "\"; the nearest is \"" +
                                word + "\""));
    }
    for (const std::string other : {"", "\u00E9", "unknown"}) {
      const auto refusal = refusalOf<KorrinProject>(with(place, other).dump());
      ASSERT_TRUE(refusal.has_value());
      EXPECT_EQ(refusal->kind, Kind::dataCorrupted);
      EXPECT_EQ(refusal->keyPath, place.keyPath);
    }
  }
  EXPECT_EQ(enumerations, 3);
}

TEST_F(ProjectField, OfAnIdentifierTakesItsTextInEitherCaseAndNoOther) {
  int identifiers = 0;
  for (const Place& place : places) {
    if (place.shape.expected != "an identifier") continue;
    ++identifiers;
    std::string text = document.at(place.pointer).get<std::string>();
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    EXPECT_TRUE(decodeJSON<KorrinProject>(with(place, text).dump()) == project);
    for (const std::string& other :
         {std::string(), text + "0", text.substr(1), " " + text.substr(1), "{" + text + "}",
          "g" + text.substr(1), text.substr(0, 8) + text.substr(9) + "0"})
      EXPECT_EQ(refusalOf<KorrinProject>(with(place, other).dump()),
                refusedAt(place.keyPath, Kind::dataCorrupted,
                          "expected an identifier of 36 characters, found \"" + other + "\""));
  }
  EXPECT_EQ(identifiers, 13);
}

TEST_F(ProjectField, OfADateTakesNoOtherText) {
  int dates = 0;
  for (const Place& place : places) {
    if (place.shape.expected != "a date as a string") continue;
    ++dates;
    for (const std::string other : {"", "2026-07-18", "2026-02-30T00:00:00Z", "tomorrow"})
      EXPECT_EQ(
          refusalOf<KorrinProject>(with(place, other).dump()),
          refusedAt(place.keyPath, Kind::dataCorrupted,
                    "expected a date such as \"2026-07-18T20:30:00Z\", found \"" + other + "\""));
  }
  EXPECT_EQ(dates, 3);
}

TEST_F(ProjectField, OfANumberTakesNoneThatDoesNotFit) {
  int integers = 0;
  int doubles = 0;
  for (const Place& place : places) {
    if (place.shape.expected == "an integer") {
      ++integers;
      EXPECT_EQ(refusalOf<KorrinProject>(withRaw(place, "1.5")),
                refusedAt(place.keyPath, Kind::typeMismatch, "expected an integer, found 1.5"));
      for (const std::string raw : {"9223372036854775808", "1e30"})
        EXPECT_EQ(refusalOf<KorrinProject>(withRaw(place, raw)),
                  refusedAt(place.keyPath, Kind::dataCorrupted,
                            "expected an integer of 64 bits, found " + raw));
      EXPECT_EQ(refusalOf<KorrinProject>(withRaw(place, "-9223372036854775808")), std::nullopt);
    } else if (place.shape.expected == "a number") {
      ++doubles;
      EXPECT_EQ(refusalOf<KorrinProject>(withRaw(place, "-1e309")),
                refusedAt(place.keyPath, Kind::dataCorrupted,
                          "expected a number within the range of a double, found -1e309"));
      EXPECT_EQ(refusalOf<KorrinProject>(withRaw(place, "1e308")), std::nullopt);
    }
  }
  EXPECT_EQ(integers, 7);
  EXPECT_EQ(doubles, 10);
}

TEST_F(ProjectField, ThatIsUnknownIsPassedOverInEveryObject) {
  for (const Place& place : places) {
    if (place.key.empty()) continue;
    Json changed = document;
    changed.at(place.pointer.parent_pointer())["later"] = {{"id", 1}, {"name", {nullptr, "x"}}};
    changed.at(place.pointer.parent_pointer())[""] = true;
    EXPECT_TRUE(decodeJSON<KorrinProject>(changed.dump()) == project) << place.keyPath;
  }
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
    EXPECT_TRUE(decodeJSON<KorrinProject>(shuffled(document, random).dump()) == project);
}

TEST_F(ProjectField, IsNamedWhenItIsTheFirstOfSeveralThatAreWrong) {
  constexpr unsigned seed = 6;
  SCOPED_TRACE(testing::Message() << "seed " << seed);
  std::mt19937 random(seed);
  for (int i = 0; i < test::repetitions(5'000, 1'000); ++i) {
    Json changed = document;
    std::size_t first = places.size();
    for (int faults = 0; faults < 3; ++faults) {
      // A value of a wrong type inside another one would make its own parts unreachable.
      const std::size_t chosen = random() % places.size();
      const Place& place = places[chosen];
      if (place.shape.type == Json::value_t::object || place.shape.type == Json::value_t::array ||
          !changed.contains(place.pointer))
        continue;
      changed.at(place.pointer) = Json::array();
      first = std::min(first, chosen);
    }
    if (first == places.size()) continue;
    const auto refusal = refusalOf<KorrinProject>(shuffled(changed, random).dump());
    ASSERT_TRUE(refusal.has_value());
    ASSERT_EQ(*refusal, refusedAt(places[first].keyPath, Kind::typeMismatch,
                                  "expected " + places[first].shape.expected + ", found an array"));
  }
}

struct Message {
  std::string name;
  std::string replaced;
  std::string replacement;
  Refusal refusal;
};
void PrintTo(const Message& row, std::ostream* out) { *out << row.replacement; }

class WrongProject : public testing::TestWithParam<Message> {};

TEST_P(WrongProject, IsRefusedWithOneSentence) {
  std::string text = encodeJSON(test::fullProject());
  const std::size_t place = text.find(GetParam().replaced);
  ASSERT_NE(place, std::string::npos);
  text.replace(place, GetParam().replaced.size(), GetParam().replacement);
  EXPECT_EQ(refusalOf<KorrinProject>(text), GetParam().refusal);
}

const std::string longWord(60, 'w');

INSTANTIATE_TEST_SUITE_P(
    , WrongProject,
    testing::Values(
        Message{"TextForANumber",
                "\"labelScale\":1.25",
                "\"labelScale\":\"big\"",
                {Kind::typeMismatch, "items[0].style.labelScale",
                 "items[0].style.labelScale: expected a number, found a string"}},
        Message{"MissingList",
                ",\"assetManifest\":",
                ",\"assets\":",
                {Kind::keyNotFound, "assetManifest",
                 "assetManifest: expected a value, found no such key"}},
        Message{"CapitalEdge",
                "\"bottom\"",
                "\"Bottom\"",
                {Kind::dataCorrupted, "stage.audienceEdge",
                 "stage.audienceEdge: expected one of \"top\", \"right\", \"bottom\" or \"left\", "
                 "found \"Bottom\"; the nearest is \"bottom\""}},
        Message{"MistypedKind",
                "\"riser\"",
                "\"rizer\"",
                {Kind::dataCorrupted, "items[0].kind",
                 "items[0].kind: expected one of \"microphone\", \"monitor\", \"amplifier\", "
                 "\"instrument\", \"performer\", \"riser\", \"power\", \"furniture\" or "
                 "\"custom\", found \"rizer\"; the nearest is \"riser\""}},
        Message{"OtherPaper",
                "\"letter\"",
                "\"" + longWord + "\"",
                {Kind::dataCorrupted, "exportSettings.paperSize",
                 "exportSettings.paperSize: expected one of \"a4\" or \"letter\", found \"" +
                     longWord.substr(0, 40) + "\u2026\"; the nearest is \"a4\""}},
        Message{"EscapesInAWord",
                "\"letter\"",
                R"("let\u001btter\n")",
                {Kind::dataCorrupted, "exportSettings.paperSize",
                 "exportSettings.paperSize: expected one of \"a4\" or \"letter\", found "
                 "\"let\\u001btter\\n\"; the nearest is \"letter\""}},
        Message{"NullInAList",
                "\"itemIDs\":[",
                "\"itemIDs\":[null,",
                {Kind::valueNotFound, "groups[0].itemIDs[0]",
                 "groups[0].itemIDs[0]: expected an identifier, found null"}},
        Message{"SecondElement",
                "\"itemIDs\":[",
                "\"itemIDs\":[\"5A10FF00-0000-4000-8000-"
                "000000000002\",7,",
                {Kind::typeMismatch, "groups[0].itemIDs[1]",
                 "groups[0].itemIDs[1]: expected an identifier, found a number"}},
        Message{"FractionOfAChannel",
                "\"channel\":7",
                "\"channel\":7.5",
                {Kind::typeMismatch, "inputs[0].channel",
                 "inputs[0].channel: expected an integer, found 7.5"}},
        Message{"LongNumber",
                "\"byteCount\":48213",
                "\"byteCount\":" + std::string(1000, '9'),
                {Kind::dataCorrupted, "assetManifest[0].byteCount",
                 "assetManifest[0].byteCount: expected an integer of 64 bits, found " +
                     std::string(40, '9') + "\u2026"}},
        Message{"BooleanInQuotes",
                "\"phantomPower\":false",
                "\"phantomPower\":\"false\"",
                {Kind::typeMismatch, "inputs[0].phantomPower",
                 "inputs[0].phantomPower: expected true or false, found a string"}},
        Message{"NumberForABoolean",
                "\"phantomPower\":false",
                "\"phantomPower\":0",
                {Kind::typeMismatch, "inputs[0].phantomPower",
                 "inputs[0].phantomPower: expected true or false, found a number"}},
        Message{"EscapedKeyTwice",
                "\"venue\":",
                "\"\\u0076enue\":\"\",\"venue\":",
                {Kind::dataCorrupted, "metadata.venue",
                 "metadata.venue: expected the key once, found it twice"}},
        Message{"ObjectForAList",
                "\"items\":[",
                "\"items\":{},\"was\":[",
                {Kind::typeMismatch, "items", "items: expected an array, found an object"}}),
    [](const auto& row) { return row.param.name; });

TEST(WrongDocument, IsNamedWithoutAKeyPath) {
  EXPECT_EQ(refusalOf<KorrinProject>("[]"),
            refusedAt("", Kind::typeMismatch, "expected an object, found an array"));
  EXPECT_EQ(refusalOf<KorrinProject>("null"),
            refusedAt("", Kind::valueNotFound, "expected an object, found null"));
  EXPECT_EQ(refusalOf<List<PlotItem>>("{}"),
            refusedAt("", Kind::typeMismatch, "expected an array, found an object"));
  EXPECT_EQ(refusalOf<PaperSize>("\"A4\""),
            refusedAt("", Kind::dataCorrupted,
                      "expected one of \"a4\" or \"letter\", found \"A4\"; the nearest is \"a4\""));
  EXPECT_EQ(refusalOf<List<StagePoint>>(R"([{"x":1,"y":2},{"x":1}])"),
            refusedAt("[1].y", Kind::keyNotFound, "expected a value, found no such key"));
}

}  // namespace
}  // namespace korrin
