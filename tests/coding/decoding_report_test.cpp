#include "korrin/coding/decoding_report.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

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
  for (const std::string& given : all) {
    for (int round = 0; round < 40; ++round) {
      std::vector<std::string_view> words;
      for (int i = 0; i < 3; ++i) words.push_back(all[random() % all.size()]);
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

}  // namespace
}  // namespace korrin::json
