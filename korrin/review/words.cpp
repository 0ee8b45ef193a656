#include "korrin/review/words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <vector>

#include "korrin/foundation/hidden_scalar.h"
#include "korrin/foundation/text.h"
#include "korrin/foundation/utf8.h"

namespace korrin::revision {
namespace {

constexpr std::size_t longestText = 60;  // in Unicode scalars
constexpr std::string_view ellipsis = "…";

bool isLong(std::string_view text) {
  for (std::size_t count = 0; !text.empty(); ++count) {
    if (count == longestText) return true;
    text.remove_prefix(utf8::step(text).length);
  }
  return false;
}

/// Scalars that both texts begin with.
std::size_t commonScalars(std::string_view a, std::string_view b) {
  std::size_t count = 0;
  while (!a.empty() && !b.empty()) {
    const utf8::Step next = utf8::step(a);
    if (a.substr(0, next.length) != b.substr(0, next.length)) break;
    a.remove_prefix(next.length);
    b.remove_prefix(next.length);
    ++count;
  }
  return count;
}

/// The text from scalar `first` on, escaped and cut.
std::string shownFrom(std::string_view text, std::size_t first) {
  std::string result;
  for (std::size_t passed = 0; passed < first && !text.empty(); ++passed) {
    if (passed == 0) result = ellipsis;
    text.remove_prefix(utf8::step(text).length);
  }
  for (std::size_t count = 0; !text.empty(); ++count) {
    if (count == longestText) return result + std::string(ellipsis);
    const utf8::Step next = utf8::step(text);
    if (isHidden(next.scalar))
      result += escaped(next.scalar);
    else
      result += text.substr(0, next.length);
    text.remove_prefix(next.length);
  }
  return result;
}

/// What `shown` looks at: all of a short text, and of a long one more scalars than are shown.
Text textOfShown(std::string_view text) {
  constexpr std::size_t most = 4 * (longestText + 2);
  return text.substr(0, most);
}

bool isUpper(char c) { return c >= 'A' && c <= 'Z'; }
bool isLower(char c) { return c >= 'a' && c <= 'z'; }

std::string lowered(std::string word) {
  for (char& c : word)
    if (isUpper(c)) c = static_cast<char>(c - 'A' + 'a');
  return word;
}

/// "riser Height Millimeters", word by word and in small letters but for abbreviations.
std::string splitCamelCase(std::string_view key) {
  std::string text;
  std::string word;
  const auto finishWord = [&] {
    if (word.empty()) return;
    if (!text.empty()) text += ' ';
    const bool isAbbreviation = word.size() > 1 && std::all_of(word.begin(), word.end(), isUpper);
    text += isAbbreviation ? word : lowered(word);
    word.clear();
  };
  for (std::size_t i = 0; i < key.size(); ++i) {
    const bool startsWord = isUpper(key[i]) && i > 0 &&
                            (!isUpper(key[i - 1]) || (i + 1 < key.size() && isLower(key[i + 1])));
    if (startsWord) finishWord();
    word += key[i];
  }
  finishWord();
  return text;
}

struct Wording {
  std::string_view key;
  std::string_view words;
};

// What a crew calls a field otherwise than its key does.
constexpr std::array wordings = {
    Wording{"assetID", "artwork"},
    Wording{"assetManifest", "embedded files"},
    Wording{"createdAt", "date of creation"},
    Wording{"itemIDs", "items"},
    Wording{"mediaType", "file type"},
    Wording{"modifiedAt", "date of the last edit"},
    Wording{"plotItemID", "linked symbol"},
    Wording{"preparedBy", "author"},
    Wording{"suppliedBy", "supplier"},
    Wording{"tintHex", "colour"},
    Wording{"zIndex", "stacking position"},
};

struct Truth {
  std::string_view key;
  std::string_view yes;
  std::string_view no;
};

constexpr std::array truths = {
    Truth{"isLocked", " is locked", " is unlocked"},
    Truth{"isVisible", " is shown", " is hidden"},
    Truth{"labelVisible", ": label shown", ": label hidden"},
};

std::string fixedText(double value, int digits) {
  std::array<char, 64> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                 std::chars_format::fixed, digits);
  return std::string(buffer.data(), end.ptr);
}

// Beyond this, 1,000,000 km, a number is no length of a stage but a mistake.
constexpr double longestLength = 1e12;

std::string distanceText(double millimetres) {
  constexpr double shortestInMetres = 10;
  if (millimetres >= shortestInMetres && millimetres < longestLength)
    return fixedText(millimetres / 1000, 2) + " m";
  return numberText(millimetres) + " mm";
}

struct Directions {
  std::string_view right;  // of the drawing
  std::string_view left;
  std::string_view down;
  std::string_view up;
};

constexpr std::string_view towards = "towards the audience";
constexpr std::string_view away = "away from the audience";

Directions directionsFor(AudienceEdge audience) {
  switch (audience) {
    case AudienceEdge::top:
      return {"to the right", "to the left", away, towards};
    case AudienceEdge::right:
      return {towards, away, "down in the drawing", "up in the drawing"};
    case AudienceEdge::left:
      return {away, towards, "down in the drawing", "up in the drawing"};
    case AudienceEdge::bottom:
      break;
  }
  return {"to the right", "to the left", towards, away};
}

}  // namespace

