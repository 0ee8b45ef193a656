#include "korrin/foundation/text.h"

#include <algorithm>
#include <compare>
#include <ctime>
#include <sstream>
#include <string>
#include <unordered_set>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/foundation/utf8.h"

#include "tests/support/unicode_data.h"

namespace korrin {
namespace {

std::size_t hashOf(const Text& text) { return std::hash<Text>{}(text); }

TEST(Text, IsEmptyByDefaultAndWhenMadeFromNothing) {
  for (const Text& text : {Text(), Text(""), Text(std::string()), Text(std::string_view())}) {
    EXPECT_TRUE(text.empty());
    EXPECT_TRUE(text.isBlank());
    EXPECT_EQ(text.str(), "");
    EXPECT_EQ(text, Text());
    EXPECT_EQ(hashOf(text), hashOf(Text()));
  }
  EXPECT_FALSE(Text(" ").empty());
  EXPECT_NE(Text(" "), Text());
  EXPECT_LT(Text(), Text(" "));
}

TEST(Text, StoresWhatItWasGivenNeitherNormalisedNorTrimmed) {
  for (const std::string given :
       {" a ", "e\u0301", "\u00E9", "\u212B", "\uFEFFx", "line\nbreak", "\u200B"}) {
    EXPECT_EQ(Text(given).str(), given);
    EXPECT_EQ(std::string_view(Text(given)), given);
  }
  const std::string withNUL("a\0b", 3);
  EXPECT_EQ(Text(withNUL).str(), withNUL);
  EXPECT_NE(Text(withNUL), Text("a"));
}

struct Replacement {
  std::string name;
  std::string given;
  std::string stored;
};
class IllFormedText : public testing::TestWithParam<Replacement> {};

TEST_P(IllFormedText, HoldsOneReplacementCharacterPerMaximalPart) {
  EXPECT_EQ(Text(GetParam().given).str(), GetParam().stored);
  EXPECT_EQ(Text(std::string_view(GetParam().given)), Text(GetParam().stored));
  const std::string_view inTheMiddle = GetParam().given;
  EXPECT_EQ(Text("<" + std::string(inTheMiddle) + ">").str(), "<" + GetParam().stored + ">");
}

// The replacement character, as often as it is to stand.
std::string r(int count) {
  std::string text;
  for (; count != 0; --count) text += "\uFFFD";
  return text;
}

INSTANTIATE_TEST_SUITE_P(
    , IllFormedText,
    testing::Values(Replacement{"WellFormed", "a\xC3\xA9\xE2\x82\xAC\xF0\x9D\x84\x9E",
                                "a\u00E9\u20AC\U0001D11E"},
                    Replacement{"LoneContinuation", "\x80", r(1)},
                    Replacement{"TwoContinuations", "\x80\xBF", r(2)},
                    Replacement{"TruncatedTwo", "\xC3", r(1)},
                    Replacement{"TruncatedThree", "\xE2\x82", r(1)},
                    Replacement{"TruncatedFour", "\xF0\x9D\x84", r(1)},
                    Replacement{"TruncatedThreeAfterOne", "\xE2", r(1)},
                    Replacement{"TruncatedFourAfterTwo", "\xF0\x9D", r(1)},
                    Replacement{"OverlongTwo", "\xC0\xAF", r(2)},
                    Replacement{"OverlongTwoOfTheLastASCII", "\xC1\xBF", r(2)},
                    Replacement{"OverlongThree", "\xE0\x80\xAF", r(3)},
                    Replacement{"OverlongThreeAtItsEnd", "\xE0\x9F\xBF", r(3)},
                    Replacement{"OverlongFour", "\xF0\x80\x80\xAF", r(4)},
                    Replacement{"OverlongFourAtItsEnd", "\xF0\x8F\xBF\xBF", r(4)},
                    Replacement{"Surrogate", "\xED\xA0\x80", r(3)},
                    Replacement{"SurrogatePair", "\xED\xA0\xBD\xED\xB8\x80", r(6)},
                    Replacement{"AboveTheLastScalar", "\xF4\x90\x80\x80", r(4)},
                    Replacement{"LeadsThatNeverOccur", "\xF5\xF8\xFC\xFE\xFF", r(5)},
                    Replacement{"LeadBeforeASCII", "\xE2\x41", r(1) + "A"},
                    Replacement{"TwoOfThreeBeforeASCII", "\xE2\x82\x41", r(1) + "A"},
                    Replacement{"ThreeOfFourBeforeASCII", "\xF0\x9D\x84\x41", r(1) + "A"},
                    Replacement{"TruncatedBeforeWellFormed", "\xF1\x80\xC3\xA9", r(1) + "\u00E9"},
                    Replacement{"MaximalPartsInARow", "\xE1\x80\xE2\xF0\x91\x92\xF1\xBF", r(4)},
                    Replacement{"LatinLetterOfAnotherEncoding", "caf\xE9", "caf" + r(1)}),
    [](const auto& row) { return row.param.name; });

TEST(Text, IsEqualWhereItsCharactersAre) {
  EXPECT_EQ(Text("caf\u00E9"), Text("cafe\u0301"));
  EXPECT_EQ(hashOf("caf\u00E9"), hashOf("cafe\u0301"));
  EXPECT_EQ(Text("\u00C5"), Text("\u212B"));
  EXPECT_EQ(Text("\uAC01"), Text("\u1100\u1161\u11A8"));
  EXPECT_EQ(Text("q\u0307\u0323"), Text("q\u0323\u0307"));
  EXPECT_EQ(std::unordered_set<Text>({"\u00E9", "e\u0301", "e"}).size(), 2u);
}

TEST(Text, DiffersWhereItsCharactersDo) {
  EXPECT_NE(Text("a"), Text("A"));
  EXPECT_NE(Text("a"), Text("a "));
  EXPECT_NE(Text("\uFB01"), Text("fi"));                    // compatible, not canonical
  EXPECT_NE(Text("a\u0308\u0304"), Text("a\u0304\u0308"));  // one class: order counts
  EXPECT_NE(Text("e\u0301"), Text("e"));
}

TEST(Text, OrdersByTheScalarsOfTheComposedForm) {
  const std::vector<Text> ascending = {
      "",       "10",       "2",      "A",        "Z",      "a",      "e",          "f",
      "\u00E9", "e\u0301a", "\u0113", "e\u0327x", "\u1EBD", "\uFFFD", "\U00010000", "\U0001F3B8"};
  for (std::size_t i = 0; i < ascending.size(); ++i)
    for (std::size_t j = 0; j < ascending.size(); ++j)
      EXPECT_EQ(ascending[i] <=> ascending[j], i <=> j)
          << ascending[i].str() << " " << ascending[j].str();
  EXPECT_EQ(Text("e\u0301") <=> Text("\u00E9"), std::strong_ordering::equal);
  EXPECT_LT(Text("e\u0301"), Text("\u00EA"));  // though the byte e is below every byte of U+00EA
  EXPECT_GT(Text("e\u0301"), Text("z"));
}

TEST(Text, ComparesWithStringsInBothDirections) {
  const Text text = "cafe\u0301";
  const std::string string = "caf\u00E9";
  const std::string_view view = string;
  EXPECT_TRUE(text == "caf\u00E9");
  EXPECT_TRUE("caf\u00E9" == text);
  EXPECT_TRUE(text == string);
  EXPECT_TRUE(string == text);
  EXPECT_TRUE(text == view);
  EXPECT_TRUE(view == text);
  EXPECT_TRUE(text == string.c_str());
  EXPECT_FALSE(text != string);
  EXPECT_FALSE(string != text);
  EXPECT_TRUE(text != "cafe");
  EXPECT_TRUE("cafe" != text);

  EXPECT_TRUE(text < "d");
  EXPECT_TRUE("d" > text);
  EXPECT_TRUE(text > std::string("cafe"));
  EXPECT_TRUE(std::string_view("cafe") < text);
  EXPECT_TRUE((text <=> view) == std::strong_ordering::equal);
  EXPECT_TRUE(text == std::string_view(text));
}

TEST(Text, ComparesWithIllFormedBytesAsIfTheyWereMadeAText) {
  EXPECT_TRUE(Text("\xFF") == "\xFF");
  EXPECT_TRUE(Text("\xFF") == "\xFE");
  EXPECT_TRUE(Text("\uFFFD") == std::string("\xC3"));
}

TEST(Text, IsTheSameFromBytesThatSomebodyHasLookedAt) {
  for (const std::string bytes :
       {"", "short", "a text that does not stand inside", "caf\u00E9", "cafe\u0301",
        "\u00E9 in a text that does not stand inside", "e\u0301 in one that does not either",
        "\u0344", "\u65E5\u672C\U0001F3B8"}) {
    const Text text = bytes;
    const bool isASCII =
        std::all_of(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) == 0; });
    for (const bool isKnown : {false, true}) {
      const Text looked(WellFormedUTF8{bytes, isKnown && isASCII});
      EXPECT_EQ(looked.str(), bytes);
      EXPECT_EQ(looked, text);
      EXPECT_EQ(std::hash<Text>{}(looked), std::hash<Text>{}(text));
    }
  }
  EXPECT_EQ(Text(WellFormedUTF8{"cafe\u0301", false}), Text("caf\u00E9"));
}

