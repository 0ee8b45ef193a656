#include "editing/field_words.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "korrin/coding/json.h"

#include "editing/plot_lists.h"

namespace korrin::host {
namespace {

[[noreturn]] void refuse(std::string_view key, const std::string& word, std::string_view what) {
  throw LineError(std::string(key) + ": " + inQuotes(word) + " is " + std::string(what));
}

template <class Number>
std::optional<Number> numberOf(std::string_view word) {
  if (word.starts_with('+')) word.remove_prefix(1);
  Number value{};
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
  if (error != std::errc() || end != word.data() + word.size()) return std::nullopt;
  return value;
}

/// "2026-07-18T20:30+02:00" with the seconds that documents have, "2026-07-18T20:30:00+02:00".
std::string withSeconds(const std::string& word) {
  constexpr std::size_t minutesEnd = std::string_view("2026-07-18T20:30").size();
  if (word.size() <= minutesEnd || word[minutesEnd] == ':') return word;
  return word.substr(0, minutesEnd) + ":00" + word.substr(minutesEnd);
}

}  // namespace

std::optional<double> numberIn(std::string_view word) {
  const std::optional<double> value = numberOf<double>(word);
  return value && std::isfinite(*value) ? value : std::nullopt;
}

std::optional<std::int64_t> wholeNumberIn(std::string_view word) {
  return numberOf<std::int64_t>(word);
}

void FieldWords::read(std::string_view, const std::string& word, Text& value) const {
  value = Text(word);
}

void FieldWords::read(std::string_view key, const std::string& word, bool& value) const {
  constexpr std::array trueWords = {"true", "yes", "on"};
  constexpr std::array falseWords = {"false", "no", "off"};
  value = std::ranges::count(trueWords, word) > 0;
  if (!value && std::ranges::count(falseWords, word) == 0)
    refuse(key, word, "neither true nor false");
}

void FieldWords::read(std::string_view key, const std::string& word, double& value) const {
  const std::optional<double> number = numberIn(word);
  if (!number) refuse(key, word, "not a number");
  value = *number;
}

void FieldWords::read(std::string_view key, const std::string& word, std::int64_t& value) const {
  const std::optional<std::int64_t> number = wholeNumberIn(word);
  if (!number) refuse(key, word, "not a whole number");
  value = *number;
}

void FieldWords::read(std::string_view key, const std::string& word, Instant& value) const {
  constexpr std::string_view characters = "0123456789-+:.TZtz";
  if (word.find_first_not_of(characters) == std::string::npos) {
    // The document's own reader decides: the word takes the place of an instant that it knows.
    std::string document = encodeJSON(ProjectMetadata{});
    const std::string epoch = "1970-01-01T00:00:00Z";
    document.replace(document.find(epoch), epoch.size(), withSeconds(word));
    try {
      value = decodeJSON<ProjectMetadata>(document).createdAt;
      return;
    } catch (const DecodingError&) {
      // refused below, in the words of a line
    }
  }
  refuse(key, word, "not a date and time with its offset, such as 2026-07-18T20:30+02:00");
}

void FieldWords::read(std::string_view key, const std::string& word, UUID& value) const {
  if (key == "layerID")
    value = project_.layers[placeOf<PlotLayer>(project_, word)].id;
  else if (key == "groupID")
    value = project_.groups[placeOf<PlotGroup>(project_, word)].id;
  else if (key == "plotItemID" || key == "itemIDs")
    value = project_.items[placeOf<PlotItem>(project_, word)].id;
  else
    throw LineError(std::string(key) + " stays as it is: other records refer to it");
}

void FieldWords::read(std::string_view key, const std::string& word, List<UUID>& value) const {
  List<UUID> identifiers;
  for (std::size_t start = 0; start <= word.size() && !word.empty();) {
    const std::size_t end = std::min(word.find(',', start), word.size());
    const std::size_t first = std::min(word.find_first_not_of(' ', start), end);
    UUID identifier{};
    read(key, word.substr(first, end - first), identifier);
    identifiers.push_back(identifier);
    start = end + 1;
  }
  value = std::move(identifiers);
}

}  // namespace korrin::host
