#include "tests/support/mutated_projects.h"

#include <cctype>
#include <stdexcept>

#include "tests/support/full_project.h"
#include "tests/support/locales.h"

namespace korrin::test {
namespace {

using Json = FullDocument::Json;
using Kind = DecodingError::Kind;

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
    const Shape shape = shapeOf(value);
    found_.push_back({path, pointer, key, isOptional, shape.type, shape.expected, words});
    descend(value, path, pointer);
  }

  std::vector<Place> found_;
};

Mutation accepted(const std::string& change, const Place& place, const std::string& text) {
  return {change, place.keyPath, text, std::nullopt};
}
Mutation refused(const std::string& change, const Place& place, const std::string& text, Kind kind,
                 const std::string& message) {
  return {change, place.keyPath, text, refusedAt(place.keyPath, kind, message)};
}

// "one of "a", "b" or "c"".
std::string listOf(const std::vector<std::string>& words) {
  std::string list;
  for (std::size_t i = 0; i < words.size(); ++i)
    list += (i == 0 ? "one of \"" : i + 1 == words.size() ? " or \"" : ", \"") + words[i] + "\"";
  return list;
}

std::string lowerCase(std::string text) {
  for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return text;
}

// The text of the full document with a part of it replaced.
Mutation replacing(const std::string& name, const std::string& part, const std::string& replacement,
                   Kind kind, const std::string& keyPath, const std::string& message) {
  std::string text = encodeJSON(fullProject());
  const std::size_t at = text.find(part);
  if (at == std::string::npos) throw std::logic_error("there is no " + part);
  return {name, keyPath, text.replace(at, part.size(), replacement),
          refusedAt(keyPath, kind, message)};
}

}  // namespace

FullDocument::FullDocument() {
  const KorrinProject project = fullProject();
  json_ = Json::parse(encodeJSON(project));
  places_ = Places::of(project);
}

Json FullDocument::without(const Place& place) const {
  Json changed = json_;
  changed.at(place.pointer.parent_pointer()).erase(place.key);
  return changed;
}

Json FullDocument::with(const Place& place, const Json& value) const {
  Json changed = json_;
  changed.at(place.pointer) = value;
  return changed;
}

std::string FullDocument::withRaw(const Place& place, const std::string& raw) const {
  std::string text = with(place, "@raw@").dump();
  return text.replace(text.find("\"@raw@\""), 7, raw);
}

std::string FullDocument::withKeyTwice(const Place& place) const {
  Json changed = json_;
  changed.at(place.pointer.parent_pointer())["@again@"] = changed.at(place.pointer);
  std::string text = changed.dump();
  return text.replace(text.find("@again@"), 7, place.key);
}

void PrintTo(const Mutation& row, std::ostream* out) {
  *out << row.change << " at \"" << row.keyPath << '"';
}

std::vector<Mutation> keysLeftOut() {
  const FullDocument document;
  std::vector<Mutation> rows;
  for (const Place& place : document.places()) {
    if (place.key.empty()) continue;
    const std::string text = document.without(place).dump();
    rows.push_back(place.isOptional ? accepted("optional key left out", place, text)
                                    : refused("key left out", place, text, Kind::keyNotFound,
                                              "expected a value, found no such key"));
  }
  return rows;
}

std::vector<Mutation> nulls() {
  const FullDocument document;
  std::vector<Mutation> rows;
  for (const Place& place : document.places()) {
    const std::string text = document.with(place, nullptr).dump();
    rows.push_back(place.isOptional ? accepted("null for an optional value", place, text)
                                    : refused("null", place, text, Kind::valueNotFound,
                                              "expected " + place.expected + ", found null"));
  }
  return rows;
}

std::vector<Mutation> valuesOfOtherTypes() {
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
  const FullDocument document;
  std::vector<Mutation> rows;
  for (const Place& place : document.places()) {
    const bool isNumber = place.type == Json::value_t::number_integer;
    for (const Other& other : others) {
      if (other.value.type() == place.type || (isNumber && other.value.is_number())) continue;
      rows.push_back(refused(other.name, place, document.with(place, other.value).dump(),
                             Kind::typeMismatch,
                             "expected " + place.expected + ", found " + other.name));
    }
  }
  return rows;
}

