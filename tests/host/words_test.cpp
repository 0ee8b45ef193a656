#include "terminal/words.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace korrin::host {
namespace {

using Words = std::vector<std::string>;

TEST(ListedWords, SayHowManyAreLeftOut) {
  EXPECT_EQ(listed({}), "");
  EXPECT_EQ(listed({"left", "right", "top"}), "left, right, top");
  EXPECT_EQ(listed({"left", "right", "top"}, 3), "left, right, top");
  EXPECT_EQ(listed({"left", "right", "top", "bottom"}, 2), "left, right and 2 more");
}

TEST(JoinedWords, HaveTheSeparatorBetweenThem) {
  EXPECT_EQ(joined({}, "|"), "");
  EXPECT_EQ(joined({"left"}, "|"), "left");
  EXPECT_EQ(joined({"", "left", ""}, ", "), ", left, ");
}

TEST(TrimmedText, HasNoWhiteSpaceAtItsEnds) {
  EXPECT_EQ(trimmed(""), "");
  EXPECT_EQ(trimmed(" \t\n\r\f\v"), "");
  EXPECT_EQ(trimmed("\t left  right\r\n"), "left  right");
}

TEST(LowerCase, ChangesLettersOfASCIIAlone) {
  EXPECT_EQ(lowerCase("AZaz@[`{ 09 \u00C9"), "azaz@[`{ 09 \u00C9");
}

TEST(SimilarWord, IsTheOneThatTakesTheFewestChanges) {
  const Words commands = {"list", "show", "align", "delete", "duplicate", "undo", "redo"};
  EXPECT_EQ(similarWord("delte", commands), "delete");
  EXPECT_EQ(similarWord("shwo", commands), "show");
  EXPECT_EQ(similarWord("DELETE", commands), "delete");
  EXPECT_EQ(similarWord("uno", commands), "undo");
  EXPECT_EQ(similarWord("duplicates", commands), "duplicate");
}

TEST(SimilarWord, IsNotGuessedWhereNothingIsClose) {
  EXPECT_EQ(similarWord("frob", {"list", "show"}), std::nullopt);
  EXPECT_EQ(similarWord("", {"a"}), std::nullopt);
  EXPECT_EQ(similarWord("list", {}), std::nullopt);
  EXPECT_EQ(similarWord("list", {""}), std::nullopt);
  EXPECT_EQ(similarWord(std::string(1'000'000, 'a'), {std::string(1'000'001, 'a')}), std::nullopt);
}

TEST(Suggestion, IsTheRestOfASentence) {
  EXPECT_EQ(suggestion("algin", {"align"}, "; help lists them"), "; did you mean \"align\"?");
  EXPECT_EQ(suggestion("frob", {"align"}, "; help lists them"), "; help lists them");
}

}  // namespace
}  // namespace korrin::host
