#include "korrin/coding/key_table.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace korrin::json {
namespace {

using namespace std::string_view_literals;

// All texts of three of the first eight letters; those that differ in the first one hash alike.
std::vector<std::string> threeLetterTexts() {
  std::vector<std::string> texts;
  for (const char first : "abcdefgh"sv)
    for (const char second : "abcdefgh"sv)
      for (const char third : "abcdefgh"sv) texts.push_back({first, second, third});
  return texts;
}

TEST(KeyTable, FindsEachKeyAtItsPlace) {
  constexpr KeyTable table(std::array{"id"sv, "name"sv, "isVisible"sv, "isLocked"sv});
  EXPECT_EQ(table.placeOf("id"), 0u);
  EXPECT_EQ(table.placeOf("name"), 1u);
  EXPECT_EQ(table.placeOf("isVisible"), 2u);
  EXPECT_EQ(table.placeOf("isLocked"), 3u);
}

TEST(KeyTable, TakesNoKeyThatASearchWouldPassOver) {
  using Table = KeyTable<1>;
  const std::string longest(Table::longestKey, 'k');
  EXPECT_EQ(Table(std::array{std::string_view(longest)}).placeOf(longest), 0u);
  const std::string longer = longest + 'k';
  EXPECT_ANY_THROW(Table(std::array{std::string_view(longer)}));
}

TEST(KeyTable, FindsNoOtherText) {
  constexpr KeyTable table(std::array{"id"sv, "name"sv});
  for (const std::string_view other : {""sv, "i"sv, "Id"sv, "ids"sv, "nane"sv, "game"sv, "id\0"sv})
    EXPECT_EQ(table.placeOf(other), 2u) << other;
}

TEST(KeyTable, FindsWhatASearchOneByOneFinds) {
  constexpr std::size_t count = 32;
  const std::vector<std::string> texts = threeLetterTexts();
  for (std::size_t first = 0; first < texts.size(); ++first) {
    std::array<std::string_view, count> keys;
    for (std::size_t place = 0; place < count; ++place)
      keys[place] = texts[(first + place * 16) % texts.size()];
    const KeyTable table(keys);
    for (const std::string& text : texts) {
      const auto found =
          static_cast<std::size_t>(std::find(keys.begin(), keys.end(), text) - keys.begin());
      ASSERT_EQ(table.placeOf(text), found)
          << text << " among those from " << texts[first] << " on";
    }
  }
}

}  // namespace
}  // namespace korrin::json