std::vector<Mutation> keysTwice() {
  const FullDocument document;
  std::vector<Mutation> rows;
  for (const Place& place : document.places())
    if (!place.key.empty())
      rows.push_back(refused("key twice", place, document.withKeyTwice(place), Kind::dataCorrupted,
                             "expected the key once, found it twice"));
  return rows;
}

std::vector<Mutation> wordsOfEnumerations() {
  const FullDocument document;
  std::vector<Mutation> rows;
  for (const Place& place : document.places()) {
    const std::string expected = "expected " + listOf(place.words);
    for (const std::string& word : place.words) {
      rows.push_back(accepted("word", place, document.with(place, word).dump()));
      const std::string capitalised = capital(word[0]) + word.substr(1);
      for (const std::string& other : {capitalised, " " + word, word + " ", word + word[0]})
        rows.push_back(
            refused("unknown word", place, document.with(place, other).dump(), Kind::dataCorrupted,
                    expected + ", found \"" + other + "\"; the nearest is \"" + word + "\""));
    }
  }
  return rows;
}

std::vector<Mutation> identifierTexts() {
  const FullDocument document;
  std::vector<Mutation> rows;
  for (const Place& place : document.places()) {
    if (place.expected != "an identifier") continue;
    const std::string text = lowerCase(document.json().at(place.pointer).get<std::string>());
    rows.push_back(accepted("small letters", place, document.with(place, text).dump()));
    for (const std::string& other :
         {std::string(), text + "0", text.substr(1), " " + text.substr(1), "{" + text + "}",
          "g" + text.substr(1), text.substr(0, 8) + text.substr(9) + "0"})
      rows.push_back(refused("no identifier", place, document.with(place, other).dump(),
                             Kind::dataCorrupted,
                             "expected an identifier of 36 characters, found \"" + other + "\""));
  }
  return rows;
}

std::vector<Mutation> dateTexts() {
  const FullDocument document;
  std::vector<Mutation> rows;
  for (const Place& place : document.places()) {
    if (place.expected != "a date as a string") continue;
    for (const std::string other : {"", "2026-07-18", "2026-02-30T00:00:00Z", "tomorrow"})
      rows.push_back(
          refused("no date", place, document.with(place, other).dump(), Kind::dataCorrupted,
                  "expected a date such as \"2026-07-18T20:30:00Z\", found \"" + other + "\""));
  }
  return rows;
}

std::vector<Mutation> numberTexts() {
  const FullDocument document;
  std::vector<Mutation> rows;
  for (const Place& place : document.places()) {
    if (place.expected == "an integer") {
      rows.push_back(refused("1.5", place, document.withRaw(place, "1.5"), Kind::typeMismatch,
                             "expected an integer, found 1.5"));
      for (const std::string raw : {"9223372036854775808", "1e30"})
        rows.push_back(refused(raw, place, document.withRaw(place, raw), Kind::dataCorrupted,
                               "expected an integer of 64 bits, found " + raw));
      for (const std::string raw : {"-9223372036854775808", "1.0", "1e2"})
        rows.push_back(accepted(raw, place, document.withRaw(place, raw)));
    } else if (place.expected == "a number") {
      rows.push_back(refused("-1e309", place, document.withRaw(place, "-1e309"),
                             Kind::dataCorrupted,
                             "expected a number within the range of a double, found -1e309"));
      rows.push_back(accepted("1e308", place, document.withRaw(place, "1e308")));
    }
  }
  return rows;
}

std::vector<Mutation> unknownKeys() {
  const FullDocument document;
  std::vector<Mutation> rows;
  for (const Place& place : document.places()) {
    if (place.key.empty()) continue;
    Json changed = document.json();
    Json& object = changed.at(place.pointer.parent_pointer());
    object["later"] = {{"id", 1}, {"name", {nullptr, "x"}}};
    object[""] = true;
    rows.push_back(accepted("unknown keys beside it", place, changed.dump()));
  }
  return rows;
}

