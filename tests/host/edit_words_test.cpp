#include "editing/edit_words.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korrin::host {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Words, StandBetweenBlanks) {
  EXPECT_THAT(wordsOf("align  left\tBaß GTR \r"), ElementsAre("align", "left", "Baß", "GTR"));
  EXPECT_THAT(wordsOf(""), IsEmpty());
  EXPECT_THAT(wordsOf(" \t "), IsEmpty());
}

TEST(Words, AreHeldTogetherByDoubleQuotes) {
  EXPECT_THAT(wordsOf("label \"BV 1\" \"\""), ElementsAre("label", "BV 1", ""));
  EXPECT_THAT(wordsOf(R"("a \"b\" \\ \x")"), ElementsAre(R"(a "b" \ \x)"));
  EXPECT_THAT(wordsOf(R"("a\nb\r\tc" \n)"), ElementsAre("a\nb\r\tc", R"(\n)"));
  EXPECT_THAT(wordsOf("a\"b c\"d"), ElementsAre("ab cd"));
  EXPECT_THAT(wordsOf("don't C:\\x"), ElementsAre("don't", "C:\\x"));
}

TEST(Words, EndWhereACommentBegins) {
  EXPECT_THAT(wordsOf("# all of it"), IsEmpty());
  EXPECT_THAT(wordsOf("undo # \"why"), ElementsAre("undo"));
  EXPECT_THAT(wordsOf("show Mix#1 \"#2\""), ElementsAre("show", "Mix#1", "#2"));
}

TEST(Words, AreRefusedWithAnOpenQuote) {
  for (const std::string line : {"\"", "label \"BV 1", "\"a\\\""})
    EXPECT_THROW(wordsOf(line), LineError) << line;
}

TEST(InQuotes, IsReadBackAsTheSameWord) {
  for (const std::string word : {"", "BV 1", "a \"b\" \\", "\\\\\"", "#", "Ángela"})
    EXPECT_THAT(wordsOf("x " + inQuotes(word)), ElementsAre("x", word));
}

}  // namespace
}  // namespace korrin::host