TEST(Text, IsPrintedAsItWasGiven) {
  std::ostringstream out;
  out << Text("cafe\u0301") << Text();
  EXPECT_EQ(out.str(), "cafe\u0301");
}

TEST(Text, SharesItsStorageWithCopies) {
  const Text text = "a text that does not stand inside, of some length";
  const char* const storage = std::string_view(text).data();
  const Text copy = text;
  EXPECT_EQ(std::string_view(copy).data(), storage);
  Text assigned;
  assigned = copy;
  EXPECT_EQ(std::string_view(assigned).data(), storage);
  const Text moved = std::move(assigned);
  EXPECT_EQ(std::string_view(moved).data(), storage);
}

// Around the sizes at which bytes stand inside, and at which they are copied in another way.
TEST(Text, KeepsItsBytesAndItsValueAtEverySize) {
  for (std::size_t size = 0; size <= 40; ++size) {
    std::string bytes;
    for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>('a' + i % 26);
    const Text text = bytes;
    EXPECT_EQ(text.str(), bytes);
    EXPECT_EQ(text.empty(), bytes.empty());
    Text copy = text;
    EXPECT_EQ(copy, text);
    EXPECT_EQ(std::hash<Text>{}(copy), std::hash<Text>{}(text));
    const Text moved = std::move(copy);
    EXPECT_EQ(moved.str(), bytes);
    EXPECT_TRUE(copy.empty());  // NOLINT(bugprone-use-after-move): promised
    EXPECT_EQ(copy.str(), "");
    copy = moved;
    EXPECT_EQ(copy.str(), bytes);
    copy = Text("other");
    EXPECT_EQ(copy.str(), "other");
    EXPECT_EQ(moved.str(), bytes);

    // One byte more, or one that differs at either end, is another text.
    EXPECT_NE(text, Text(bytes + "a"));
    EXPECT_LT(text, Text(bytes + "a"));
    for (const std::size_t at : {std::size_t{0}, size - 1}) {
      if (at >= size) continue;
      std::string changed = bytes;
      changed[at] = '~';
      EXPECT_NE(text, Text(changed));
      EXPECT_LT(text, Text(changed));
    }
  }
}