// A difference may hold any bytes: as a text they are well-formed. No more of them become one than
// are shown, since many sentences may name one record, and its name may have megabytes.
std::string shown(std::string_view text) { return shownFrom(textOfShown(text), 0); }

std::pair<std::string, std::string> shownApart(std::string_view first, std::string_view second) {
  constexpr std::size_t lead = 10;  // of what is alike, to find the place by
  const Text a = first;
  const Text b = second;
  std::size_t start = 0;
  if (isLong(a) || isLong(b)) {
    const std::size_t common = commonScalars(a, b);
    if (common > 2 * lead) start = common - lead;
  }
  return {shownFrom(a, start), shownFrom(b, start)};
}

std::string quoted(std::string_view text) { return '"' + shown(text) + '"'; }

bool isShownBlank(std::string_view text) { return textOfShown(text).isBlank(); }

std::string wordsOf(std::string_view key) {
  for (const Wording& wording : wordings)
    if (wording.key == key) return std::string(wording.words);
  for (const std::string_view unit : {"Millimeters", "Degrees", "ID"})
    if (key.size() > unit.size() && key.ends_with(unit)) key.remove_suffix(unit.size());
  return splitCamelCase(key);
}

std::string truthOf(std::string_view key, bool value) {
  for (const Truth& truth : truths)
    if (truth.key == key) return std::string(value ? truth.yes : truth.no);
  const std::string words = splitCamelCase(key);
  const auto rest = [&words](std::string_view start) { return words.substr(start.size()); };
  if (words.starts_with("is ")) return (value ? " is " : " is no longer ") + rest("is ");
  if (words.starts_with("show ")) return ": " + rest("show ") + (value ? " shown" : " hidden");
  if (words.starts_with("include "))
    return ": " + rest("include ") + (value ? " included" : " left out");
  return ": " + words + (value ? " on" : " off");
}

std::string numberText(double value) {
  if (!std::isfinite(value))
    return std::isnan(value) ? "NaN" : value < 0 ? "-Infinity" : "Infinity";
  constexpr double longestPlain = 1e15;
  std::array<char, 64> buffer{};
  const bool isPlain = std::fabs(value) < longestPlain && (value == 0 || std::fabs(value) >= 1e-6);
  const auto end = isPlain ? std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                           std::chars_format::fixed)
                           : std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
  return std::string(buffer.data(), end.ptr);
}

std::string lengthText(double millimetres) {
  const bool isInCentimetres =
      std::fabs(millimetres) < longestLength && std::round(millimetres / 10) * 10 == millimetres;
  return isInCentimetres ? fixedText(millimetres / 1000, 2) + " m"
                         : numberText(millimetres) + " mm";
}

std::string measureText(std::string_view key, double value) {
  if (key.ends_with("Millimeters")) return lengthText(value);
  if (key.ends_with("Degrees")) return numberText(value) + "°";
  return numberText(value);
}

std::string movementText(const StagePoint& from, const StagePoint& to, AudienceEdge audience) {
  const double x = to.x - from.x;
  const double y = to.y - from.y;
  if (!std::isfinite(x) || !std::isfinite(y)) return {};
  const Directions directions = directionsFor(audience);
  std::string text;
  if (x != 0)
    text =
        distanceText(std::fabs(x)) + " " + std::string(x > 0 ? directions.right : directions.left);
  if (x != 0 && y != 0) text += " and ";
  if (y != 0)
    text += distanceText(std::fabs(y)) + " " + std::string(y > 0 ? directions.down : directions.up);
  return text;
}

std::string dateText(std::string_view iso8601) {
  std::string text(iso8601);
  if (text.ends_with('Z')) text.pop_back();
  if (const std::size_t t = text.find('T'); t != std::string::npos) text[t] = ' ';
  constexpr std::string_view wholeMinute = ":00";
  const std::size_t colons = static_cast<std::size_t>(std::count(text.begin(), text.end(), ':'));
  if (colons == 2 && text.ends_with(wholeMinute)) text.resize(text.size() - wholeMinute.size());
  return text + " UTC";
}

std::string capitalized(std::string text) {
  if (!text.empty() && isLower(text[0])) text[0] = static_cast<char>(text[0] - 'a' + 'A');
  return text;
}

}  // namespace korrin::revision
