// What a document holds beside the fields that are read.

#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/coding/unknown_key_walk.h"
#include "korrin/model/document_coding.h"

#include "tests/support/full_project.h"

namespace korrin {
namespace {

// A record that may be written without any member.
struct Dimmer {
  std::optional<double> level;
};

}  // namespace

template <>
constexpr auto fieldsOf<Dimmer>() {
  return std::tuple{Field{"level", &Dimmer::level}};
}

namespace {

using Paths = std::vector<std::string>;

/// The document of the full project, its `occurrence`-th `text`, counted from 0, replaced.
std::string fullDocumentWith(const std::string& text, const std::string& replacement,
                             int occurrence = 0) {
  std::string document = encodeJSON(test::fullProject());
  std::size_t at = document.find(text);
  while (at != std::string::npos && occurrence-- > 0) at = document.find(text, at + 1);
  if (at == std::string::npos) throw std::logic_error("no " + text + " in the document");
  return document.replace(at, text.size(), replacement);
}

UnknownKeys unknownKeysOf(const std::string& document) {
  return decodeJSONWithUnknownKeys<KorrinProject>(document).unknownKeys;
}

/// The path of the only unknown key of a stage point, spelled as it stands between quotation marks.
std::string pathOf(const std::string& key) {
  const UnknownKeys keys =
      decodeJSONWithUnknownKeys<StagePoint>("{\"" + key + "\":1,\"x\":1,\"y\":2}").unknownKeys;
  EXPECT_EQ(keys.count, 1u);
  return keys.paths.size() == 1 ? keys.paths.front() : "";
}

TEST(UnknownKeys, AreNoneInADocumentOfThisFormat) {
  const auto decoded = decodeJSONWithUnknownKeys<KorrinProject>(encodeJSON(test::fullProject()));
  EXPECT_TRUE(decoded.value == test::fullProject());
  EXPECT_EQ(decoded.unknownKeys, UnknownKeys{});
}

TEST(UnknownKeys, AreNamedWhereverARecordStands) {
  EXPECT_EQ(unknownKeysOf(fullDocumentWith("{", R"({"glow":1,)")), (UnknownKeys{1, {"glow"}}));
  EXPECT_EQ(unknownKeysOf(fullDocumentWith(R"("items":[{)", R"("items":[{"glow":{"a":{}},)")),
            (UnknownKeys{1, {"items[0].glow"}}));
  EXPECT_EQ(unknownKeysOf(fullDocumentWith(R"("style":{)", R"("style":{"glow":[1,{"b":2}],)")),
            (UnknownKeys{1, {"items[0].style.glow"}}));
  EXPECT_EQ(unknownKeysOf(fullDocumentWith(R"("position":{)", R"("position":{"z":3,)")),
            (UnknownKeys{1, {"items[0].position.z"}}));
}

TEST(UnknownKeys, StandInTheOrderOfTheDocumentAndCountEachTime) {
  const auto list = decodeJSONWithUnknownKeys<List<StagePoint>>(
      R"([{"x":1,"y":2},{"z":1,"y":2,"x":1,"z":2},{"x":1,"y":2,"w":null}])");
  EXPECT_EQ(list.unknownKeys, (UnknownKeys{3, {"[1].z", "[1].z", "[2].w"}}));
  EXPECT_EQ(list.value.size(), 3u);
}

TEST(UnknownKeys, AreCountedBeyondThoseThatAreNamed) {
  std::string document = "[";
  Paths first;
  for (int i = 0; i < 150; ++i) {
    document += std::string(i == 0 ? "" : ",") + R"({"x":1,"y":2,"z":3})";
    if (i < 100) first.push_back("[" + std::to_string(i) + "].z");
  }
  const auto keys = decodeJSONWithUnknownKeys<List<StagePoint>>(document + "]").unknownKeys;
  EXPECT_EQ(keys, (UnknownKeys{150, first}));
}

TEST(UnknownKeys, AreFoundBesideAnOptionalThatIsNull) {
  const auto keys =
      unknownKeysOf(fullDocumentWith(R"("eventDate":")", R"("eventDate":null,"was":")"));
  EXPECT_EQ(keys, (UnknownKeys{1, {"metadata.was"}}));
}

struct Spelling {
  std::string inDocument;
  std::string path;
};

class UnknownKeyPath : public testing::TestWithParam<Spelling> {};

TEST_P(UnknownKeyPath, CanBeReadInOneWayOnly) {
  EXPECT_EQ(pathOf(GetParam().inDocument), GetParam().path);
}

INSTANTIATE_TEST_SUITE_P(
    Spellings, UnknownKeyPath,
    testing::Values(Spelling{"glow", "glow"}, Spelling{"two words", "two words"},
                    Spelling{"gl\\u006fw", "glow"}, Spelling{"lumière", "lumière"},
                    Spelling{"\\ud83c\\udfb8", "🎸"}, Spelling{"", R"([""])"},
                    Spelling{"a.b", R"(["a.b"])"}, Spelling{"a[0]", R"(["a[0]"])"},
                    Spelling{R"(\"a\")", R"(["\"a\""])"}, Spelling{R"(a\\b)", R"(["a\\b"])"},
                    Spelling{R"(a\nb)", R"(["a\u000ab"])"},
                    Spelling{R"(\u001b[2J)", R"(["\u001b[2J"])"},
                    Spelling{"\xC2\x9B", R"(["\u009b"])"}, Spelling{"\xC2\x9F", R"(["\u009f"])"},
                    Spelling{"\xC2\xA0", "\xC2\xA0"}, Spelling{"\x7F", R"(["\u007f"])"},
                    Spelling{"~", "~"}, Spelling{R"(\u001f)", R"(["\u001f"])"}));

TEST(UnknownKeyPath, CutsAKeyThatNobodyWouldRead) {
  const std::string longest(4096, 'a');
  EXPECT_EQ(pathOf(longest), longest);
  EXPECT_EQ(pathOf(longest + "a"), "[\"" + longest + "\"...]");
  // Characters and escapes are not torn.
  const std::string almost(4095, 'a');
  EXPECT_EQ(pathOf(almost + "é"), "[\"" + almost + "\"...]");
  std::string pairs, shown;
  for (int i = 0; i < 10'000; ++i) pairs += "\\ud83c\\udfb8";
  for (int i = 0; i < 1024; ++i) shown += "🎸";
  EXPECT_EQ(pathOf(pairs), "[\"" + shown + "\"...]");
  for (const std::string shift : {"", "b", "bb", "bbb", "bbbb", "\\n", "é"}) {
    const std::string path = pathOf(shift + pairs);
    EXPECT_EQ(Text(path).str(), path) << shift;
    EXPECT_LE(path.size(), 4110u);
  }
}

TEST(UnknownKeyPath, CutsAKeyThatIsLongOnlyOnceItsEscapesAreRead) {
  const std::string escapes = R"(\uD83D\uDE00\ud83d\ude00\uD7FF\u0041\n\u00e9)";
  const std::string meaning = "😀😀\uD7FFA\\u000aé";
  // How many bytes the meaning has, "\n" being one of them.
  const std::size_t size = meaning.size() - 5;
  std::string letters;
  for (int i = 0; i < 4096; ++i) letters += "\\u0041";
  const std::string longest(4096, 'A');
  EXPECT_EQ(pathOf(letters), longest);
  EXPECT_EQ(pathOf(letters + "\\u0041"), "[\"" + longest + "\"...]");
  for (std::size_t shift = 0; shift < 24; ++shift) {
    std::string key(shift, 'x');
    std::string shown = key;
    while (key.size() < 40'000) key += escapes;
    std::size_t bytes = shift;
    for (; bytes + size <= 4096; bytes += size) shown += meaning;
    const std::string path = pathOf(key);
    EXPECT_EQ(path.substr(0, 2 + shown.size()), "[\"" + shown);
    EXPECT_EQ(path.substr(path.size() - 5), "\"...]");
    EXPECT_EQ(Text(path).str(), path);
  }
}

TEST(UnknownKeys, AreNoneInAnEmptyList) {
  EXPECT_EQ(decodeJSONWithUnknownKeys<List<StagePoint>>("[]").unknownKeys, UnknownKeys{});
}

TEST(UnknownKeys, AreNoneInARecordWithoutMembers) {
  EXPECT_EQ(json::UnknownKeyWalk(" { } ").paths<Dimmer>(), Paths{});
  EXPECT_EQ(json::UnknownKeyWalk("[{},{\"glow\":1},{\"level\":1}]").paths<List<Dimmer>>(),
            Paths{"[1].glow"});
}

TEST(UnknownKeys, AreNoneInADocumentThatIsRefused) {
  EXPECT_THROW(decodeJSONWithUnknownKeys<StagePoint>(R"({"x":1,"z":2})"), DecodingError);
  EXPECT_THROW(decodeJSONWithUnknownKeys<StagePoint>(R"({"x":1,"y":2,"z":2)"), DecodingError);
}

struct Fault {
  std::string document;
  std::size_t line;
  std::size_t column;
};

class FaultPlace : public testing::TestWithParam<Fault> {};

TEST_P(FaultPlace, IsALineAndAColumnOfTheText) {
  try {
    decodeJSON<List<StagePoint>>(GetParam().document);
    FAIL() << "was accepted";
  } catch (const DecodingError& error) {
    EXPECT_EQ(error.line(), GetParam().line) << error.what();
    EXPECT_EQ(error.column(), GetParam().column) << error.what();
  }
}

INSTANTIATE_TEST_SUITE_P(
    Faults, FaultPlace,
    testing::Values(Fault{"", 1, 1},                                          // no value
                    Fault{"\n\n  ]", 3, 3},                                   // not JSON
                    Fault{"[\n {\"x\": 1,\n  \"y\": \"é\"}]", 3, 8},          // a wrong type
                    Fault{"[\n {\"é\": 1, \"x\": 1,  \"y\": true}]", 2, 25},  // in characters
                    Fault{"[\n  {\"x\": 1}]", 2, 3},                          // a missing key
                    Fault{"[{\"x\": 1, \"y\": 2},\n {\"x\": 1, \"x\": 2, \"y\": 3}]", 2, 16},
                    Fault{"  {}", 1, 3},    // no list
                    Fault{"[null]", 1, 2},  // a null element
                    Fault{"[{\"x\":1,\"y\":2},\n7]", 2, 1}));

TEST(DecodingError, HasNoPlaceWhenNoTextWasRead) {
  const DecodingError error(DecodingError::Kind::dataCorrupted, "", "no");
  EXPECT_EQ(error.line(), 0u);
  EXPECT_EQ(error.column(), 0u);
}

}  // namespace
}  // namespace korrin