TEST(Text, StandsInsideUpToFifteenBytesAndOutsideBeyond) {
  const auto isInside = [](const Text& text) {
    const auto* const first = reinterpret_cast<const char*>(&text);
    const char* const bytes = std::string_view(text).data();
    return std::less_equal<>()(first, bytes) && std::less<>()(bytes, first + sizeof text);
  };
  EXPECT_TRUE(isInside(std::string(Text::mostInside, 'x')));
  EXPECT_FALSE(isInside(std::string(Text::mostInside + 1, 'x')));
  EXPECT_TRUE(isInside("caf\u00e9"));
  EXPECT_FALSE(isInside("cafe\u0301"));  // beside its composed form
}

TEST(Text, IsEqualAcrossTheSizesAtWhichItStandsInside) {
  // Sixteen bytes, whose composed form has fifteen.
  const Text decomposed =
      "thirteen byte"
      "e\u0301";
  const Text composed =
      "thirteen byte"
      "\u00e9";
  EXPECT_EQ(decomposed.str().size(), 16u);
  EXPECT_EQ(composed.str().size(), 15u);
  EXPECT_EQ(decomposed, composed);
  EXPECT_EQ(composed <=> decomposed, std::strong_ordering::equal);
  EXPECT_EQ(std::hash<Text>{}(decomposed), std::hash<Text>{}(composed));
}

TEST(Text, DiffersWhereAnyOneOfItsBytesDoes) {
  for (std::size_t size = 1; size <= 70; ++size) {
    const Text text = std::string(size, 'a');
    EXPECT_EQ(text, Text(std::string(size, 'a')));
    EXPECT_NE(text, Text(std::string(size + 1, 'a')));
    for (std::size_t at = 0; at < size; ++at) {
      std::string other(size, 'a');
      other[at] = 'b';
      EXPECT_NE(text, Text(other)) << size << " bytes, the one at " << at;
      EXPECT_LT(text, Text(other)) << size << " bytes, the one at " << at;
    }
  }
}

