#include "korrin/validation/pdf/scanner.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/validation/pdf/purse.h"

namespace korrin::pdf {
namespace {

using Kind = Token::Kind;

std::vector<std::string> tokens(std::string_view text) {
  Budget budget(text.size());
  Scanner scanner(text, budget, 0);
  std::vector<std::string> result;
  for (Token token = scanner.next(); token.kind != Kind::end; token = scanner.next())
    result.emplace_back(scanner.text(token));
  return result;
}

TEST(Scanner, SplitsAtDelimitersAndWhiteSpace) {
  using Texts = std::vector<std::string>;
  EXPECT_EQ(
      tokens("<</Kids[1 0 R]/A(b)/C<64>>>endobj"),
      (Texts{"<<", "/Kids", "[", "1", "0", "R", "]", "/A", "(b)", "/C", "<64>", ">>", "endobj"}));
  EXPECT_EQ(tokens(std::string_view("1\0"
                                    "2\f3\t4\r5\n6",
                                    11)),
            (Texts{"1", "2", "3", "4", "5", "6"}));
  EXPECT_EQ(tokens("a%b<<[\rc%d\ne%"), (Texts{"a", "c", "e"}));
  EXPECT_EQ(tokens("/ /a/b/"), (Texts{"/", "/a", "/b", "/"}));
}

TEST(Scanner, TakesAStrayDelimiterForAWord) {
  using Texts = std::vector<std::string>;
  EXPECT_EQ(tokens("a>b){c}"), (Texts{"a", ">", "b", ")", "{", "c", "}"}));
  EXPECT_EQ(tokens("> >"), (Texts{">", ">"}));
  EXPECT_EQ(tokens("<a>>"), (Texts{"<a>", ">"}));
}

// A sanitizer sees a byte read behind these.
TEST(Search, EndsWithTheBytes) {
  for (const std::size_t size : {0u, 1u, 2u, 3u, 4u}) {
    const std::vector<char> bytes(size, 'x');
    EXPECT_EQ(find(std::string_view(bytes.data(), size), "ab"), std::string_view::npos) << size;
  }
}

TEST(Search, FindsAWordBehindBytesOfAnyKind) {
  for (int byte = 0; byte < 256; ++byte) {
    std::string text(7, static_cast<char>(byte));
    text += "word";
    EXPECT_EQ(find(text, "word"), 7u) << byte;
  }
}

TEST(Scanner, PaysForEachWordThatItTakes) {
  const std::string_view text = "word 12 next R";
  Budget budget = purseOf(3 * price::token + text.size() * price::byte);
  Scanner scanner(text, budget, 0);
  EXPECT_TRUE(scanner.takeKeyword("word"));
  EXPECT_EQ(scanner.takeCount(), 12u);
  EXPECT_EQ(scanner.next().kind, Kind::word);
  EXPECT_FALSE(scanner.takeKeyword("R"));
  EXPECT_TRUE(budget.isExhausted());
}

TEST(Scanner, BalancesParenthesesInStrings) {
  using Texts = std::vector<std::string>;
  EXPECT_EQ(tokens("(a(b)c)d"), (Texts{"(a(b)c)", "d"}));
  EXPECT_EQ(tokens("(a\\)b)c"), (Texts{"(a\\)b)", "c"}));
  EXPECT_EQ(tokens("(a\\\\)b"), (Texts{"(a\\\\)", "b"}));
  EXPECT_EQ(tokens("(<<[%)b"), (Texts{"(<<[%)", "b"}));
}

TEST(Scanner, EndsUnclosedStringsAtTheEnd) {
  for (const char* text : {"(", "(a", "((a)", "(\\", "<", "<41"})
    EXPECT_EQ(tokens(text), (std::vector<std::string>{text}));
}

TEST(Scanner, StandsWithinTheBytesWhereverTheyEnd) {
  const std::string_view whole = "<</A[1 -2.5]/B(a\\)(b)\\\\c)%d\r\n/C<41>>>stream\n(\\\r\n)R";
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    SCOPED_TRACE(size);
    Budget budget(size);
    Scanner scanner(whole.substr(0, size), budget, 0);
    for (Token token = scanner.next(); token.kind != Kind::end; token = scanner.next())
      ASSERT_LE(token.end, scanner.position());
    EXPECT_EQ(scanner.position(), size);
    EXPECT_FALSE(scanner.takeKeyword("R"));
    EXPECT_EQ(scanner.takeCount(), std::nullopt);
  }
}

TEST(Scanner, SkipsToTheClosingThatBelongs) {
  const std::string_view text = "[<<(])/]>>[]%]\n]after";
  Budget budget(text.size());
  Scanner scanner(text, budget, 0);
  ASSERT_EQ(scanner.next().kind, Kind::arrayOpen);
  scanner.skipToClosing();
  // "/]" is an empty name before the bracket that closes the first one inside.
  EXPECT_EQ(scanner.position(), text.find(">>") + 2);
}

TEST(Scanner, SkipsToTheEndWhenNothingCloses) {
  const std::string_view text = "[[<<(abc";
  Budget budget(text.size());
  Scanner scanner(text, budget, 0);
  scanner.next();
  scanner.skipToClosing();
  EXPECT_EQ(scanner.position(), text.size());
  EXPECT_EQ(scanner.next().kind, Kind::end);
  EXPECT_FALSE(budget.isExhausted());
}

TEST(Scanner, TakesOnlyPlainCounts) {
  const auto count = [](std::string_view text) {
    Budget budget(text.size());
    return Scanner(text, budget, 0).takeCount();
  };
  EXPECT_EQ(count("0"), 0u);
  EXPECT_EQ(count(" 0012 "), 12u);
  EXPECT_EQ(count("999999999999999999"), 999999999999999999u);
  for (const char* text : {"", "+1", "-1", "1.0", "a", "1a", "1000000000000000000", "[1"})
    EXPECT_EQ(count(text), std::nullopt) << text;
}

TEST(Scanner, StaysInFrontOfWhatItDoesNotTake) {
  const std::string_view text = " 12 R";
  Budget budget(text.size());
  Scanner scanner(text, budget, 0);
  EXPECT_FALSE(scanner.takeKeyword("R"));
  EXPECT_EQ(scanner.takeCount(), 12u);
  EXPECT_FALSE(scanner.takeCount());
  EXPECT_TRUE(scanner.takeKeyword("R"));
}

TEST(Scanner, PaysForEveryByte) {
  const std::string text = "%" + std::string(999, 'c');
  Budget enough = purseOf(1000 * price::byte + price::token);
  Scanner(text, enough, 0).next();
  EXPECT_FALSE(enough.isExhausted());
  Budget tooLittle = purseOf(1000 * price::byte + price::token - 1);
  Scanner(text, tooLittle, 0).next();
  EXPECT_TRUE(tooLittle.isExhausted());
}

TEST(Scanner, PaysForEveryToken) {
  const std::string text = "a (b(c\\))) [ ] << >> /d <e>";
  const auto exhausts = [&](std::size_t tokens) {
    Budget budget = purseOf(tokens * price::token + text.size() * price::byte);
    Scanner scanner(text, budget, 0);
    while (scanner.next().kind != Kind::end) {
    }
    return budget.isExhausted();
  };
  // Eight tokens, four characters in the string that need a decision, and the end.
  EXPECT_FALSE(exhausts(13));
  EXPECT_TRUE(exhausts(12));
}

TEST(Scanner, TakesNothingThatItCannotPayFor) {
  const std::string_view text = "  12 obj";
  Budget oneByte = purseOf(price::byte);
  EXPECT_EQ(Scanner(text, oneByte, 0).takeCount(), std::nullopt);
  EXPECT_TRUE(oneByte.isExhausted());
  oneByte = purseOf(price::byte);
  EXPECT_FALSE(Scanner(text, oneByte, 4).takeKeyword("obj"));
  EXPECT_TRUE(oneByte.isExhausted());

  Budget noToken = purseOf(4 * price::byte);
  EXPECT_EQ(Scanner(text, noToken, 0).takeCount(), std::nullopt);
  EXPECT_TRUE(noToken.isExhausted());
  noToken = purseOf(4 * price::byte);
  EXPECT_FALSE(Scanner(text, noToken, 4).takeKeyword("obj"));
  EXPECT_TRUE(noToken.isExhausted());
}

TEST(StatedOffsets, StayBeyondAllFilesWhereTheMachineCannotCountSoFar) {
  EXPECT_EQ(asOffset(0), 0u);
  EXPECT_EQ(asOffset(123'456'789), 123'456'789u);
  constexpr std::size_t beyond = std::numeric_limits<std::ptrdiff_t>::max();
  for (const std::uint64_t stated :
       {std::uint64_t{1} << 32, std::uint64_t{999'999'999'999'999'999}})
    EXPECT_EQ(asOffset(stated), std::min<std::uint64_t>(stated, beyond));
  EXPECT_EQ(asOffset(~std::uint64_t{0}), beyond);
  EXPECT_GT(asOffset(~std::uint64_t{0}) + limits::headerWindow, beyond);
}

TEST(Scanner, SkipsNoFurtherThanItCanPayFor) {
  const std::string_view text = "[ a b c d e f ] after";
  Budget budget = purseOf(price::token + (1 + 3) * price::byte);
  Scanner scanner(text, budget, 0);
  scanner.next();
  scanner.skipToClosing();
  EXPECT_TRUE(budget.isExhausted());
  EXPECT_EQ(scanner.next().kind, Kind::end);
}

TEST(Scanner, SeesTheEndOnceTheBudgetIsUsedUp) {
  const std::string_view text = "1 2 3";
  Budget budget(text.size());
  Scanner scanner(text, budget, 0);
  EXPECT_EQ(scanner.next().kind, Kind::word);
  budget.exhaust();
  EXPECT_EQ(scanner.next().kind, Kind::end);
}

}  // namespace
}  // namespace korrin::pdf
