#include "editing/plot_lists.h"

namespace korrin::host {

std::vector<std::string> listWords() {
  std::vector<std::string> words;
  forEachList([&]<class Record>(ListOf<Record>) { words.emplace_back(PlotList<Record>::word); });
  return words;
}

std::optional<Text> nameIn(const Text& value) {
  return value.isBlank() ? std::nullopt : std::optional(value);
}

std::optional<Text> nameIn(const std::optional<std::int64_t>& value) {
  if (!value) return std::nullopt;
  return Text(std::to_string(*value));
}

bool isCalled(const UUID& id, std::string_view name) { return UUID::fromText(name) == id; }
bool isCalled(const Text& digest, std::string_view name) { return digest.str() == name; }

std::string identifierOf(const UUID& id) { return id.text(); }
std::string identifierOf(const Text& digest) { return digest.str(); }

void refuseUnknown(std::string_view word, std::string_view name,
                   const std::vector<std::string>& known) {
  // Another number is no slip of the hand that could be guessed.
  const bool isNumber = name.find_first_not_of("0123456789") == std::string_view::npos;
  throw LineError("there is no " + std::string(word) + " " + inQuotes(name) +
                  (isNumber ? "" : suggestion(name, known)));
}

void refuseAmbiguous(std::string_view word, std::string_view name,
                     const std::vector<std::string>& identifiers) {
  constexpr std::size_t mostNamed = 4;
  throw LineError(std::to_string(identifiers.size()) + " records of the list " + std::string(word) +
                  " are called " + inQuotes(name) +
                  "; name one by its identifier: " + listed(identifiers, mostNamed));
}

}  // namespace korrin::host
