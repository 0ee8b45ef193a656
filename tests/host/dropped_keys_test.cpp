#include <string>

#include <gtest/gtest.h>

#include "korrin/coding/json.h"

#include "documents/plot_document.h"
#include "scratch.h"

namespace korrin::host {
namespace {

std::string withTopLevelKeys(std::string_view keys) {
  return replaced(exampleDocument("festival-main-stage"), "{", "{" + std::string(keys));
}

std::string droppedKeysSentence(std::string_view document) {
  return host::droppedKeysSentence(readPlot(document, DateStrategy::iso8601).unknownKeys);
}

TEST(DroppedKeys, AreNoneInADocumentOfThisFormat) {
  EXPECT_EQ(droppedKeysSentence(exampleDocument("festival-main-stage")), "");
  EXPECT_EQ(droppedKeysSentence(exampleDocument("club-night-with-findings")), "");
}

TEST(DroppedKeys, AreNoneInADocumentOfThisProgram) {
  const KorrinProject project =
      decodeDocument(exampleDocument("club-night-with-findings"), DateStrategy::iso8601);
  EXPECT_EQ(droppedKeysSentence(encodeJSON(project)), "");
}

TEST(DroppedKeys, AreNamedWithTheirPlaceAndNumber) {
  const Plot plot =
      readPlot(exampleDocument("festival-other-host"), DateStrategy::secondsSinceReferenceDate);
  EXPECT_EQ(
      host::droppedKeysSentence(plot.unknownKeys),
      "writing drops keys that the format does not know: futureKey, items[].opacity (18 times)");
}

TEST(DroppedKeys, DoNotHideWhatFollowsThem) {
  EXPECT_EQ(
      droppedKeysSentence(withTopLevelKeys(R"("a": [1, {"id": [[2]]}], "b": {"stage": {}},)")),
      "writing drops keys that the format does not know: a, b");
  EXPECT_EQ(droppedKeysSentence(replaced(exampleDocument("festival-main-stage"), "\"labelVisible\"",
                                         "\"glow\": 1, \"labelVisible\"")),
            "writing drops keys that the format does not know: items[].style.glow");
}

TEST(DroppedKeys, AreKnownByTheirMeaningAndNotTheirSpelling) {
  EXPECT_EQ(droppedKeysSentence(
                replaced(exampleDocument("festival-main-stage"), "\"stage\"", "\"st\\u0061ge\"")),
            "");
}

TEST(DroppedKeys, AreCountedWhenTheyAreMany) {
  EXPECT_EQ(droppedKeysSentence(
                withTopLevelKeys(R"("a": 1, "b": 1, "c": 1, "d": 1, "e": 1, "f": 1, "g": 1,)")),
            "writing drops keys that the format does not know: a, b, c, d, e and 2 more");
}

TEST(DroppedKeys, AreCountedInAllWhereOnlyTheFirstAreKnown) {
  EXPECT_EQ(host::droppedKeysSentence({5000, {"a", "items[0].b", "items[17].b"}}),
            "writing drops keys that the format does not know: a, items[].b (2 times) and 4997 "
            "more");
}

TEST(DroppedKeys, KeepTheNumbersInTheirNames) {
  EXPECT_EQ(host::droppedKeysSentence({1, {R"(items[3]["a[4]\"[5]"])"}}),
            R"(writing drops keys that the format does not know: items[]["a[4]\"[5]"])");
}

TEST(DroppedKeys, AreNamedInAPlotThatIsNotSafeToo) {
  const std::string document =
      replaced(withTopLevelKeys("\"huge\": 1e999,"), "\"width\": 12000", "\"width\": -1");
  EXPECT_EQ(droppedKeysSentence(document),
            "writing drops keys that the format does not know: huge");
}

TEST(DroppedKeys, AreShownWithoutRawCharactersAndShort) {
  const std::string sentence = host::droppedKeysSentence({1, {"a\u202e" + std::string(4000, 'b')}});
  EXPECT_EQ(sentence.find("\u202e"), std::string::npos);
  EXPECT_LT(sentence.size(), 200u);
}

}  // namespace
}  // namespace korrin::host
