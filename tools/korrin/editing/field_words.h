#pragma once

// Words as values of fields: what a field takes follows from its type, and which record an
// identifier means from its key.

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "korrin/foundation/enumeration.h"
#include "korrin/model/project.h"

#include "editing/edit_words.h"
#include "terminal/words.h"

namespace korrin::host {

/// Reads words for the fields of records of one project, which must outlive it. `key` is the
/// field's, for sentences. Each function throws LineError when the word does not fit.
class FieldWords {
 public:
  explicit FieldWords(const KorrinProject& project) : project_(project) {}

  void read(std::string_view key, const std::string& word, Text& value) const;
  /// true or false, yes or no, on or off.
  void read(std::string_view key, const std::string& word, bool& value) const;
  /// A finite number.
  void read(std::string_view key, const std::string& word, double& value) const;
  void read(std::string_view key, const std::string& word, std::int64_t& value) const;
  /// "2026-07-18T20:30+02:00"; seconds and their fractions may follow the minutes.
  void read(std::string_view key, const std::string& word, Instant& value) const;
  /// The identifier or name of a record of the list that the key speaks of.
  void read(std::string_view key, const std::string& word, UUID& value) const;
  /// The same of several records, parted by commas.
  void read(std::string_view key, const std::string& word, List<UUID>& value) const;

  template <RawValueEnumeration Enumeration>
  void read(std::string_view key, const std::string& word, Enumeration& value) const {
    if (const auto choice = fromRawValue<Enumeration>(word)) {
      value = *choice;
      return;
    }
    std::vector<std::string> words;
    for (const Enumeration each : allCases<Enumeration>()) words.emplace_back(rawValue(each));
    throw LineError(std::string(key) + " is one of " + listed(words) + ", not " + inQuotes(word) +
                    suggestion(word, words));
  }

  /// The word none makes it absent.
  template <class Value>
  void read(std::string_view key, const std::string& word, std::optional<Value>& value) const {
    if (word == "none") {
      value.reset();
      return;
    }
    Value present{};
    read(key, word, present);
    value = std::move(present);
  }

 private:
  const KorrinProject& project_;
};

/// The number that a word says; nothing when it is none or not finite.
std::optional<double> numberIn(std::string_view word);

/// The whole number that a word says.
std::optional<std::int64_t> wholeNumberIn(std::string_view word);

}  // namespace korrin::host
