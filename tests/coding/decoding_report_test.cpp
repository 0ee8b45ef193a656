#include "korrin/coding/decoding_report.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "korrin/foundation/utf8.h"
#include "korrin/model/document_coding.h"

namespace korrin::json {
namespace {

/// How many characters must be changed, added or taken away to make one word of the other, by the
/// definition: whatever is done with the two last characters, the rest is the same question.
class Distance {
 public:
  Distance(std::string_view a, std::string_view b) : a_(a), b_(b) {}

  std::size_t whole() { return of(a_.size(), b_.size()); }

 private:
  std::size_t of(std::size_t i, std::size_t j) {
    if (i == 0 || j == 0) return i + j;
    const auto [place, isNew] = known_.try_emplace({i, j}, 0);
    if (isNew) {
      const std::size_t changed = of(i - 1, j - 1) + (a_[i - 1] != b_[j - 1]);
      place->second = std::min({changed, of(i - 1, j) + 1, of(i, j - 1) + 1});
    }
    return place->second;
  }

  std::string_view a_;
  std::string_view b_;
  std::map<std::pair<std::size_t, std::size_t>, std::size_t> known_;
};

/// All words of at most so many letters out of two.
std::vector<std::string> wordsUpTo(std::size_t length) {
  std::vector<std::string> words = {""};
  for (std::size_t i = 0; words[i].size() < length; ++i) {
    words.push_back(words[i] + 'a');
    words.push_back(words[i] + 'b');
  }
  return words;
}

TEST(NearestWord, IsTheFirstOneWithTheFewestChanges) {
  const std::vector<std::string> all = wordsUpTo(4);
  std::mt19937_64 random(31);
  const auto any = [&]() -> std::string_view {
    return all[static_cast<std::size_t>(random() % all.size())];
  };
  for (const std::string& given : all) {
    for (int round = 0; round < 40; ++round) {
      std::vector<std::string_view> words;
      for (int i = 0; i < 3; ++i) words.push_back(any());
      const auto nearest = std::ranges::min_element(
          words, {}, [&](std::string_view word) { return Distance(given, word).whole(); });
      ASSERT_EQ(nearestWord(given, words), *nearest)
          << '"' << given << "\" among " << testing::PrintToString(words);
    }
  }
}

TEST(NearestWord, CountsTheBeginningOfALongWordAlone) {
  const std::string given = std::string(40, 'x') + std::string(100'000, 'y');
  EXPECT_EQ(nearestWord(given, {"", std::string(80, 'y'), std::string(38, 'x')}),
            std::string(38, 'x'));
}

std::string messageFor(std::string_view document) {
  try {
    decodeJSON<StagePoint>(document);
  } catch (const DecodingError& error) {
    return error.what();
  }
  return "accepted";
}

TEST(Refusal, NamesControlCharactersByTheirByteAndOthersAsTheyAre) {
  for (int code = 0x21; code < 0x100; ++code) {
    const std::string_view ofValues = "{\"-0123456789[tfn";
    if (code < 0x80 && ofValues.find(static_cast<char>(code)) != std::string_view::npos) continue;
    std::string character;
    utf8::append(character, static_cast<char32_t>(code));
    const std::string expected = code == 0x7F ? "the byte 0x7F" : "'" + character + "'";
    EXPECT_THAT(messageFor(character), testing::HasSubstr(expected)) << code;
  }
  for (const int code : {0x00, 0x01, 0x0B, 0x1F}) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const std::string expected = std::string("the byte 0x") +
                                 digits[static_cast<unsigned>(code) / 16] +
                                 digits[static_cast<unsigned>(code) % 16];
    EXPECT_THAT(messageFor(std::string(1, static_cast<char>(code))), testing::HasSubstr(expected));
  }
}

// What stands behind a text that is cut off would complete it.
TEST(Refusal, IsTheSameWhateverFollowsTheText) {
  const std::string_view whole =
      R"({"x":1.25e1,"y":-20,"\u0041\ud83d\ude00\n":[true,null,"\u00e9"]})";
  ASSERT_EQ(messageFor(whole), "accepted");
  for (std::size_t size = 0; size < whole.size(); ++size) {
    const std::string message = messageFor(std::string(whole.substr(0, size)));
    EXPECT_NE(message, "accepted");
    EXPECT_EQ(messageFor(whole.substr(0, size)), message) << size;
  }
}

}  // namespace
}  // namespace korrin::json
