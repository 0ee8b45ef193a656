#pragma once

// The kinds of parameter that commands have: each says what it is for and where its words go. What
// is referred to must outlive the parameter.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "korrin/coding/coding_options.h"
#include "korrin/foundation/enumeration.h"

#include "assets/known_assets.h"
#include "commands/command_page.h"
#include "terminal/failure.h"
#include "terminal/words.h"

namespace korrin::host {

/// The raw values of an enumeration.
template <class Enumeration>
std::vector<std::string> rawValues() {
  std::vector<std::string> words;
  for (const Case<Enumeration>& row : CaseTable<Enumeration>::cases)
    words.emplace_back(row.rawValue);
  return words;
}

/// The case with this raw value. Throws UsageError when there is none.
template <class Enumeration>
Enumeration chosen(const std::string& word) {
  if (const auto choice = fromRawValue<Enumeration>(word)) return *choice;
  const std::vector<std::string> words = rawValues<Enumeration>();
  throw UsageError("there is no \"" + word + "\" among " + listed(words) + suggestion(word, words));
}

/// An option, or with an empty `valueName` an argument, that takes a raw value of an enumeration.
template <class Value>
Parameter choice(std::string name, std::string valueName, std::string text, Value& value) {
  return {.names = {std::move(name)},
          .valueName = std::move(valueName),
          .text = std::move(text),
          .choices = rawValues<Value>(),
          .take = [&value](const std::string& word) { value = chosen<Value>(word); }};
}

Parameter flag(std::vector<std::string> names, std::string text, bool& value);

/// An option with any word.
Parameter option(std::vector<std::string> names, std::string valueName, std::string text,
                 std::optional<std::string>& value);

/// An option that may be given several times, each time with one word.
Parameter repeatable(std::vector<std::string> names, std::string valueName, std::string text,
                     std::vector<std::string>& values);

/// The argument FILE, one that is read.
Parameter inputFile(std::string text, std::string& file);

/// The argument FILE..., each of which is read.
Parameter inputFiles(std::string text, std::vector<std::string>& files);

/// -o, --output.
Parameter output(std::optional<std::string>& file,
                 std::string text = "Where to write; standard output when absent or -");

/// --dates.
Parameter dates(DateStrategy& value, std::string text = "How dates stand in the plot");

/// --known-assets and --builtin-assets.
std::vector<Parameter> knownAssetOptions(AssetOptions& assets);

}  // namespace korrin::host
