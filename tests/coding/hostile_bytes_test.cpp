#include <algorithm>
#include <array>
#include <bit>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "korrin/model/document_coding.h"

#include "tests/coding/json_oracles.h"
#include "tests/support/decoding_outcome.h"
#include "tests/support/effort.h"
#include "tests/support/files.h"
#include "tests/support/full_project.h"
#include "tests/support/json_syntax.h"

namespace korrin {
namespace {

using Json = nlohmann::json;
using Kind = DecodingError::Kind;
using test::syntaxFault;

// Compares what was decoded with what another author's reader finds at the same places.
void expectSame(bool value, const Json& json) { ASSERT_EQ(value, json.get<bool>()); }
void expectSame(std::int64_t value, const Json& json) {
  if (json.is_number_integer())
    ASSERT_EQ(value, json.get<std::int64_t>());
  else  // in another notation, which this reader rounds
    ASSERT_EQ(static_cast<double>(value), json.get<double>());
}
void expectSame(double value, const Json& json) {
  if (value == 0)  // this reader takes -0 for the integer 0
    ASSERT_EQ(json.get<double>(), 0.0);
  else
    ASSERT_EQ(std::bit_cast<std::uint64_t>(value),
              std::bit_cast<std::uint64_t>(json.get<double>()));
}
void expectSame(const Text& value, const Json& json) {
  ASSERT_EQ(value.str(), json.get<std::string>());
}
void expectSame(const UUID& value, const Json& json) {
  std::string text = json.get<std::string>();
  std::ranges::transform(text, text.begin(),
                         [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  ASSERT_EQ(value.text(), text);
}
void expectSame(Instant, const Json& json) { ASSERT_TRUE(json.is_string()); }
template <RawValueEnumeration Enumeration>
void expectSame(Enumeration value, const Json& json) {
  ASSERT_EQ(rawValue(value), json.get<std::string>());
}
template <RecordType Record>
void expectSame(const Record& record, const Json& json);
template <class Element>
void expectSame(const List<Element>& list, const Json& json) {
  ASSERT_EQ(list.size(), json.size());
  for (std::size_t i = 0; i < list.size(); ++i) expectSame(list[i], json[i]);
}
template <class Value>
void expectSame(const std::optional<Value>& value, const Json& json) {
  ASSERT_EQ(value.has_value(), !json.is_null());
  if (value) expectSame(*value, json);
}
template <RecordType Record>
void expectSame(const Record& record, const Json& json) {
  forEachField<Record>([&](const auto& field) {
    const auto found = json.find(field.key);
    expectSame(record.*field.member, found == json.end() ? Json() : *found);
  });
}

// Decodes, or is refused as a `DecodingError`; the first only when the text is JSON, and then with
// the values that stand in it. Returns whether it decodes.
bool expectOrderlyOutcome(const std::string& text) {
  const auto fault = syntaxFault(text);
  try {
    const auto project = decodeJSON<KorrinProject>(text);
    EXPECT_FALSE(fault.has_value());
    const std::string written = encodeJSON(project);
    EXPECT_EQ(encodeJSON(decodeJSON<KorrinProject>(written)), written);
    if (test::nlohmannVerdict(text) == test::Verdict::accepted)
      expectSame(project, Json::parse(text));
    return true;
  } catch (const DecodingError& error) {
    if (fault) {
      EXPECT_EQ(error.kind(), Kind::dataCorrupted);
      EXPECT_EQ(error.keyPath(), "");
      EXPECT_EQ(error.what(), *fault);
    } else {
      EXPECT_TRUE(
          std::string(error.what())
              .starts_with(error.keyPath().empty() ? "expected " : error.keyPath() + ": expected "))
          << error.what();
    }
    return false;
  }
}

class Mutator {
 public:
  explicit Mutator(unsigned seed) : random_(seed) {}

  // The text with one to three changes.
  std::string operator()(std::string text) {
    for (std::size_t count = 1 + below(3); count != 0 && !text.empty(); --count) change(text);
    return text;
  }

 private:
  std::size_t below(std::size_t count) { return random_() % count; }

  void change(std::string& text) {
    static const std::vector<std::string> tokens = {"{",
                                                    "}",
                                                    "[",
                                                    "]",
                                                    ",",
                                                    ":",
                                                    "\"",
                                                    "\\",
                                                    "0",
                                                    "-",
                                                    "+",
                                                    ".",
                                                    "1e5",
                                                    "-0",
                                                    "e",
                                                    "E400",
                                                    "true",
                                                    "false",
                                                    "null",
                                                    "nul",
                                                    " ",
                                                    "\n",
                                                    "\t",
                                                    "\x01",
                                                    "\\u0041",
                                                    "\\uD834\\uDD1E",
                                                    "\\uDC00",
                                                    "\\uD800",
                                                    "\\n",
                                                    "\\x",
                                                    "\"\"",
                                                    "[]",
                                                    "{}",
                                                    "\"id\":",
                                                    "\"name\":\"\",",
                                                    "\u00E9",
                                                    "\u20AC",
                                                    "\xC3",
                                                    "\xE2\x82",
                                                    "\xED\xA0\x80",
                                                    "\xFF",
                                                    "\uFEFF",
                                                    std::string("\0", 1),
                                                    "1.5",
                                                    "9223372036854775808",
                                                    "//",
                                                    "'"};
    const std::size_t place = below(text.size());
    switch (below(6)) {
      case 0:  // a bit of a byte
        text[place] = static_cast<char>(text[place] ^ (1 << below(8)));
        return;
      case 1:  // a byte
        text[place] = static_cast<char>(below(256));
        return;
      case 2:  // a deletion
        text.erase(place, 1 + below(8));
        return;
      case 3:  // a piece of the text once more
        text.insert(place, text.substr(below(text.size()), 1 + below(40)));
        return;
      case 4:  // a token inserted
        text.insert(place, tokens[below(tokens.size())]);
        return;
      default:  // a token for another
        exchangeToken(text, place, tokens[below(tokens.size())]);
    }
  }

  static void exchangeToken(std::string& text, std::size_t place, const std::string& token) {
    constexpr std::string_view punctuation = "{}[],:\"";
    const std::size_t start = text.find_first_of(punctuation, place);
    if (start == std::string::npos) return;
    const std::size_t end = std::min(text.find_first_of(punctuation, start + 1), text.size());
    if (token.size() == 1)
      text.replace(start, 1, token);
    else
      text.replace(start + 1, end - start - 1, token);
  }

  std::mt19937 random_;
};

std::string compact(const std::string& name) {
  return Json::parse(test::contentOfSource("examples/documents/" + name)).dump();
}

TEST(HostileBytes, AreJudgedAsOtherReadersJudgeThem) {
  constexpr unsigned seed = 31;
  SCOPED_TRACE(testing::Message() << "seed " << seed);
  Mutator mutated(seed);
  const std::vector<std::string> documents = {
      encodeJSON(test::fullProject()), encodeJSON(test::fullProject(), {.prettyPrinted = true}),
      R"({"a":[1,-0.5e+3,"x\u00e9\n",{"b":null,"c":[true,false,[]]}],"":{}})",
      R"([0,10,1.25,-3E-7,"\ud834\udd1e \"q\" \\ \/",[[[{"k":[{}]}]]]])"};
  std::array<int, 2> accepted{};
  for (int i = 0; i < test::repetitions(200'000, 8'000); ++i) {
    const std::string text = mutated(documents[static_cast<std::size_t>(i) % documents.size()]);
    SCOPED_TRACE(testing::Message() << "round " << i << ": " << text);
    EXPECT_EQ(test::disagreement(text), std::nullopt);
    accepted[0] += syntaxFault(text) ? 0 : 1;
    accepted[1] += expectOrderlyOutcome(text) ? 1 : 0;
    if (HasFailure()) return;
  }
  // The mutations are neither all hopeless nor all harmless.
  EXPECT_GT(accepted[0], 500);
  EXPECT_GT(accepted[1], 100);
}

TEST(HostileBytes, InWholePlotsAreJudgedAsOtherReadersJudgeThem) {
  constexpr unsigned seed = 32;
  SCOPED_TRACE(testing::Message() << "seed " << seed);
  Mutator mutated(seed);
  const std::string document = compact("festival-main-stage.json");
  ASSERT_TRUE(expectOrderlyOutcome(document));
  for (int i = 0; i < test::repetitions(5'000, 300); ++i) {
    const std::string text = mutated(document);
    SCOPED_TRACE(testing::Message() << "round " << i);
    EXPECT_EQ(test::disagreement(text), std::nullopt);
    expectOrderlyOutcome(text);
    if (HasFailure()) return;
  }
}

TEST(HostileBytes, NeverMakeADocumentOfATruncatedOne) {
  for (const bool prettyPrinted : {false, true}) {
    const std::string document = encodeJSON(test::fullProject(), {.prettyPrinted = prettyPrinted});
    for (std::size_t length = 0; length < document.size(); ++length) {
      // Exactly as many bytes on the heap, so that a read beyond them is noticed.
      const std::vector<char> bytes(document.begin(),
                                    document.begin() + static_cast<std::ptrdiff_t>(length));
      const auto refusal = test::refusalOf<KorrinProject>({bytes.data(), bytes.size()});
      ASSERT_TRUE(refusal.has_value()) << length;
      ASSERT_EQ(refusal->kind, Kind::dataCorrupted) << length;
      ASSERT_TRUE(refusal->message.ends_with("found the end of the document") ||
                  refusal->message.find("escape") != std::string::npos ||
                  refusal->message.find("expected a value, found '") != std::string::npos ||
                  refusal->message.find("well-formed UTF-8") != std::string::npos)
          << refusal->message;
    }
  }
}

TEST(HostileBytes, OfNoKindEndInAnythingButADecodingError) {
  std::mt19937 random(33);
  for (int i = 0; i < test::repetitions(100'000, 10'000); ++i) {
    std::string text(random() % 40, '\0');
    for (char& c : text) c = static_cast<char>(random());
    ASSERT_TRUE(test::refusalOf<KorrinProject>(text).has_value());
    (void)test::refusalOf<List<PlotItem>>("[" + text);  // throws nothing else
  }
}

}  // namespace
}  // namespace korrin
