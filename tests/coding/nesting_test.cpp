#include <string>

#include <gtest/gtest.h>

#include "korrin/model/document_coding.h"

#include "tests/support/decoding_outcome.h"
#include "tests/support/effort.h"
#include "tests/support/full_project.h"
#include "tests/support/json_syntax.h"
#include "tests/support/small_stack.h"

namespace korrin {
namespace {

using Kind = DecodingError::Kind;
using test::asUnknownMember;
using test::refusalOf;
using test::syntaxFault;

std::string repeated(const std::string& text, int count) {
  std::string all;
  all.reserve(text.size() * static_cast<std::size_t>(count));
  for (; count != 0; --count) all += text;
  return all;
}
std::string arrays(int depth) { return repeated("[", depth) + repeated("]", depth); }
std::string objects(int depth) {
  return repeated("{\"a\":", depth - 1) + "{}" + repeated("}", depth - 1);
}
// Arrays in objects in arrays.
std::string mixed(int depth) {
  std::string opening, closing;
  for (int i = 0; i < depth; ++i) {
    opening += i % 2 == 0 ? "[" : "{\"k\":";
    closing.insert(0, i % 2 == 0 ? "]" : "}");
  }
  return opening + "0" + closing;
}

TEST(Nesting, IsAcceptedToTheLimitAndRefusedBeyond) {
  for (const auto& nested : {arrays, objects, mixed}) {
    EXPECT_EQ(syntaxFault(nested(512)), std::nullopt);
    ASSERT_TRUE(syntaxFault(nested(513)).has_value());
    EXPECT_NE(syntaxFault(nested(513))->find("expected at most 512 levels of nesting"),
              std::string::npos);
  }
}

TEST(Nesting, CountsTheRecordsAroundAnIgnoredValue) {
  for (const auto& nested : {arrays, objects, mixed}) {
    EXPECT_EQ(refusalOf<DocumentVersions>(asUnknownMember(nested(511))), std::nullopt);
    const auto refusal = refusalOf<DocumentVersions>(asUnknownMember(nested(512)));
    ASSERT_TRUE(refusal.has_value());
    EXPECT_EQ(refusal->kind, Kind::dataCorrupted);
    EXPECT_EQ(refusal->keyPath, "");
  }
}

TEST(Nesting, IsTheSameForAMemberDeepInsideAProject) {
  const std::string document = encodeJSON(test::fullProject());
  const std::string place = "\"labelVisible\"";  // inside a style in an item in a list in a project
  const auto withMember = [&](int depth) {
    std::string text = document;
    return text.insert(text.find(place), "\"later\":" + arrays(depth) + ",");
  };
  EXPECT_TRUE(decodeJSON<KorrinProject>(withMember(508)) == test::fullProject());
  const auto refusal = refusalOf<KorrinProject>(withMember(509));
  ASSERT_TRUE(refusal.has_value());
  EXPECT_EQ(refusal->kind, Kind::dataCorrupted);
}

TEST(Nesting, EndsSoThatSiblingsMayNestAgain) {
  std::string siblings = "[";
  for (int i = 0; i < 100; ++i) siblings += arrays(511) + "," + objects(511) + ",";
  EXPECT_EQ(syntaxFault(siblings + "1]"), std::nullopt);
}

TEST(Nesting, OfTenMillionBracketsIsRefusedAtTheFirstTooMany) {
  constexpr int many = 10'000'000;
  const std::string message =
      "line 1, column 513: expected at most 512 levels of nesting, found '['";
  const std::string open = repeated("[", many);
  EXPECT_EQ(refusalOf<KorrinProject>(open), test::refusedAt("", Kind::dataCorrupted, message));
  EXPECT_EQ(refusalOf<List<PlotItem>>(open), test::refusedAt("", Kind::dataCorrupted, message));
  EXPECT_TRUE(refusalOf<DocumentVersions>(asUnknownMember(open)).has_value());
  EXPECT_TRUE(refusalOf<KorrinProject>(repeated("{\"metadata\":", many / 10)).has_value());
}

TEST(Nesting, NeedsNoStack) {
  const std::string deep = asUnknownMember(mixed(511));
  const std::string tooDeep = asUnknownMember(mixed(512));
  const std::string document = encodeJSON(test::fullProject());
  // Sanitizers surround every local variable with guards: there, only runaway recursion is found.
  constexpr std::size_t stackBytes = (test::isSanitized ? 1024 : 128) * 1024;
  test::runOnStack(stackBytes, [&] {
    EXPECT_EQ(refusalOf<DocumentVersions>(deep), std::nullopt);
    EXPECT_TRUE(refusalOf<DocumentVersions>(tooDeep).has_value());
    EXPECT_TRUE(decodeJSON<KorrinProject>(document) == test::fullProject());
    EXPECT_TRUE(refusalOf<KorrinProject>("{}").has_value());
  });
}

}  // namespace
}  // namespace korrin