std::vector<Mutation> tellingMutations() {
  const std::string longWord(60, 'w');
  return {
      replacing("TextForANumber", "\"labelScale\":1.25", "\"labelScale\":\"big\"",
                Kind::typeMismatch, "items[0].style.labelScale",
                "expected a number, found a string"),
      replacing("MissingList", ",\"assetManifest\":", ",\"assets\":", Kind::keyNotFound,
                "assetManifest", "expected a value, found no such key"),
      replacing("CapitalEdge", "\"bottom\"", "\"Bottom\"", Kind::dataCorrupted,
                "stage.audienceEdge",
                "expected one of \"top\", \"right\", \"bottom\" or \"left\", found \"Bottom\"; "
                "the nearest is \"bottom\""),
      replacing("MistypedKind", "\"riser\"", "\"rizer\"", Kind::dataCorrupted, "items[0].kind",
                "expected one of \"microphone\", \"monitor\", \"amplifier\", \"instrument\", "
                "\"performer\", \"riser\", \"power\", \"furniture\" or \"custom\", found "
                "\"rizer\"; the nearest is \"riser\""),
      replacing("OtherPaper", "\"letter\"", "\"" + longWord + "\"", Kind::dataCorrupted,
                "exportSettings.paperSize",
                "expected one of \"a4\" or \"letter\", found \"" + longWord.substr(0, 40) +
                    "\u2026\"; the nearest is \"a4\""),
      replacing("EscapesInAWord", "\"letter\"", R"("let\u001btter\n")", Kind::dataCorrupted,
                "exportSettings.paperSize",
                "expected one of \"a4\" or \"letter\", found \"let\\u001btter\\n\"; the nearest "
                "is \"letter\""),
      replacing("NullInAList", "\"itemIDs\":[", "\"itemIDs\":[null,", Kind::valueNotFound,
                "groups[0].itemIDs[0]", "expected an identifier, found null"),
      replacing("SecondElement", "\"itemIDs\":[",
                "\"itemIDs\":[\"5A10FF00-0000-4000-8000-000000000002\",7,", Kind::typeMismatch,
                "groups[0].itemIDs[1]", "expected an identifier, found a number"),
      replacing("FractionOfAChannel", "\"channel\":7", "\"channel\":7.5", Kind::typeMismatch,
                "inputs[0].channel", "expected an integer, found 7.5"),
      replacing("LongNumber", "\"byteCount\":48213", "\"byteCount\":" + std::string(1000, '9'),
                Kind::dataCorrupted, "assetManifest[0].byteCount",
                "expected an integer of 64 bits, found " + std::string(40, '9') + "\u2026"),
      replacing("BooleanInQuotes", "\"phantomPower\":false", "\"phantomPower\":\"false\"",
                Kind::typeMismatch, "inputs[0].phantomPower",
                "expected true or false, found a string"),
      replacing("NumberForABoolean", "\"phantomPower\":false", "\"phantomPower\":0",
                Kind::typeMismatch, "inputs[0].phantomPower",
                "expected true or false, found a number"),
      replacing("EscapedKeyTwice", "\"venue\":", "\"\\u0076enue\":\"\",\"venue\":",
                Kind::dataCorrupted, "metadata.venue", "expected the key once, found it twice"),
      replacing("ObjectForAList", "\"items\":[", "\"items\":{},\"was\":[", Kind::typeMismatch,
                "items", "expected an array, found an object"),
  };
}

std::vector<Mutation> otherDocuments() {
  const auto row = [](const std::string& text, Kind kind, const std::string& found) {
    return Mutation{found, "", text, refusedAt("", kind, "expected an object, found " + found)};
  };
  return {row("[]", Kind::typeMismatch, "an array"), row("7", Kind::typeMismatch, "a number"),
          row("\"plot\"", Kind::typeMismatch, "a string"),
          row("true", Kind::typeMismatch, "a Boolean"), row("null", Kind::valueNotFound, "null")};
}

std::vector<Mutation> allMutations() {
  std::vector<Mutation> table;
  for (const auto& group : {keysLeftOut(), nulls(), valuesOfOtherTypes(), keysTwice(),
                            wordsOfEnumerations(), identifierTexts(), dateTexts(), numberTexts(),
                            unknownKeys(), tellingMutations(), otherDocuments()})
    table.insert(table.end(), group.begin(), group.end());
  return table;
}

}  // namespace korrin::test
