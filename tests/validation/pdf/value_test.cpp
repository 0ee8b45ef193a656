#include "korrin/validation/pdf/value.h"

#include <array>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace korrin::pdf {
namespace {

using Kind = Value::Kind;

Value valueOf(std::string_view text) {
  Budget budget(text.size());
  Scanner scanner(text, budget, 0);
  return readValue(scanner).value_or(Value{});
}

std::string stringOf(std::string_view text) {
  Budget budget(text.size());
  Scanner scanner(text, budget, 0);
  const ShortString string = readString(scanner);
  return std::string(asText(string.first(string.size)));
}

TEST(Value, IsReadWhereItStands) {
  EXPECT_EQ(valueOf("null").kind, Kind::null);
  EXPECT_EQ(valueOf("true").kind, Kind::other);
  EXPECT_TRUE(valueOf("true").isTrue);
  EXPECT_FALSE(valueOf("false").isTrue);
  EXPECT_EQ(valueOf("(a)").kind, Kind::string);
  EXPECT_EQ(valueOf("<61>").kind, Kind::string);
  EXPECT_EQ(valueOf("[1 2]").kind, Kind::array);
  EXPECT_EQ(valueOf("<</A 1>>").kind, Kind::dictionary);
  EXPECT_EQ(valueOf(" -1.5").number, -1.5);
  EXPECT_TRUE(valueOf("/Fl#61teDecode").isName("FlateDecode"));
}

TEST(Value, TellsNumbersFromOtherWords) {
  for (const char* text : {"0", "-1", "+1", ".5", "5.", "-.5", "00012"})
    EXPECT_EQ(valueOf(text).kind, Kind::number) << text;
  for (const char* text : {"-", "+", ".", "-.", "1e5", "1.2.3", "--1", "1-", "0x10", "inf", "nan"})
    EXPECT_EQ(valueOf(text).kind, Kind::other) << text;
}

TEST(Value, RoundsNumbersToTheNearest) {
  EXPECT_EQ(valueOf("0.1").number, 0.1);
  EXPECT_EQ(valueOf("20000.000000000001").number, 20000.000000000001);
  EXPECT_EQ(valueOf("000" + std::string(2000, '0') + "7.25").number, 7.25);
  EXPECT_EQ(valueOf("7." + std::string(2000, '0') + "1").number, 7);
  EXPECT_EQ(valueOf("-0").number, 0);
  EXPECT_EQ(valueOf("0.").number, 0);
  EXPECT_EQ(valueOf("." + std::string(400, '0') + "1").number, 0);
  EXPECT_EQ(valueOf("-." + std::string(400, '0') + "1").number, 0);
  EXPECT_EQ(valueOf("1" + std::string(308, '0')).number, 1e308);
  EXPECT_EQ(valueOf("-1" + std::string(309, '0')).number, -std::numeric_limits<double>::infinity());
  EXPECT_EQ(valueOf("1" + std::string(5000, '0')).number, std::numeric_limits<double>::infinity());
}

TEST(Value, EndsWithTheBytes) {
  EXPECT_EQ(valueOf(std::string_view("123").substr(0, 2)).number, 12);
  EXPECT_EQ(valueOf(std::string_view("1.53").substr(0, 3)).number, 1.5);
  EXPECT_TRUE(valueOf(std::string_view("/Flate").substr(0, 3)).isName("Fl"));
  EXPECT_EQ(stringOf(std::string_view("(a\\142)").substr(0, 5)), "a\x0C");
}

// A sanitizer sees a byte read behind these.
TEST(Value, IsNotLookedForBehindTheBytes) {
  const auto withNothingBehind = [](std::string_view text, const auto& read) {
    const std::vector<char> bytes(text.begin(), text.end());
    return read(std::string_view(bytes.data(), bytes.size()));
  };
  for (const char* text : {"12", "-1.5", "/Fl#6", "(a", "<6", "12 0 R"})
    EXPECT_FALSE(withNothingBehind(text, valueOf).isNull()) << text;
  EXPECT_EQ(withNothingBehind("(a\\\r", stringOf), "a");
  EXPECT_EQ(withNothingBehind("(a\\12", stringOf), "a\n");
  EXPECT_EQ(withNothingBehind("<61", stringOf), "a");
}

TEST(Value, TellsReferencesFromNumbers) {
  EXPECT_EQ(valueOf("12 0 R").kind, Kind::reference);
  EXPECT_EQ(valueOf("12 0 R").reference, 12u);
  EXPECT_EQ(valueOf("4294967295 65535 R").reference, 4294967295u);
  for (const char* text :
       {"12", "12 0", "12 0 obj", "12 0 RG", "12 (0) R", "1.5 0 R", "-1 0 R", "4294967296 0 R"})
    EXPECT_EQ(valueOf(text).kind, Kind::number) << text;
}

TEST(Value, LeavesWhatFollowsANumber) {
  const std::string_view text = "1 2 3 0 R";
  Budget budget(text.size());
  Scanner scanner(text, budget, 0);
  EXPECT_EQ(readValue(scanner)->number, 1);
  EXPECT_EQ(readValue(scanner)->number, 2);
  EXPECT_EQ(readValue(scanner)->reference, 3u);
  EXPECT_FALSE(readValue(scanner).has_value());
}

TEST(Value, IsASizeOnlyIfItIsWholeAndNotNegative) {
  EXPECT_EQ(valueOf("0").asSize(), 0u);
  EXPECT_EQ(valueOf("12.0").asSize(), 12u);
  EXPECT_EQ(valueOf("2147483647").asSize(), 2147483647u);
  EXPECT_EQ(valueOf("9007199254740992").asSize(), asOffset(9007199254740992));
  for (const char* text : {"-1", "0.5", "9007199254740994", "true", "/Name", "(1)"})
    EXPECT_EQ(valueOf(text).asSize(), std::nullopt) << text;
  EXPECT_EQ(valueOf(std::string(400, '9')).asSize(), std::nullopt);
}

TEST(Name, ResolvesEscapesAndKeepsWhatIsNone) {
  EXPECT_EQ(Name("/A#42C").text(), "ABC");
  EXPECT_EQ(Name("/A#4").text(), "A#4");
  for (const char* none : {"A#xyC", "A#4xC", "A#x4C", "A#4GC", "A#4gC", "A#4:C", "A#4/C", "A#4@C"})
    EXPECT_EQ(Name("/" + std::string(none)).text(), none);
  EXPECT_EQ(Name("/#4a#4B").text(), "JK");
  EXPECT_EQ(Name("/#2F").text(), "/");
  EXPECT_EQ(Name("/").text(), "");
}

TEST(Name, EqualsNothingOfInterestWhenItIsLong) {
  EXPECT_EQ(Name("/" + std::string(23, 'a')).text(), std::string(23, 'a'));
  EXPECT_EQ(Name("/" + std::string(24, 'a')).text(), "");
}

constexpr std::array<std::string_view, 2> wanted = {"A", "B"};

std::array<Value, 2> entriesOf(std::string_view text) {
  Budget budget(text.size());
  Scanner scanner(text, budget, 0);
  return readEntries(scanner, wanted);
}

TEST(Entries, AreFoundByKey) {
  const auto [a, b] = entriesOf("<</B[/A 7]/A 1/C<</A 8>>>>");
  EXPECT_EQ(a.number, 1);
  EXPECT_EQ(b.kind, Kind::array);
}

TEST(Entries, ThatAreMissingAreNull) {
  const auto [a, b] = entriesOf("<</C 1/D/A>>");
  EXPECT_TRUE(a.isNull());
  EXPECT_TRUE(b.isNull());
  EXPECT_TRUE(entriesOf("[/A 1]")[0].isNull());
  EXPECT_TRUE(entriesOf("")[0].isNull());
}

TEST(Entries, OfAnUnclosedDictionaryEndWithTheObject) {
  const auto [a, b] = entriesOf("<</A 1 endobj 2 0 obj<</B 2>>");
  EXPECT_EQ(a.number, 1);
  EXPECT_TRUE(b.isNull());
  EXPECT_EQ(entriesOf("<</A 1 stream /B 2 endstream")[0].number, 1);
  EXPECT_EQ(entriesOf("<</A 1")[0].number, 1);
}

TEST(Entries, AreFoundByAKeyWithEscapes) {
  const auto [a, b] = entriesOf("<</#41 1/#42#42 2>>");
  EXPECT_EQ(a.number, 1);
  EXPECT_TRUE(b.isNull());
}

TEST(Entries, PassOverWhatStandsWhereAKeyShould) {
  for (const char* stray : {"[/B 3]", "<</B 3>>", "(/B 3)", "<2F>", "]", "word", "7"})
    EXPECT_EQ(entriesOf("<</A 1 " + std::string(stray) + "/B 2>>")[1].number, 2) << stray;
}

TEST(Entries, PassOverAnUnknownKeyWithoutAValue) {
  EXPECT_EQ(entriesOf("<</C]/A 1>>")[0].number, 1);
  EXPECT_TRUE(entriesOf("<</C>>/A 1>>")[0].isNull());
  EXPECT_TRUE(entriesOf("<</C")[0].isNull());
}

TEST(Entries, GoOnAfterAKeyWithoutAValueAndAStrayWord) {
  const auto [a, b] = entriesOf("<</A 1 stray 7 [8]/B 2/C>>");
  EXPECT_EQ(a.number, 1);
  EXPECT_EQ(b.number, 2);
}

TEST(StringValue, ResolvesEscapes) {
  EXPECT_EQ(stringOf("(plain)"), "plain");
  EXPECT_EQ(stringOf("(a\\n\\r\\t\\b\\f\\(\\)\\\\\\x)"), "a\n\r\t\b\f()\\x");
  EXPECT_EQ(stringOf("(\\101\\60\\0)"), std::string("A0\0", 3));
  EXPECT_EQ(stringOf("(\\1018)"), "A8");
  EXPECT_EQ(stringOf("(\\10 )"), "\b ");
  EXPECT_EQ(stringOf("(\\777)"), "\xFF");
  EXPECT_EQ(stringOf("(a\\\nb\\\r\nc\\\rd)"), "abcd");
  EXPECT_EQ(stringOf("((nested))"), "(nested)");
  EXPECT_EQ(stringOf("(\\8\\/)"), "8/");
}

TEST(StringValue, EndsWithTheBytesWhenItIsUnclosed) {
  EXPECT_EQ(stringOf("("), "");
  EXPECT_EQ(stringOf("(a"), "a");
  EXPECT_EQ(stringOf("(a\\"), "a");
  EXPECT_EQ(stringOf("(a\\\r"), "a");
  EXPECT_EQ(stringOf("(\\10"), "\b");
  EXPECT_EQ(stringOf("<"), "");
  EXPECT_EQ(stringOf("<41"), "A");
}

TEST(StringValue, IsEmptyWhereSomethingElseStands) {
  for (const char* other : {"", "word", "/Name", "[(a)]"}) EXPECT_EQ(stringOf(other), "") << other;
}

TEST(StringValue, ReadsHexadecimalDigits) {
  EXPECT_EQ(stringOf("<48 65\n6C6c6F>"), "Hello");
  EXPECT_EQ(stringOf("<4>"), "@");
  EXPECT_EQ(stringOf("<4g1G:@/!>"), "A");
  EXPECT_EQ(stringOf("<>"), "");
}

TEST(StringValue, IsCutAtItsCapacity) {
  const std::string whole(ShortString::capacity, 'x');
  EXPECT_EQ(stringOf("(" + whole + ")"), whole);
  EXPECT_EQ(stringOf("(" + std::string(500, 'x') + ")"), whole);
  std::string digits;
  for (int i = 0; i < 500; ++i) digits += "78";
  EXPECT_EQ(stringOf("<" + digits + "7>"), whole);
}

}  // namespace
}  // namespace korrin::pdf
