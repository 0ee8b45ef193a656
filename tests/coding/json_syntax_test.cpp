#include "tests/support/json_syntax.h"

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/model/document_coding.h"

#include "tests/support/corpora.h"
#include "tests/support/decoding_outcome.h"
#include "tests/support/files.h"

namespace korrin {
namespace {

using test::asUnknownMember;
using test::syntaxFault;

struct Accepted {
  std::string name;
  std::string text;
};
void PrintTo(const Accepted& row, std::ostream* out) { *out << row.text; }

class AcceptedSyntax : public testing::TestWithParam<Accepted> {};

TEST_P(AcceptedSyntax, IsTakenAloneAndInsideAnIgnoredMember) {
  EXPECT_EQ(syntaxFault(GetParam().text), std::nullopt);
  EXPECT_EQ(syntaxFault(" \t\r\n" + GetParam().text + " \t\r\n"), std::nullopt);
  EXPECT_NO_THROW(peekVersions(asUnknownMember(GetParam().text)));
}

INSTANTIATE_TEST_SUITE_P(
    , AcceptedSyntax,
    testing::Values(
        Accepted{"True", "true"}, Accepted{"False", "false"}, Accepted{"Null", "null"},
        Accepted{"Zero", "0"}, Accepted{"NegativeZero", "-0"}, Accepted{"Fraction", "1.50"},
        Accepted{"Exponent", "1E+05"}, Accepted{"HugeNumber", "-1e99999"},
        Accepted{"EmptyString", R"("")"}, Accepted{"EveryEscape", R"("\"\\\/\b\f\n\r\t\u00Fe")"},
        Accepted{"EscapedNUL", R"("\u0000")"}, Accepted{"SurrogatePair", R"("\uD834\udd1e")"},
        Accepted{"FirstSurrogatePair", R"("\uD800\uDC00")"},
        Accepted{"LastSurrogatePair", R"("\uDBFF\uDFFF")"}, Accepted{"Delete", "\"\x7F\""},
        Accepted{"Noncharacter", "\"\uFFFF\uFDD0\""},
        Accepted{"ByteOrderMarkInAString", "\"\uFEFF\""},
        Accepted{"LineSeparatorInAString", "\"\u2028\""},
        Accepted{"LongString", '"' + std::string(1000, 'x') + "\u00E9" + std::string(9, 'y') + '"'},
        Accepted{"EmptyArray", "[ ]"}, Accepted{"EmptyObject", "{ }"},
        Accepted{"NestedArrays", "[[],[[]],{}]"},
        Accepted{"RepeatedUnknownKeys", R"({"a":1,"a":[],"":null,"":{}})"},
        Accepted{"SpaceEverywhere", "[ 1 , { \"a\" : 2 ,\n\t\"b\" : [ ] } , \"\" ]"}),
    [](const auto& row) { return row.param.name; });

struct Malformed {
  std::string name;
  std::string text;
  std::string message;
};
void PrintTo(const Malformed& row, std::ostream* out) { *out << row.text; }

class MalformedSyntax : public testing::TestWithParam<Malformed> {};

TEST_P(MalformedSyntax, IsRefusedWithLineAndColumn) {
  EXPECT_EQ(test::refusalOf<DocumentVersions>(GetParam().text),
            test::refusedAt("", DecodingError::Kind::dataCorrupted, GetParam().message));
  EXPECT_EQ(syntaxFault(GetParam().text), GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    , MalformedSyntax,
    testing::Values(
        Malformed{"Nothing", "",
                  "line 1, column 1: expected a value, found the end of the document"},
        Malformed{"OnlySpace", " \n ",
                  "line 2, column 2: expected a value, found the end of the document"},
        Malformed{"ByteOrderMark", "\uFEFF{}",
                  "line 1, column 1: expected a value, found a byte order mark"},
        Malformed{"NUL", std::string("\0", 1),
                  "line 1, column 1: expected a value, found the byte 0x00"},
        Malformed{"NULBehind", std::string("{}\0", 3),
                  "line 1, column 3: expected the end of the document, found the byte 0x00"},
        Malformed{"TwoValues", "{} {}",
                  "line 1, column 4: expected the end of the document, found '{'"},
        Malformed{"CapitalTrue", "True", "line 1, column 1: expected a value, found 'T'"},
        Malformed{"CutLiteral", "[nul]", "line 1, column 2: expected a value, found 'n'"},
        Malformed{"LongLiteral", "[nulls]", "line 1, column 6: expected \",\" or \"]\", found 's'"},
        Malformed{"NaN", "[NaN]", "line 1, column 2: expected a value, found 'N'"},
        Malformed{"Infinity", "[-Infinity]", "line 1, column 3: expected a digit, found 'I'"},
        Malformed{"PlusSign", "[+1]", "line 1, column 2: expected a value, found '+'"},
        Malformed{"LeadingZero", "[01]", "line 1, column 3: expected \",\" or \"]\", found '1'"},
        Malformed{"LeadingPoint", "[.5]", "line 1, column 2: expected a value, found '.'"},
        Malformed{"NothingBehindThePoint", "[1.]", "line 1, column 4: expected a digit, found ']'"},
        Malformed{"NothingBehindTheExponent", "[1e+]",
                  "line 1, column 5: expected a digit, found ']'"},
        Malformed{"LoneMinus", "-",
                  "line 1, column 2: expected a digit, found the end of the "
                  "document"},
        Malformed{"Hexadecimal", "[0x1F]", "line 1, column 3: expected \",\" or \"]\", found 'x'"},
        Malformed{"CommaAtTheEnd", "[1,]", "line 1, column 4: expected a value, found ']'"},
        Malformed{"CommaAtTheStart", "[,1]", "line 1, column 2: expected a value, found ','"},
        Malformed{"NoComma", "[1 2]", "line 1, column 4: expected \",\" or \"]\", found '2'"},
        Malformed{"WrongBracket", "[1}", "line 1, column 3: expected \",\" or \"]\", found '}'"},
        Malformed{"WrongBrace", "{\"a\":1]",
                  "line 1, column 7: expected \",\" or \"}\", found ']'"},
        Malformed{"NoColon", "{\"a\" 1}",
                  "line 1, column 6: expected \":\" after the key, found '1'"},
        Malformed{"NoValue", "{\"a\":}", "line 1, column 6: expected a value, found '}'"},
        Malformed{"BareKey", "{a:1}",
                  "line 1, column 2: expected a key in quotation marks, found 'a'"},
        Malformed{"NumberAsKey", "{1:1}",
                  "line 1, column 2: expected a key in quotation marks, found '1'"},
        Malformed{"CommaBehindTheLastMember", "{\"a\":1,}",
                  "line 1, column 8: expected a key in quotation marks, found '}'"},
        Malformed{"SingleQuotes", "['a']", "line 1, column 2: expected a value, found '''"},
        Malformed{"Comment", "[1] // no",
                  "line 1, column 5: expected the end of the document, found '/'"},
        Malformed{"OpenArray", "[1",
                  "line 1, column 3: expected \",\" or \"]\", found the end of "
                  "the document"},
        Malformed{"OpenString", "[\"abc",
                  "line 1, column 6: expected the string's closing quotation mark, found the end "
                  "of the document"},
        Malformed{"ControlCharacter", "[\"a\nb\"]",
                  "line 1, column 4: expected no control character inside a string, found the "
                  "byte 0x0A"},
        Malformed{"UnknownEscape", R"(["a\x41"])",
                  "line 1, column 4: expected one of the escapes of JSON, found '\\'"},
        Malformed{"ShortEscape", R"(["\u12"])",
                  "line 1, column 3: expected four hexadecimal digits after \\u, found '\\'"},
        Malformed{"BackslashAtTheEnd", "\"\\",
                  "line 1, column 3: expected the rest of an escape, found the end of the "
                  "document"},
        Malformed{"LoneHighSurrogate", R"(["\uD800"])",
                  "line 1, column 3: expected no lone surrogate, found '\\'"},
        Malformed{"HighSurrogateBeforeAnother", R"(["\uD800\uD800\uDC00"])",
                  "line 1, column 3: expected no lone surrogate, found '\\'"},
        Malformed{"HighSurrogateBeforeAnotherEscape", R"(["\uDBFF\n"])",
                  "line 1, column 3: expected no lone surrogate, found '\\'"},
        Malformed{"LoneLowSurrogate", R"(["ok\uDC00"])",
                  "line 1, column 5: expected no lone surrogate, found '\\'"},
        Malformed{"SurrogateAsBytes", "[\"\xED\xA0\x80\"]",
                  "line 1, column 3: expected well-formed UTF-8, found the byte 0xED"},
        Malformed{"OverlongForm", "[\"\xC0\xAF\"]",
                  "line 1, column 3: expected well-formed UTF-8, found the byte 0xC0"},
        Malformed{"TruncatedCharacter", "[\"\xE2\x82\"]",
                  "line 1, column 3: expected well-formed UTF-8, found the byte 0xE2"},
        Malformed{"IllFormedBetweenTokens", "[\xFF]",
                  "line 1, column 2: expected a value, found the byte 0xFF"},
        Malformed{"OtherWhiteSpace", "[\u00A0]",
                  "line 1, column 2: expected a value, found '\u00A0'"},
        Malformed{"FormFeed", "[\f]", "line 1, column 2: expected a value, found the byte 0x0C"},
        Malformed{"ColumnsCountCharacters", "{\"\u00E9\u20AC\U0001D11E\" 1}",
                  "line 1, column 8: expected \":\" after the key, found '1'"},
        Malformed{"LinesEndWithLineFeeds", "[\r\n1,\r\n\r\n  2 3\n]",
                  "line 4, column 5: expected \",\" or \"]\", found '3'"}),
    [](const auto& row) { return row.param.name; });

TEST(Syntax, IsCheckedInIgnoredMembersToo) {
  for (const std::string value : {"", "01", "[1,]", "{\"a\":1,}", "\"\\x\"", "\"\xFF\"", "nul",
                                  "\"\\uD800\"", "[\"\t\"]", "+1", "}", "1 2"}) {
    const auto refusal = test::refusalOf<DocumentVersions>(asUnknownMember(value));
    ASSERT_TRUE(refusal.has_value()) << value;
    EXPECT_EQ(refusal->kind, DecodingError::Kind::dataCorrupted) << value;
    EXPECT_TRUE(refusal->message.starts_with("line 1, column ")) << refusal->message;
  }
}

TEST(Syntax, GoesBeforeEveryFieldThatIsWrong) {
  EXPECT_EQ(test::refusalOf<DocumentVersions>(R"({"schemaVersion":"1","x":[1,]})"),
            test::refusedAt("", DecodingError::Kind::dataCorrupted,
                            "line 1, column 29: expected a value, found ']'"));
}

// What this reader makes of the cases that a conforming reader may take or leave.
const std::map<std::string, std::pair<bool, std::string>> openCases = {
    // A number is judged by the field that asks for it; an ignored one only by its grammar.
    {"i_number_double_huge_neg_exp", {true, "a number by its grammar"}},
    {"i_number_huge_exp", {true, "a number by its grammar"}},
    {"i_number_neg_int_huge_exp", {true, "a number by its grammar"}},
    {"i_number_pos_double_huge_exp", {true, "a number by its grammar"}},
    {"i_number_real_neg_overflow", {true, "a number by its grammar"}},
    {"i_number_real_pos_overflow", {true, "a number by its grammar"}},
    {"i_number_real_underflow", {true, "a number by its grammar"}},
    {"i_number_too_big_neg_int", {true, "a number by its grammar"}},
    {"i_number_too_big_pos_int", {true, "a number by its grammar"}},
    {"i_number_very_big_negative_int", {true, "a number by its grammar"}},
    {"i_object_key_lone_2nd_surrogate", {false, "a lone surrogate is no character"}},
    {"i_string_1st_surrogate_but_2nd_missing", {false, "a lone surrogate is no character"}},
    {"i_string_1st_valid_surrogate_2nd_invalid", {false, "a lone surrogate is no character"}},
    {"i_string_incomplete_surrogate_and_escape_valid", {false, "a lone surrogate"}},
    {"i_string_incomplete_surrogate_pair", {false, "a lone surrogate is no character"}},
    {"i_string_incomplete_surrogates_escape_valid", {false, "a lone surrogate"}},
    {"i_string_invalid_lonely_surrogate", {false, "a lone surrogate is no character"}},
    {"i_string_invalid_surrogate", {false, "a lone surrogate is no character"}},
    {"i_string_inverted_surrogates_U+1D11E", {false, "a lone surrogate is no character"}},
    {"i_string_lone_second_surrogate", {false, "a lone surrogate is no character"}},
    {"i_string_UTF-16LE_with_BOM", {false, "documents are UTF-8"}},
    {"i_string_utf16BE_no_BOM", {false, "documents are UTF-8"}},
    {"i_string_utf16LE_no_BOM", {false, "documents are UTF-8"}},
    {"i_string_UTF-8_invalid_sequence", {false, "ill-formed UTF-8"}},
    {"i_string_UTF8_surrogate_U+D800", {false, "ill-formed UTF-8"}},
    {"i_string_invalid_utf-8", {false, "ill-formed UTF-8"}},
    {"i_string_iso_latin_1", {false, "ill-formed UTF-8"}},
    {"i_string_lone_utf8_continuation_byte", {false, "ill-formed UTF-8"}},
    {"i_string_not_in_unicode_range", {false, "ill-formed UTF-8"}},
    {"i_string_overlong_sequence_2_bytes", {false, "ill-formed UTF-8"}},
    {"i_string_overlong_sequence_6_bytes", {false, "ill-formed UTF-8"}},
    {"i_string_overlong_sequence_6_bytes_null", {false, "ill-formed UTF-8"}},
    {"i_string_truncated-utf-8", {false, "ill-formed UTF-8"}},
    {"i_structure_500_nested_arrays", {true, "within the 512 levels that are promised"}},
    {"i_structure_UTF-8_BOM_empty_object", {false, "a byte order mark is no white space"}},
};

TEST(Syntax, AgreesWithAnotherAuthorsSuite) {
  const auto folder = test::corpusFolder("json/nst");
  if (!folder) GTEST_SKIP() << "the corpora are not beside the repository";
  std::map<char, int> counts;
  for (const auto& entry : std::filesystem::directory_iterator(*folder)) {
    const std::string name = entry.path().stem();
    SCOPED_TRACE(name);
    ++counts[name.front()];
    const std::string text = test::contentOf(entry.path());
    ASSERT_TRUE(name.front() != 'i' || openCases.contains(name));
    const bool isAccepted =
        name.front() == 'y' || (name.front() == 'i' && openCases.at(name).first);
    EXPECT_EQ(!syntaxFault(text).has_value(), isAccepted);
    const auto refusal = test::refusalOf<DocumentVersions>(asUnknownMember(text));
    EXPECT_EQ(!refusal.has_value(), isAccepted);
    if (refusal) {
      EXPECT_EQ(refusal->kind, DecodingError::Kind::dataCorrupted);
    }
  }
  EXPECT_EQ(counts['y'], 95);
  EXPECT_EQ(counts['n'], 188);
  EXPECT_EQ(counts['i'], static_cast<int>(openCases.size()));
}

}  // namespace
}  // namespace korrin
