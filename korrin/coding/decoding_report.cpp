#include "korrin/coding/decoding_report.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "korrin/foundation/utf8.h"

namespace korrin::json {
namespace {

constexpr std::size_t longestQuote = 40;

// Number of single-character changes that lead from one word to the other.
std::size_t editDistance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t replaced = diagonal + (a[i] == b[j] ? 0 : 1);
      diagonal = std::exchange(row[j + 1], std::min({replaced, row[j] + 1, row[j + 1] + 1}));
    }
  }
  return row.back();
}

std::string characterAt(const Scanner& scanner, const char* at) {
  if (at == scanner.end()) return "the end of the document";
  const std::string_view rest(at, static_cast<std::size_t>(scanner.end() - at));
  if (rest.starts_with("\xEF\xBB\xBF")) return "a byte order mark";
  const utf8::Step step = utf8::step(rest);
  if (!step.isWellFormed || step.scalar < 0x20 || step.scalar == 0x7F) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(*at);
    return std::string("the byte 0x") + digits[byte >> 4] + digits[byte & 15];
  }
  return "'" + std::string(rest.substr(0, step.length)) + "'";
}

}  // namespace

TextPlace placeOf(const Scanner& scanner, const char* at) {
  const std::string_view before(scanner.begin(), static_cast<std::size_t>(at - scanner.begin()));
  const auto breaks = std::count(before.begin(), before.end(), '\n');
  const std::string_view lineBefore = before.substr(before.rfind('\n') + 1);
  // Columns count characters: bytes that do not continue one.
  const auto characters = std::count_if(lineBefore.begin(), lineBefore.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
  });
  return {.line = static_cast<std::size_t>(breaks) + 1,
          .column = static_cast<std::size_t>(characters) + 1};
}

DecodingError refusal(DecodingError::Kind kind, const KeyPath& path, TextPlace place,
                      std::string_view expected, std::string_view found) {
  std::string where = path.text();
  std::string message = where.empty() ? "" : where + ": ";
  message.append("expected ").append(expected).append(", found ").append(found);
  return DecodingError(kind, std::move(where), message, place.line, place.column);
}

DecodingError notJSON(const Scanner& scanner, const Malformed& fault) {
  const TextPlace place = placeOf(scanner, fault.at);
  return DecodingError(DecodingError::Kind::dataCorrupted, "",
                       "line " + std::to_string(place.line) + ", column " +
                           std::to_string(place.column) + ": expected " + fault.expected +
                           ", found " + characterAt(scanner, fault.at),
                       place.line, place.column);
}

std::string_view typeOfNextValue(const Scanner& scanner) {
  switch (scanner.peek()) {
    case '{':
      return "an object";
    case '[':
      return "an array";
    case '"':
      return "a string";
    case 't':
    case 'f':
      return "a Boolean";
    case 'n':
      return "null";
    default:
      return "a number";
  }
}

std::string nearestWord(std::string_view given, const std::vector<std::string_view>& words) {
  // A word longer than any quoted one has no near neighbour worth the time.
  given = given.substr(0, longestQuote);
  return std::string(*std::min_element(words.begin(), words.end(),
                                       [given](std::string_view a, std::string_view b) {
                                         return editDistance(given, a) < editDistance(given, b);
                                       }));
}

std::string oneOf(const std::vector<std::string_view>& words) {
  std::string text = words.size() > 1 ? "one of " : "";
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (i != 0) text += i + 1 == words.size() ? " or " : ", ";
    text += quoted(words[i]);
  }
  return text;
}

std::string shortened(std::string_view raw) {
  if (raw.size() <= longestQuote) return std::string(raw);
  // Cut between characters.
  const std::string_view cut = raw.substr(0, longestQuote);
  return std::string(cut.substr(0, utf8::wellFormedPrefix(cut))) + "…";
}

std::string quoted(std::string_view raw) { return '"' + shortened(raw) + '"'; }

}  // namespace korrin::json
