#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/model/document_coding.h"

#include "tests/support/decoding_outcome.h"
#include "tests/support/files.h"
#include "tests/support/full_project.h"

namespace korrin {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

// A golden document without the line feed that ends its file.
std::string golden(const std::string& name) {
  std::string text = test::contentOfSource("tests/golden/" + name + ".json");
  if (text.ends_with('\n')) text.pop_back();
  return text;
}

KorrinProject projectWithEmptyLists() {
  KorrinProject project = test::sparseProject();
  project.groups.clear();
  project.notes.clear();
  return project;
}

TEST(Layout, PutsOneMemberOnALine) {
  EXPECT_EQ(encodeJSON(projectWithEmptyLists(), {.prettyPrinted = true}),
            golden("KorrinProject-sparse-pretty"));
}

// The room for the text grows somewhere behind the title, each time elsewhere.
TEST(Layout, StaysTheSameBehindATextOfAnyLength) {
  ProjectNote note = test::fullProject().notes[0];
  note.title = "~";
  const std::string document = encodeJSON(note, {.prettyPrinted = true});
  for (std::size_t length = 2; length < 2000; ++length) {
    note.title = std::string(length, '~');
    std::string expected = document;
    expected.insert(expected.find('~'), length - 1, '~');
    ASSERT_EQ(encodeJSON(note, {.prettyPrinted = true}), expected);
  }
}

TEST(Layout, SortsKeysByTheirBytes) {
  EXPECT_EQ(encodeJSON(projectWithEmptyLists(), {.prettyPrinted = true, .sortedKeys = true}),
            golden("KorrinProject-sparse-pretty-sorted"));
  EXPECT_EQ(encodeJSON(test::fullProject().stage, {.sortedKeys = true}),
            R"({"audienceEdge":"bottom","gridSpacingMillimeters":500,"name":"Main Stage",)"
            R"("showDimensions":false,"showGrid":true,"size":{"height":8000.5,"width":12000}})");
}

TEST(Layout, SeparatesTheElementsOfAList) {
  const List<StagePoint> points = {StagePoint{.x = 1, .y = 2}, StagePoint{.x = 3, .y = 4}};
  EXPECT_EQ(encodeJSON(points), R"([{"x":1,"y":2},{"x":3,"y":4}])");
  EXPECT_EQ(encodeJSON(points, {.prettyPrinted = true}),
            "[\n  {\n    \"x\": 1,\n    \"y\": 2\n  },\n  {\n    \"x\": 3,\n    \"y\": 4\n  }\n]");
  EXPECT_EQ(encodeJSON(List<StagePoint>(), {.prettyPrinted = true}), "[]");
  EXPECT_EQ(encodeJSON(List<PaperSize>{PaperSize::letter, PaperSize::a4}), R"(["letter","a4"])");
}

TEST(Layout, CarriesNoMeaning) {
  const KorrinProject project = test::fullProject();
  for (const bool pretty : {false, true})
    for (const bool sorted : {false, true})
      EXPECT_TRUE(decodeJSON<KorrinProject>(encodeJSON(
                      project, {.prettyPrinted = pretty, .sortedKeys = sorted})) == project);
}

TEST(Layout, ReachesAFixedPointAfterOnePass) {
  for (const std::string name : {"festival-main-stage.json", "festival-other-host.json"}) {
    const std::string document = test::contentOfSource("examples/documents/" + name);
    const DateStrategy dates = name == "festival-other-host.json"
                                   ? DateStrategy::secondsSinceReferenceDate
                                   : DateStrategy::iso8601;
    const auto once = decodeJSON<KorrinProject>(document, {.dates = dates});
    const std::string written = encodeJSON(once, {.dates = dates});
    const auto twice = decodeJSON<KorrinProject>(written, {.dates = dates});
    EXPECT_TRUE(once == twice);
    EXPECT_EQ(encodeJSON(twice, {.dates = dates}), written);
  }
}

struct Escape {
  std::string name;
  std::string text;
  std::string written;
};
class EncodedText : public testing::TestWithParam<Escape> {};

TEST_P(EncodedText, IsEscapedOnlyWhereJSONDemandsIt) {
  const ProjectNote note{.id = {}, .title = GetParam().text, .body = "x" + GetParam().text + "y"};
  const std::string text = encodeJSON(note);
  EXPECT_EQ(text, R"({"id":"00000000-0000-0000-0000-000000000000","title":")" + GetParam().written +
                      R"(","body":"x)" + GetParam().written + R"(y"})");
  EXPECT_EQ(decodeJSON<ProjectNote>(text).title.str(), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(, EncodedText,
                         testing::Values(Escape{"Empty", "", ""}, Escape{"Quote", "\"", R"(\")"},
                                         Escape{"Backslash", "\\", R"(\\)"},
                                         Escape{"Slash", "/", "/"},
                                         Escape{"NamedControls", "\b\f\n\r\t", R"(\b\f\n\r\t)"},
                                         Escape{"OtherControls", std::string("\0\x01\x0B\x1F", 4),
                                                R"(\u0000\u0001\u000b\u001f)"},
                                         Escape{"Delete", "\x7F", "\x7F"},
                                         Escape{"Letters", "Gr\u00FC\u00DFe \u65E5\u672C",
                                                "Gr\u00FC\u00DFe \u65E5\u672C"},
                                         Escape{"Supplementary", "\U0001F3B8", "\U0001F3B8"},
                                         Escape{"Decomposed", "e\u0301", "e\u0301"},
                                         Escape{"LineSeparators", "\u2028\u2029", "\u2028\u2029"},
                                         Escape{"Markup", "<b>&'", "<b>&'"},
                                         Escape{"Many", std::string(3000, '"'),
                                                [] {
                                                  std::string all;
                                                  for (int i = 0; i < 3000; ++i) all += "\\\"";
                                                  return all;
                                                }()}),
                         [](const auto& row) { return row.param.name; });

TEST(DecodedText, ResolvesEveryEscape) {
  const auto note = decodeJSON<ProjectNote>(
      R"({"id":"00000000-0000-0000-0000-000000000000",)"
      R"("title":"\"\\\/\b\f\n\r\t\u0041\u00e9\u20AC\uD834\uDD1e\u0000","\u0062ody":"e\u0301"})");
  EXPECT_EQ(note.title.str(), std::string("\"\\/\b\f\n\r\tA\u00E9\u20AC\U0001D11E\0", 19));
  EXPECT_EQ(note.body.str(), "e\u0301");
}

