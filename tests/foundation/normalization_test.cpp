#include "korrin/foundation/normalization.h"

#include <functional>
#include <random>
#include <set>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/foundation/text.h"
#include "korrin/foundation/utf8.h"

#include "tests/support/effort.h"
#include "tests/support/unicode_data.h"

namespace korrin {
namespace {

constexpr bool isScalar(char32_t value) {
  return value < 0xD800 || (value > 0xDFFF && value < 0x110000);
}

class PublishedNormalization : public testing::Test {
 protected:
  void SetUp() override {
    auto found = test::normalizationRows();
    if (!found) GTEST_SKIP() << "NormalizationTest.txt of the package unicode-data is not there";
    rows = std::move(*found);
    ASSERT_GT(rows.size(), 18'000u);
  }
  std::vector<test::NormalizationRow> rows;
};

TEST_F(PublishedNormalization, IsReachedFromEveryForm) {
  std::size_t singleScalars = 0;
  for (const auto& row : rows) {
    singleScalars += row.isSingleScalar ? 1 : 0;
    for (const std::string& form : {row.source, row.nfc, row.nfd})
      ASSERT_EQ(toNFC(form), row.nfc) << row.source;
    for (const std::string& form : {row.nfkc, row.nfkd})
      ASSERT_EQ(toNFC(form), row.nfkc) << row.source;
  }
  EXPECT_GT(singleScalars, 16'000u);
}

TEST_F(PublishedNormalization, MakesItsFormsEqualTexts) {
  const std::hash<Text> hash;
  for (const auto& row : rows) {
    const Text source = row.source, composed = row.nfc, decomposed = row.nfd;
    ASSERT_TRUE(source == composed && composed == decomposed && source == decomposed);
    ASSERT_TRUE(hash(source) == hash(composed) && hash(composed) == hash(decomposed));
    ASSERT_TRUE(Text(row.nfkc) == Text(row.nfkd));
    ASSERT_EQ(hash(row.nfkc), hash(row.nfkd));
    ASSERT_EQ(source == Text(row.nfkc), row.nfc == row.nfkc) << row.source;
  }
}

TEST_F(PublishedNormalization, LeavesEveryScalarAloneThatItDoesNotList) {
  std::set<std::string> listed;
  for (const auto& row : rows)
    if (row.isSingleScalar) listed.insert(row.source);
  std::size_t changed = 0;
  for (char32_t scalar = 0; scalar < 0x110000; ++scalar) {
    if (!isScalar(scalar)) continue;
    const std::string text = test::utf8Of(scalar);
    if (!listed.contains(text) && toNFC(text) != text) ++changed;
  }
  EXPECT_EQ(changed, 0u);
}

TEST(Normalization, CallsNoScalarStableThatItChanges) {
  std::size_t wrong = 0;
  std::size_t stable = 0;
  for (char32_t scalar = 0; scalar < 0x110000; ++scalar) {
    if (!isScalar(scalar)) continue;
    const std::string text = test::utf8Of(scalar);
    if (!isStableNFC(text)) continue;
    ++stable;
    if (toNFC(text) != text) ++wrong;
  }
  EXPECT_EQ(wrong, 0u);
  EXPECT_GT(stable, 1'000'000u);
}

// Everything that a normal form can change or move, and everything that such things are made of.
std::vector<char32_t> relevantScalars() {
  std::set<char32_t> relevant = {'a',    'e',    '<',    0x00E9, 0x1100, 0x1112, 0x1161, 0x1175,
                                 0x11A8, 0x11C2, 0xAC00, 0xAC01, 0xD7A3, 0x0DDD, 0x1F00, 0x4E00};
  const auto addAll = [&relevant](std::string_view text) {
    while (!text.empty()) {
      const utf8::Step step = utf8::step(text);
      relevant.insert(step.scalar);
      text.remove_prefix(step.length);
    }
  };
  const auto rows = test::normalizationRows();
  if (!rows) return {};
  for (const auto& row : *rows) {
    if (row.isSingleScalar && row.source >= "\uAC00" && row.source <= "\uD7A3") continue;
    addAll(row.source);
    addAll(row.nfc);
    addAll(row.nfd);
  }
  return {relevant.begin(), relevant.end()};
}

TEST(Normalization, LetsBytesDecideBetweenStableTexts) {
  const std::vector<char32_t> scalars = relevantScalars();
  if (scalars.empty())
    GTEST_SKIP() << "NormalizationTest.txt of the package unicode-data is not there";
  constexpr unsigned seed = 20260718;
  SCOPED_TRACE(testing::Message() << "seed " << seed);
  std::mt19937 random(seed);
  const auto below = [&random](std::size_t count) { return random() % count; };
  std::size_t stable = 0;
  for (int i = 0; i < test::repetitions(2'000'000, 150'000); ++i) {
    std::string text;
    for (std::size_t length = 1 + below(5); length != 0; --length)
      utf8::append(text, scalars[below(scalars.size())]);
    const std::string composed = toNFC(text);
    ASSERT_EQ(toNFC(composed), composed) << text;
    ASSERT_EQ(Text(text), Text(composed)) << text;
    if (!isStableNFC(text)) continue;
    ++stable;
    ASSERT_EQ(composed, text);
  }
  EXPECT_GT(stable, 1000u);
}

// A stable text is one whatever stands beside it, so two of them side by side are stable as well.
TEST(Normalization, LeavesStableScalarsAloneBesideEachOther) {
  std::vector<char32_t> scalars = relevantScalars();
  if (scalars.empty())
    GTEST_SKIP() << "NormalizationTest.txt of the package unicode-data is not there";
  std::erase_if(scalars, [](char32_t scalar) { return !isStableNFC(test::utf8Of(scalar)); });
  ASSERT_GT(scalars.size(), 1000u);
  const auto stride = static_cast<std::size_t>(test::repetitions(1, 37));
  std::size_t wrong = 0;
  for (std::size_t i = 0; i < scalars.size(); i += stride) {
    std::string text;
    for (const char32_t second : scalars) {
      utf8::append(text, scalars[i]);
      utf8::append(text, second);
    }
    if (toNFC(text) != text) ++wrong;
  }
  EXPECT_EQ(wrong, 0u);
}

TEST(Normalization, KeepsTheEmptyTextAndPlainText) {
  EXPECT_EQ(toNFC(""), "");
  EXPECT_TRUE(isStableNFC(""));
  EXPECT_EQ(toNFC("plain"), "plain");
  EXPECT_TRUE(
      isStableNFC("Sch\u00F6ne Gr\u00FC\u00DFe \u2013 \u201Eok\u201C \u65E5\u672C \U0001F3B8"));
  EXPECT_FALSE(isStableNFC("e\u0301"));
  EXPECT_FALSE(isStableNFC("\uAC00\u11A8"));
}

}  // namespace
}  // namespace korrin
