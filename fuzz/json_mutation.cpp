#include "fuzz/json_mutation.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

namespace korrin::fuzz {
namespace {

// Where a value stands; with its key, if it has one, it is a member.
struct Place {
  std::size_t memberStart;
  std::size_t start;
  std::size_t end;

  bool hasKey() const { return memberStart != start; }
};

bool isPlain(char c) {
  return std::string_view(" \t\r\n,:[]{}\"").find(c) == std::string_view::npos;
}

std::size_t endOfString(std::string_view text, std::size_t quote) {
  std::size_t at = quote + 1;
  while (at < text.size() && text[at] != '"') at += text[at] == '\\' ? 2 : 1;
  return std::min(at + 1, text.size());
}

// Finds values by their brackets, quotation marks and runs of other characters, whatever the rest
// of the text looks like.
std::vector<Place> placesIn(std::string_view text) {
  std::vector<Place> places;
  std::vector<Place> open;
  std::size_t keyStart = std::string_view::npos;
  const auto memberStart = [&keyStart](std::size_t start) {
    const std::size_t found = std::min(keyStart, start);
    keyStart = std::string_view::npos;
    return found;
  };
  for (std::size_t at = 0; at < text.size();) {
    const char c = text[at];
    if (c == '{' || c == '[') {
      open.push_back({memberStart(at), at, at});
      ++at;
    } else if (c == '}' || c == ']') {
      ++at;
      if (open.empty()) continue;
      open.back().end = at;
      places.push_back(open.back());
      open.pop_back();
    } else if (c == '"' || isPlain(c)) {
      std::size_t end = c == '"' ? endOfString(text, at) : at;
      while (c != '"' && end < text.size() && isPlain(text[end])) ++end;
      const std::size_t behind = text.find_first_not_of(" \t\r\n", end);
      if (behind != std::string_view::npos && text[behind] == ':')
        keyStart = at;
      else
        places.push_back({memberStart(at), at, end});
      at = end;
    } else {
      ++at;
    }
  }
  return places;
}

constexpr std::array scalars = {
    "0",
    "-0",
    "1",
    "-1",
    "0.1",
    "4",
    "12000",
    "1000000.5",
    "1e308",
    "-1.7976931348623157e308",
    "5e-324",
    "1e-400",
    "1e400",
    "1e21",
    "9007199254740993",
    "9223372036854775807",
    "-9223372036854775808",
    "9.223372036854775807e18",
    "9223372036.854775807",
    "null",
    "true",
    "false",
    "[]",
    "{}",
    R"("")",
    R"(" ")",
    R"("Infinity")",
    R"("-Infinity")",
    R"("NaN")",
    "\"\u00E9\"",
    "\"e\u0301\"",
    R"("\u0065\u0301")",
    R"("\ud834\udd1e")",
    R"("\"\\\/\b\f\n\r\t\u0000")",
    R"("2026-07-18T18:30:00.250Z")",
    R"("1677-09-21T00:12:43.145224192Z")",
    R"("2262-04-11T23:47:16.854775807Z")",
    R"("2000-02-29t23:59:59.999999999+23:59")",
    R"("00000000-0000-0000-0000-000000000000")",
    R"("5a10ff00-0000-4000-8000-000000000002")",
    R"("top")",
    R"("right")",
    R"("riser")",
    R"("custom")",
    R"("letter")",
    R"("#3366CC")",
};

class Mutation {
 public:
  Mutation(std::string& text, std::minstd_rand& random)
      : text_(text), random_(random), places_(placesIn(text)) {}

  void apply() {
    if (places_.empty()) return;
    const Place place = anyPlace();
    switch (below(9)) {
      case 0:
        return removeFrom(place);
      case 1:
        return repeat(place);
      case 2:
        return exchange(place, anyPlace());
      case 3:
        return replace(place, valueAt(anyPlace()));
      case 4:
        return spellDifferently(place);
      case 5:
        return replace(place, number());
      case 6:
        text_.insert(place.start, 1 + below(9), " \t\r\n"[below(4)]);
        return;
      default:
        return replace(place, scalars[below(scalars.size())]);
    }
  }

 private:
  std::size_t below(std::size_t count) { return random_() % count; }
  const Place& anyPlace() { return places_[below(places_.size())]; }
  std::string valueAt(const Place& place) const {
    return text_.substr(place.start, place.end - place.start);
  }
  std::string memberAt(const Place& place) const {
    return text_.substr(place.memberStart, place.end - place.memberStart);
  }
  void replace(const Place& place, const std::string& value) {
    text_.replace(place.start, place.end - place.start, value);
  }

  // With the comma behind it or else the one before it.
  void removeFrom(const Place& place) {
    std::size_t start = place.memberStart;
    std::size_t end = place.end;
    if (end < text_.size() && text_[end] == ',')
      ++end;
    else if (start > 0 && text_[start - 1] == ',')
      --start;
    text_.erase(start, end - start);
  }

  // An element once more; a member under a key that no record knows, or now and then its own.
  void repeat(const Place& place) {
    if (place.hasKey() && below(8) != 0)
      text_.insert(place.memberStart, "\"x\":" + valueAt(place) + ",");
    else
      text_.insert(place.memberStart, memberAt(place) + ",");
  }

  // Members change places with their keys, so that an object's order changes.
  void exchange(Place first, Place second) {
    if (second.memberStart < first.memberStart) std::swap(first, second);
    if (first.end > second.memberStart) return;
    const std::string latter = memberAt(second);
    text_.replace(second.memberStart, second.end - second.memberStart, memberAt(first));
    text_.replace(first.memberStart, first.end - first.memberStart, latter);
  }

  // A character of the key, or of a string without one, as an escape.
  void spellDifferently(const Place& place) {
    constexpr std::string_view digits = "0123456789aBcDeF";
    if (text_[place.memberStart] != '"') return;
    const std::size_t length = endOfString(text_, place.memberStart) - place.memberStart;
    const std::size_t at = place.memberStart + below(length);
    const auto byte = static_cast<unsigned char>(text_[at]);
    if (byte >= 0x80 || byte == '"' || byte == '\\' || text_[at - 1] == '\\') return;
    text_.replace(at, 1, std::string("\\u00") + digits[byte >> 4] + digits[byte & 15]);
  }

  std::string number() {
    std::string text = below(2) == 0 ? "" : "-";
    text += std::to_string(below(10));
    if (text.back() != '0')
      for (std::size_t count = below(22); count > 0; --count) text += std::to_string(below(10));
    if (below(2) == 0) {
      text += '.';
      for (std::size_t count = 1 + below(20); count > 0; --count) text += std::to_string(below(10));
    }
    if (below(2) == 0)
      text += (below(2) == 0 ? "e" : "E-") + std::to_string(below(below(2) == 0 ? 25 : 330));
    return text;
  }

  std::string& text_;
  std::minstd_rand& random_;
  std::vector<Place> places_;
};

}  // namespace

std::string mutatedJSON(std::string text, std::minstd_rand& random) {
  Mutation(text, random).apply();
  return text;
}

}  // namespace korrin::fuzz