TEST(DecodedText, SharesTheStorageOfAnEqualOneBeforeIt) {
  const auto note = decodeJSON<ProjectNote>(
      R"({"id":"00000000-0000-0000-0000-000000000000","title":"Clean 230 V power","body":"Clean 230 V power"})");
  EXPECT_EQ(std::string_view(note.title).data(), std::string_view(note.body).data());
}

// Where sixteen bytes are looked at a time: at every size, at every distance from the document's
// end, and with every kind of byte at every place.
TEST(DecodedText, IsTheSameAtEverySizeAndNearTheEndOfTheDocument) {
  for (std::size_t size = 0; size <= 40; ++size)
    for (const std::string special : {"", "\u00e9", "\\n", "\\u00e9", "\x7F"})
      for (std::size_t place = 0; place <= size; ++place)
        for (std::size_t blanks = 0; blanks <= 20; blanks += 5) {
          if (special.empty() && place != 0) continue;
          std::string body(size, 'b');
          std::string raw = body;
          raw.insert(place, special);
          body.insert(place, special == "\\n" ? "\n" : special == "\\u00e9" ? "\u00e9" : special);
          const std::string text =
              R"({"id":"00000000-0000-0000-0000-000000000000","title":"","body":")" + raw +
              R"("})" + std::string(blanks, ' ');
          // In memory of exactly its size, so that a byte read beyond it is found.
          const std::vector<char> exact(text.begin(), text.end());
          const auto note = decodeJSON<ProjectNote>(std::string_view(exact.data(), exact.size()));
          ASSERT_EQ(note.body.str(), body);
        }
}

TEST(DecodedText, EndsAtControlCharactersAndIllFormedBytesWhereverTheyStand) {
  for (std::size_t size = 0; size <= 33; ++size)
    for (std::size_t place = 0; place <= size; ++place)
      for (const char bad : {'\x1F', '\0', '\x80', '\xFF'}) {
        std::string body(size, 'b');
        body.insert(place, 1, bad);
        const std::string text =
            R"({"id":"00000000-0000-0000-0000-000000000000","title":"","body":")" + body + R"("})";
        EXPECT_THROW(decodeJSON<ProjectNote>(text), DecodingError) << size << ' ' << place;
      }
}

TEST(DecodedDocument, MayHaveAnyRunOfBlanksBetweenItsParts) {
  const std::string id = R"("00000000-0000-0000-0000-000000000000")";
  for (std::size_t count = 0; count <= 40; ++count)
    for (const char blank : {' ', '\n', '\r', '\t'}) {
      const std::string gap(count, blank);
      const std::string text = gap + "{" + gap + R"("id")" + gap + ":" + gap + id + gap + "," +
                               gap + R"("title")" + gap + ":" + gap + R"("t")" + gap + "," + gap +
                               R"("body")" + gap + ":" + gap + R"("b")" + gap + "}" + gap;
      const std::vector<char> exact(text.begin(), text.end());
      EXPECT_EQ(decodeJSON<ProjectNote>(std::string_view(exact.data(), exact.size())).body, "b");
      // A vertical tab is no blank of JSON.
      for (const std::size_t at : {std::size_t{0}, count / 2, count}) {
        std::string wrong = text;
        wrong.insert(at, 1, '\v');
        EXPECT_THROW(decodeJSON<ProjectNote>(wrong), DecodingError);
      }
    }
}

