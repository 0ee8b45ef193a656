#include "documents/dropped_keys.h"

#include <gtest/gtest.h>

#include "korrin/coding/json.h"

#include "documents/plot_document.h"
#include "scratch.h"

namespace korrin::host {
namespace {

std::string withTopLevelKeys(std::string_view keys) {
  return replaced(exampleDocument("festival-main-stage"), "{", "{" + std::string(keys));
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
  EXPECT_EQ(
      droppedKeysSentence(exampleDocument("festival-other-host")),
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

TEST(DroppedKeys, AreAdmittedEvenWhereANumberCannotBeRead) {
  EXPECT_EQ(droppedKeysSentence(withTopLevelKeys("\"huge\": 1e999,")),
            "writing drops keys that the format does not know");
}

// Were the key a part of the path of each value in it, this would copy 100 gigabytes.
TEST(DroppedKeys, AreFoundInOneWalkHoweverLongTheyAre) {
  const std::string key(1'000'000, 'k');
  std::string members = "\"" + key + "\": [{";
  for (int i = 0; i < 50'000; ++i)
    members += (i == 0 ? "" : ", ") + ("\"" + std::to_string(i)) + "\": 1";
  members += "}";
  for (int i = 0; i < 50'000; ++i) members += ", []";
  EXPECT_EQ(droppedKeysSentence(withTopLevelKeys(members + "],")),
            "writing drops keys that the format does not know: " + key);
}

}  // namespace
}  // namespace korrin::host
