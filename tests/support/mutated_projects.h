#pragma once

// The document of a full project with one thing changed, and what reading it must come to: the
// table of refusals, for the reader itself and for whoever has to judge documents as it does.

#include <optional>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "korrin/model/document_coding.h"

#include "tests/support/decoding_outcome.h"

namespace korrin::test {

/// One value inside the document of `fullProject`.
struct Place {
  std::string keyPath;
  nlohmann::ordered_json::json_pointer pointer;
  std::string key;  ///< Empty for an element of a list.
  bool isOptional;
  nlohmann::ordered_json::value_t type;
  std::string expected;            ///< The type as a refusal names it.
  std::vector<std::string> words;  ///< Of an enumeration; else empty.
};

/// The document of `fullProject`, and copies of it with one place changed.
class FullDocument {
 public:
  using Json = nlohmann::ordered_json;

  FullDocument();

  const Json& json() const { return json_; }
  /// All values below the document's object, depth first and in field order.
  const std::vector<Place>& places() const { return places_; }

  Json without(const Place& place) const;
  Json with(const Place& place, const Json& value) const;
  /// The document's text with any text as the value, whether JSON readers could hold it or not.
  std::string withRaw(const Place& place, const std::string& raw) const;
  std::string withKeyTwice(const Place& place) const;

 private:
  Json json_;
  std::vector<Place> places_;
};

/// One row of the table.
struct Mutation {
  std::string change;              ///< What was done, in the same words at every place.
  std::string keyPath;             ///< Where; empty for the document itself.
  std::string text;                ///< The changed document.
  std::optional<Refusal> refusal;  ///< Absent when the reader takes the document.
};
void PrintTo(const Mutation& row, std::ostream* out);

// The table in groups, each group at every place that it fits.

std::vector<Mutation> keysLeftOut();
std::vector<Mutation> nulls();
std::vector<Mutation> valuesOfOtherTypes();
std::vector<Mutation> keysTwice();
std::vector<Mutation> wordsOfEnumerations();
std::vector<Mutation> identifierTexts();
std::vector<Mutation> dateTexts();
std::vector<Mutation> numberTexts();
std::vector<Mutation> unknownKeys();
/// Single changes whose refusals are told apart by more than their kind; `change` names each.
std::vector<Mutation> tellingMutations();
/// Other values than an object in the document's place.
std::vector<Mutation> otherDocuments();

/// The whole table.
std::vector<Mutation> allMutations();

}  // namespace korrin::test