// A line's indentation is guessed from that of the first one, and may be another.
TEST(DecodedDocument, MayBeIndentedByAnything) {
  const KorrinProject project = test::fullProject();
  const std::string usual = encodeJSON(project, {.prettyPrinted = true});
  for (std::size_t unit = 0; unit <= 20; ++unit)
    for (std::size_t more = 0; more <= 2; ++more)
      for (const char blank : {' ', '\t'}) {
        std::string text;
        std::size_t line = 0;
        for (std::size_t at = 0; at < usual.size(); ++at) {
          text += usual[at];
          if (usual[at] != '\n') continue;
          const std::size_t depth = (usual.find_first_not_of(' ', at + 1) - at - 1) / 2;
          text.append(unit * depth + (++line % 7 == 3 ? more : 0), blank);
          at += 2 * depth;
        }
        ASSERT_EQ(decodeJSON<KorrinProject>(text), project) << unit << ' ' << more;
      }
}

TEST(DecodedText, MayBeOfAnySize) {
  for (const std::size_t size : {0u, 1u, 63u, 64u, 65u, 10'000'000u}) {
    const std::string title(size, '~');
    const auto note = decodeJSON<ProjectNote>(
        R"({"id":"00000000-0000-0000-0000-000000000000","title":")" + title + R"(","body":""})");
    EXPECT_TRUE(note.title.str() == title) << size;
  }
}

TEST(NonFiniteNumber, StopsWritingAndIsNamed) {
  struct Row {
    double value;
    std::string name;
  };
  for (const Row& row :
       {Row{infinity, "Infinity"}, Row{-infinity, "-Infinity"}, Row{notANumber, "NaN"}}) {
    KorrinProject project = test::fullProject();
    project.items.push_back(project.items[0]);
    project.items.edit(1).riserHeightMillimeters = row.value;
    try {
      encodeJSON(project);
      ADD_FAILURE() << "written";
    } catch (const EncodingError& error) {
      EXPECT_EQ(error.keyPath(), "items[1].riserHeightMillimeters");
      EXPECT_STREQ(error.what(), ("items[1].riserHeightMillimeters: expected a finite number, "
                                  "found " +
                                  row.name)
                                     .c_str());
    }
  }
}

std::string failingKeyPath(const auto& value, const EncodingOptions& options = {}) {
  try {
    encodeJSON(value, options);
    return "written";
  } catch (const EncodingError& error) {
    return error.keyPath();
  }
}

TEST(NonFiniteNumber, IsNamedWhereverItStands) {
  KorrinProject project = test::fullProject();
  project.items.edit(0).style.labelScale = notANumber;
  EXPECT_EQ(failingKeyPath(project), "items[0].style.labelScale");
  project.stage.size.height = infinity;
  EXPECT_EQ(failingKeyPath(project), "stage.size.height");
  EXPECT_EQ(failingKeyPath(project, {.prettyPrinted = true}), "stage.size.height");
  EXPECT_EQ(failingKeyPath(project, {.sortedKeys = true}), "items[0].style.labelScale");
  EXPECT_EQ(failingKeyPath(List<StagePoint>{StagePoint::zero, StagePoint{.x = 0, .y = infinity}}),
            "[1].y");
}

TEST(NonFiniteNumber, StandsAsAStringWhereTheHostWishes) {
  const List<StagePoint> points = {StagePoint{.x = infinity, .y = -infinity},
                                   StagePoint{.x = notANumber, .y = 1}};
  const std::string text = R"([{"x":"Infinity","y":"-Infinity"},{"x":"NaN","y":1}])";
  EXPECT_EQ(encodeJSON(points, {.nonFinite = NonFinite::strings}), text);
  const auto decoded = decodeJSON<List<StagePoint>>(text, {.nonFinite = NonFinite::strings});
  EXPECT_EQ(decoded[0].x, infinity);
  EXPECT_EQ(decoded[0].y, -infinity);
  EXPECT_TRUE(std::isnan(decoded[1].x));
  EXPECT_EQ(decoded[1].y, 1);
}

TEST(NonFiniteNumber, IsReadWhereItsTextHoldsEscapes) {
  EXPECT_EQ(
      decodeJSON<StagePoint>(R"({"x":"\u0049nfinity","y":1})", {.nonFinite = NonFinite::strings}).x,
      infinity);
}

TEST(NonFiniteNumber, IsReadFromNoOtherStringAndForNoOtherType) {
  using Kind = DecodingError::Kind;
  const DecodingOptions strings{.nonFinite = NonFinite::strings};
  for (const std::string other : {"infinity", "+Infinity", "nan", "", "1", "-NaN", "Infinity "})
    EXPECT_EQ(test::refusalOf<StagePoint>(R"({"x":")" + other + R"(","y":1})", strings),
              test::refusedAt("x", Kind::typeMismatch, "expected a number, found a string"));
  EXPECT_EQ(test::refusalOf<StagePoint>(R"({"x":"Infinity","y":1})"),
            test::refusedAt("x", Kind::typeMismatch, "expected a number, found a string"));
  EXPECT_EQ(
      test::refusalOf<DocumentVersions>(R"({"schemaVersion":"NaN","minimumReaderVersion":1})",
                                        strings),
      test::refusedAt("schemaVersion", Kind::typeMismatch, "expected an integer, found a string"));
  EXPECT_EQ(test::refusalOf<StagePoint>(R"({"x":1e400,"y":1})", strings)->kind,
            Kind::dataCorrupted);
}

}  // namespace
}  // namespace korrin