TEST(Text, HasOneFormOfEachLengthWhicheverWayItIsSpelled) {
  for (std::size_t size = 0; size <= 70; ++size) {
    const std::string before(size, 'a');
    const Text decomposed = before + "e\u0301";
    const Text composed = before + "\u00e9";
    EXPECT_EQ(decomposed, composed);
    EXPECT_EQ(composed, decomposed);
    EXPECT_EQ(decomposed, Text(before + "e\u0301"));
    EXPECT_EQ(composed, Text(before + "\u00e9"));
    EXPECT_EQ(decomposed <=> composed, std::strong_ordering::equal);
    EXPECT_EQ(std::hash<Text>{}(decomposed), std::hash<Text>{}(composed));
    EXPECT_NE(decomposed, Text(before + "e\u0300"));
    EXPECT_NE(decomposed, Text(before + "e"));
    EXPECT_NE(composed, Text(before + "e\u0301\u0323"));
    EXPECT_EQ(decomposed.str(), before + "e\u0301");
  }
}

TEST(Text, HoldsZeroBytes) {
  const Text one = std::string(1, '\0');
  const Text two = std::string(2, '\0');
  EXPECT_FALSE(one.empty());
  EXPECT_NE(one, Text());
  EXPECT_NE(one, two);
  EXPECT_LT(one, two);
}

TEST(Text, OutlivesTheTextItWasCopiedFrom) {
  Text copy;
  {
    const Text text = std::string("short-lived, yet held");
    copy = text;
  }
  EXPECT_EQ(copy, "short-lived, yet held");
  Text& self = copy;
  copy = self;
  EXPECT_EQ(copy, "short-lived, yet held");
}

TEST(Text, IsBlankForEveryWhiteSpaceScalarAndNoOther) {
  const auto whiteSpace = test::scalarsWithProperty("White_Space");
  if (!whiteSpace) GTEST_SKIP() << "PropList.txt of the package unicode-data is not installed";
  EXPECT_EQ(whiteSpace->size(), 25u);
  std::size_t wrong = 0;
  for (char32_t scalar = 0; scalar < 0x110000; ++scalar) {
    if (scalar >= 0xD800 && scalar <= 0xDFFF) continue;
    if (Text(test::utf8Of(scalar)).isBlank() != whiteSpace->contains(scalar)) ++wrong;
  }
  EXPECT_EQ(wrong, 0u);
}

TEST(Text, IsBlankOnlyWhenNothingElseStandsInIt) {
  EXPECT_TRUE(
      Text(" \t\n\r\v\f\u0085\u00A0\u1680\u2000\u200A\u2028\u2029\u202F\u205F\u3000").isBlank());
  EXPECT_FALSE(Text("\u200B").isBlank());
  EXPECT_FALSE(Text("\uFEFF").isBlank());
  EXPECT_FALSE(Text("  x  ").isBlank());
  EXPECT_FALSE(Text(std::string_view("\0", 1)).isBlank());
  EXPECT_FALSE(Text("\u3000\u0300").isBlank());
}

TEST(TrimmedText, LosesWhiteSpaceAtItsEndsAlone) {
  EXPECT_EQ(Text(" \t Kick  In\u3000\n").trimmed().str(), "Kick  In");
  EXPECT_EQ(Text("Kick").trimmed().str(), "Kick");
  EXPECT_EQ(Text("\u200BKick").trimmed().str(), "\u200BKick");
  EXPECT_TRUE(Text(" \u2028 ").trimmed().empty());
  EXPECT_TRUE(Text().trimmed().empty());
  EXPECT_EQ(Text(" e\u0301 ").trimmed(), "\u00e9");
}

// Classes 230 and 220 in turn: every mark has to pass all of the other class before it.
TEST(Text, SortsALongRunOfMarksInReasonableTime) {
  constexpr int pairs = 500'000;
  std::string alternating = "e";
  std::string sorted = "e";
  for (int i = 0; i < pairs; ++i) alternating += "\u0301\u0323";
  for (int i = 0; i < pairs; ++i) sorted += "\u0323";
  for (int i = 0; i < pairs; ++i) sorted += "\u0301";
  // Processor time, so that other work on the machine does not count.
  const std::clock_t start = std::clock();
  EXPECT_EQ(Text(alternating), Text(sorted));
  EXPECT_LT((std::clock() - start) / CLOCKS_PER_SEC, 20);
}

}  // namespace
}  // namespace korrin
