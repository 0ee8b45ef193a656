#include "terminal/display_text.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korrin::host {
namespace {

using testing::ElementsAre;

TEST(Printable, LeavesOrdinaryTextAlone) {
  for (const std::string text : {"", "Kick Out", "Ángela", "Banner 舞台", "C:\\Bühne \"links\"",
                                 "👩\u200D🎤", "a\u0301", "می\u200Cخواهم"})
    EXPECT_EQ(printable(text), text);
}

TEST(Printable, ShowsWhatATerminalWouldObey) {
  EXPECT_EQ(printable("\x1b[2J\x1b]0;title\x07"), "\\u{1B}[2J\\u{1B}]0;title\\u{7}");
  EXPECT_EQ(printable("a\nb\rc\td"), "a\\nb\\rc\\td");
  EXPECT_EQ(printable(std::string_view("a\0b", 3)), "a\\u{0}b");
  EXPECT_EQ(printable("\x7f"), "\\u{7F}");
  EXPECT_EQ(printable("\u009B31m"), "\\u{9B}31m");
}

TEST(PrintableJson, KeepsTheValueAndLosesWhatATerminalWouldObey) {
  EXPECT_EQ(printableJSON("\"Ángela \\n 舞台\""), "\"Ángela \\n 舞台\"");
  EXPECT_EQ(printableJSON("\"\u009B2J\x7f\u202E\""), "\"\\u009B2J\\u007F\\u202E\"");
  EXPECT_EQ(printableJSON("\"\U000E0041\""), "\"\\uDB40\\uDC41\"");
}

TEST(Printable, ShowsEveryControlCharacter) {
  for (char32_t scalar = 0; scalar < 0xA0; ++scalar) {
    if (scalar >= 0x20 && scalar < 0x7F) continue;
    std::string text;
    if (scalar < 0x80)
      text = static_cast<char>(scalar);
    else
      text = {'\xC2', static_cast<char>(scalar)};
    const std::string shown = printable(text);
    EXPECT_EQ(shown.front(), '\\') << static_cast<unsigned>(scalar);
    for (const char byte : shown) EXPECT_TRUE(byte >= 0x20 && byte < 0x7F);
  }
}

TEST(Printable, ShowsWhatWouldHideOrReorderText) {
  EXPECT_EQ(printable("a\u202Eb"), "a\\u{202E}b");
  EXPECT_EQ(printable("a\u2066b\u2069"), "a\\u{2066}b\\u{2069}");
  EXPECT_EQ(printable("a\u200Bb\uFEFF"), "a\\u{200B}b\\u{FEFF}");
  EXPECT_EQ(printable("a\u2028b\u2029"), "a\\u{2028}b\\u{2029}");
  EXPECT_EQ(printable("\U000E0041"), "\\u{E0041}");
}

TEST(Printable, ReplacesBytesThatAreNoText) {
  EXPECT_EQ(printable("a\xFF\xC3"), "a\uFFFD\uFFFD");
  EXPECT_EQ(printable("\xE2\x80"), "\uFFFD");
}

TEST(ShortNumber, IsRoundedToItsDigitsWithoutZerosAtTheEnd) {
  EXPECT_EQ(shortNumber(595.276, 7), "595.276");
  EXPECT_EQ(shortNumber(841.8904, 6), "841.89");
  EXPECT_EQ(shortNumber(-1250, 6), "-1250");
  EXPECT_EQ(shortNumber(1234567.5, 6), "1.23457e+06");
  EXPECT_EQ(shortNumber(0, 6), "0");
}

TEST(DisplayWidth, CountsColumnsAndNotBytes) {
  EXPECT_EQ(displayWidth(""), 0u);
  EXPECT_EQ(displayWidth("Kick"), 4u);
  EXPECT_EQ(displayWidth("Ángela"), 6u);
  EXPECT_EQ(displayWidth("A\u0301ngela"), 6u);
  EXPECT_EQ(displayWidth("舞台"), 4u);
  EXPECT_EQ(displayWidth("🎤"), 2u);
}

TEST(Shortened, KeepsWhatFits) {
  EXPECT_EQ(shortened("Kick Out", 8), "Kick Out");
  EXPECT_EQ(shortened("Kick Out", 0), "Kick Out");
  EXPECT_EQ(shortened("舞台", 4), "舞台");
  EXPECT_EQ(shortened("", 3), "");
  EXPECT_EQ(shortened("e\u0301\u0301\u0301", 1), "e\u0301\u0301\u0301");
}

TEST(Shortened, EndsInAnEllipsisWithinTheWidth) {
  EXPECT_EQ(shortened("Kick Out", 7), "Kick O…");
  EXPECT_EQ(shortened("舞台装置", 5), "舞台…");
  EXPECT_EQ(shortened("舞台装置", 4), "舞…");
  EXPECT_EQ(shortened("ab", 1), "…");
  EXPECT_EQ(shortened("ae\u0301bc", 3), "ae\u0301…");
}

TEST(Wrapped, BreaksAtBlanks) {
  EXPECT_THAT(wrapped("Add a source name to the list.", 12),
              ElementsAre("Add a source", "name to the", "list."));
  EXPECT_THAT(wrapped("one two", 7), ElementsAre("one two"));
  EXPECT_THAT(wrapped("one two", 3), ElementsAre("one", "two"));
}

TEST(Wrapped, BreaksWordsThatAreTooLong) {
  EXPECT_THAT(wrapped("abcdefgh ij", 3), ElementsAre("abc", "def", "gh", "ij"));
  EXPECT_THAT(wrapped("舞台装置", 5), ElementsAre("舞台", "装置"));
  EXPECT_THAT(wrapped("ae\u0301ie\u0301", 2), ElementsAre("ae\u0301", "ie\u0301"));
}

TEST(Wrapped, HasAlwaysALine) {
  EXPECT_THAT(wrapped("", 5), ElementsAre(""));
  EXPECT_THAT(wrapped("any length", 0), ElementsAre("any length"));
}

}  // namespace
}  // namespace korrin::host
