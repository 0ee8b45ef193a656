#include "korrin/coding/json_scanner.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include <gtest/gtest.h>

namespace korrin::json {
namespace {

constexpr std::string_view before = "{\"documentVersion\":";
constexpr std::string_view behind = ",\"other\":[1,2,3,4,5,6,7,8]}";

// The number that a text starts with, read without haste; nothing where it is none.
std::optional<std::string> anyNumber(std::string_view text) {
  Scanner scanner(text);
  try {
    return std::string(scanner.number());
  } catch (const Malformed&) {
    return std::nullopt;
  }
}

struct Found {
  std::string taken;
  ShortNumber number;
};

// What is taken between `left` and `right`, in memory of exactly their size: a byte read outside is
// found by the address sanitizer.
std::optional<Found> shortNumber(std::string_view number, std::string_view left,
                                 std::string_view right) {
  const std::string text = std::string(left) + std::string(number) + std::string(right);
  const auto bytes = std::make_unique<char[]>(text.size());
  text.copy(bytes.get(), text.size());
  Scanner scanner({bytes.get(), text.size()});
  scanner.advance(left.size());
  const char* const start = scanner.position();
  const auto found = scanner.shortNumber();
  if (!found) {
    EXPECT_EQ(scanner.position(), start) << text;
    return std::nullopt;
  }
  return Found{std::string(start, scanner.position()), *found};
}

void expectItsParts(const Found& found) {
  std::string text = found.taken;
  EXPECT_EQ(found.number.isNegative, text.front() == '-');
  if (text.front() == '-') text.erase(0, 1);
  const std::size_t point = text.find('.');
  const std::size_t decimals = point == std::string::npos ? 0 : text.size() - point - 1;
  EXPECT_EQ(found.number.decimals, decimals) << found.taken;
  std::erase(text, '.');
  EXPECT_EQ(found.number.digits, std::stoull(text)) << found.taken;
}

TEST(ShortNumber, IsTheNumberThatStandsThere) {
  for (const std::string_view text :
       {"0", "-0", "7", "-7", "10", "1234567", "-1234567", "0.5", "-0.0", "12.25", "180.125",
        "0.0000000000001", "1234.5678901234567", "-9999.123456789012345", "1234567.123456789012"}) {
    const auto found = shortNumber(text, before, behind);
    ASSERT_TRUE(found.has_value()) << text;
    EXPECT_EQ(found->taken, text);
    expectItsParts(*found);
  }
}

TEST(ShortNumber, LeavesWhatIsLongOrNone) {
  for (const std::string_view text : {"12345678",
                                      "1e5",
                                      "1.5E5",
                                      "1.12345678e5",
                                      "1234567.1234567890123",
                                      "0.1234567890123456",
                                      "12345.123456789012345",
                                      "01",
                                      "-",
                                      "-.5",
                                      ".5",
                                      "5.",
                                      "5.e3",
                                      "5.x",
                                      "+5",
                                      "\"5\"",
                                      "null",
                                      "",
                                      "-01.5",
                                      "00"})
    EXPECT_FALSE(shortNumber(text, before, behind)) << text;
}

TEST(ShortNumber, IsNotLookedForNearTheBordersOfTheText) {
  const std::string room(64, ' ');
  for (const std::string_view text : {"7", "-7.5", "1234.567890123456"})
    for (std::size_t size = 0; size <= 32; ++size) {
      const std::string_view border = std::string_view(room).substr(0, size);
      for (const auto& found : {shortNumber(text, border, room), shortNumber(text, room, border)})
        EXPECT_EQ(found ? found->taken : text, text);
    }
  EXPECT_FALSE(shortNumber("7", std::string(15, ' '), room));
  EXPECT_TRUE(shortNumber("7", std::string(16, ' '), room));
}

TEST(ShortNumber, AgreesWithTheLongWayOnTextsDrawnAtRandom) {
  constexpr unsigned seed = 4711;
  std::mt19937 random(seed);
  const auto draw = [&random](std::string_view from) { return from[random() % from.size()]; };
  std::size_t foundCount = 0;
  for (int round = 0; round < 200'000; ++round) {
    std::string text;
    const std::size_t size = 1 + random() % 24;
    // Mostly digits, now and then another character of a number or of no number.
    while (text.size() < size)
      text += random() % 8 == 0 ? draw(".-eE+,:/; \"\\") : draw("0123456789");
    const auto found = shortNumber(text, before, behind);
    if (!found) continue;
    ++foundCount;
    const auto longWay = anyNumber(text + std::string(behind));
    ASSERT_TRUE(longWay.has_value()) << text << ", seed " << seed;
    ASSERT_EQ(found->taken, *longWay) << "seed " << seed;
    expectItsParts(*found);
  }
  EXPECT_GT(foundCount, 20'000u);
}

TEST(String, TellsWhetherEscapesOrOtherLettersThanThoseOfASCIIStandInIt) {
  struct Case {
    std::string raw;
    bool hasEscapes;
    bool isASCII;
  };
  const std::string plain = "longer than the block of bytes that is looked at in one go";
  for (const Case& c :
       {Case{"", false, true}, Case{plain, false, true}, Case{"\\u00e9", true, true},
        Case{"caf\u00E9", false, false}, Case{plain + "\u00E9", false, false},
        Case{"\u65E5" + plain, false, false}, Case{plain + "\\n", true, true},
        Case{"\U0001F3B8\\t" + plain, true, false}}) {
    for (const std::string_view right : {std::string_view(), behind}) {
      const std::string text = '"' + c.raw + '"' + std::string(right);
      Scanner scanner(text);
      const StringToken token = scanner.string();
      EXPECT_EQ(token.raw, c.raw);
      EXPECT_EQ(token.hasEscapes, c.hasEscapes) << c.raw;
      EXPECT_EQ(token.isASCII, c.isASCII) << c.raw;
    }
  }
}

TEST(Number, EndsWhereJSONSays) {
  const auto expectTaken = [](std::string_view text, std::string_view taken) {
    EXPECT_EQ(anyNumber(text), taken);
  };
  expectTaken("12345678901234567890123456789012345678.5e+10,",
              "12345678901234567890123456789012345678.5e+10");
  expectTaken("012", "0");  // what follows is nobody's
  expectTaken("-0.50E-3]", "-0.50E-3");
  expectTaken("1.5.5", "1.5");
  for (const std::string_view text :
       {"", "-", "-x", ".5", "5.", "5.e3", "5e", "5e+", "5e+-1", "+5"})
    EXPECT_EQ(anyNumber(text), std::nullopt) << text;
}

}  // namespace
}  // namespace korrin::json
