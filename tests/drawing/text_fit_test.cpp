#include "korrin/drawing/text_fit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korrin::drawing {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(TextFit, MakesOneLineOfAnyText) {
  EXPECT_EQ(paperLine("  a\tb\r\nc\x1B[0m\u2028d  "), "a b c [0m d");
}

TEST(TextFit, DropsWhatReordersAndKeepsWhatJoins) {
  EXPECT_EQ(paperLine("a\u202Eb\u200Bc"), "abc");
  EXPECT_EQ(paperLine("👩\u200D🎤"), "👩\u200D🎤");
  EXPECT_EQ(paperLine("\u06DD"), "\u06DD");
}

TEST(TextFit, BreaksAtBlanksWhereThereAreAny) {
  const double width = textWidth("Kick drum", 3);
  EXPECT_THAT(fitted("Kick drum outside left", 3, width, 9).lines,
              ElementsAre("Kick drum", "outside", "left"));
  EXPECT_THAT(fitted("Kick drum", 3, width, 9).lines, ElementsAre("Kick drum"));
}

TEST(TextFit, BreaksInsideAWordThatIsTooLong) {
  for (const std::string& line : fitted(std::string(200, 'x'), 3, 40, 99).lines)
    EXPECT_LE(textWidth(line, 3), 40);
}

TEST(TextFit, EndsWhatIsShortenedInAnEllipsis) {
  EXPECT_EQ(fittedLine("short", 3, 40), "short");
  const std::string line = fittedLine("This text is far too long for its place", 3, 30);
  EXPECT_THAT(line, testing::EndsWith("…"));
  EXPECT_LE(textWidth(line, 3), 30);
  const std::vector<std::string> lines =
      fitted("This text is far too long for its place", 3, 20, 2).lines;
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_THAT(lines[1], testing::EndsWith("…"));
  EXPECT_LE(textWidth(lines[1], 3), 20);
}

TEST(TextFit, KeepsTheTextsOwnLineBreaks) {
  EXPECT_THAT(fitted("one\ntwo\r\n\nthree", 3, 100, 9).lines, ElementsAre("one", "two", "three"));
  EXPECT_THAT(fitted("one\ntwo", 3, 100, 1).lines, ElementsAre("one two"));
}

TEST(TextFit, HasNoLinesForBlanks) {
  EXPECT_THAT(fitted(" \n\t ", 3, 100, 9).lines, IsEmpty());
  EXPECT_EQ(fittedLine("", 3, 100), "");
}

TEST(TextFit, NeverCutsACharacterThatAReaderSees) {
  const std::string family = "👩🏽\u200D🎤";
  std::string text;
  for (int i = 0; i < 30; ++i) text += family;
  for (const std::string& line : fitted(text, 3, 20, 99).lines)
    EXPECT_EQ(line.size() % family.size(), 0u);
}

TEST(TextFit, TakesTextsOfMegabytes) {
  const std::string marks = "a" + [] {
    std::string text;
    for (int i = 0; i < 500'000; ++i) text += "\u0301";
    return text;
  }();
  EXPECT_LE(fitted(marks, 3, 40, 6).lines.size(), 6u);
  EXPECT_EQ(fitted(std::string(3'000'000, 'x'), 3, 40, 6).lines.size(), 6u);
  EXPECT_THAT(fittedLine(std::string(3'000'000, 'x'), 3, 40), testing::EndsWith("…"));
}

TEST(TextFit, SaysWhetherATextWasShortened) {
  EXPECT_FALSE(fitted("Kick drum", 3, 40, 1).isShortened);
  EXPECT_FALSE(fitted("ends in …", 3, 40, 1).isShortened);
  EXPECT_FALSE(fitted("one\ntwo", 3, 40, 2).isShortened);
  EXPECT_TRUE(fitted("one\ntwo\nthree", 3, 40, 2).isShortened);
  EXPECT_TRUE(fitted("Kick drum outside left of the riser", 3, 40, 1).isShortened);
}

TEST(TextFit, CutsALongTextIntoAllOfItsWords) {
  std::string text;
  for (int i = 0; i < 20'000; ++i) text += "word" + std::to_string(i) + (i % 7 == 0 ? "\n" : " ");
  LineCutter cutter(text, 3, 60, true);
  std::string joined;
  while (!cutter.isAtEnd()) {
    const std::string line = cutter.next();
    EXPECT_LE(textWidth(line, 3), 60);
    joined += line + " ";
  }
  EXPECT_EQ(joined, paperLine(text) + " ");
}

TEST(TextFit, TakesAWidthThatHoldsNothing) {
  EXPECT_EQ(fittedLine("text", 3, 0), "…");
  EXPECT_EQ(fitted("text", 3, 0, 9).lines.size(), 4u);
}

}  // namespace
}  // namespace korrin::drawing
