#include "terminal/words.h"

#include <algorithm>
#include <numeric>

namespace korrin::host {
namespace {

/// Words longer than this are nobody's slip of the hand, and comparing them would take long.
constexpr std::size_t longestWord = 64;

char lowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

/// The fewest changes, of one byte or of two neighbours' places, that make `a` of `b`.
std::size_t editDistance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> beforeLast, last(b.size() + 1), row(b.size() + 1);
  std::iota(last.begin(), last.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const char from = lowerCase(a[i - 1]);
      const char to = lowerCase(b[j - 1]);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (from == to ? 0 : 1)});
      const bool isSwapped =
          i > 1 && j > 1 && from == lowerCase(b[j - 2]) && to == lowerCase(a[i - 2]);
      if (isSwapped) row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
    beforeLast = last;
    last.swap(row);
  }
  return last[b.size()];
}

}  // namespace

std::string listed(const std::vector<std::string>& words, std::size_t most) {
  std::string text;
  for (std::size_t i = 0; i < std::min(words.size(), most); ++i)
    text += (i == 0 ? "" : ", ") + words[i];
  if (words.size() > most) text += " and " + std::to_string(words.size() - most) + " more";
  return text;
}

std::string joined(const std::vector<std::string>& words, std::string_view separator) {
  std::string text;
  for (const std::string& word : words) {
    if (&word != &words.front()) text += separator;
    text += word;
  }
  return text;
}

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view whiteSpace = " \t\n\r\f\v";
  const std::size_t first = text.find_first_not_of(whiteSpace);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(whiteSpace) - first + 1);
}

std::string lowerCase(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = lowerCase(c);
  return result;
}

std::optional<std::string> similarWord(std::string_view given,
                                       const std::vector<std::string>& known) {
  if (given.empty() || given.size() > longestWord) return std::nullopt;
  const std::string* nearest = nullptr;
  std::size_t distance = 0;
  for (const std::string& word : known) {
    if (word.empty() || word.size() > longestWord) continue;
    const std::size_t changes = editDistance(given, word);
    const std::size_t limit = std::max<std::size_t>(1, std::max(given.size(), word.size()) / 3);
    if (changes > limit || (nearest != nullptr && changes >= distance)) continue;
    nearest = &word;
    distance = changes;
  }
  if (nearest == nullptr) return std::nullopt;
  return *nearest;
}

std::string suggestion(std::string_view given, const std::vector<std::string>& known,
                       std::string_view otherwise) {
  const std::optional<std::string> word = similarWord(given, known);
  return word ? "; did you mean \"" + *word + "\"?" : std::string(otherwise);
}

}  // namespace korrin::host
