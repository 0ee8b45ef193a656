// Writes where fuzzing of documents began: a folder with one small document of every kind under
// several options, and the dictionary of all keys and enumeration texts.

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <type_traits>

#include "fuzz/seed_documents.h"

namespace korrin::fuzz {
namespace {

bool write(const std::filesystem::path& path, const std::string& content) {
  std::ofstream file(path, std::ios::binary);
  file << content;
  return static_cast<bool>(file.flush());
}

bool writeSeeds(const std::filesystem::path& folder) {
  bool isWritten = true;
  for (std::size_t kind = 0; kind < std::tuple_size_v<Documents>; ++kind) {
    for (const auto dates :
         {DateStrategy::iso8601, DateStrategy::secondsSince1970,
          DateStrategy::millisecondsSince1970, DateStrategy::secondsSinceReferenceDate}) {
      for (const bool isPretty : {false, true}) {
        const EncodingOptions options{.prettyPrinted = isPretty,
                                      .sortedKeys = isPretty,
                                      .dates = dates,
                                      .nonFinite = isPretty ? NonFinite::strings : NonFinite::fail};
        const std::string document = seedDocument(kind, options);
        const std::string name = std::to_string(kind) + '-' + std::to_string(document[1]);
        isWritten = write(folder / name, document) && isWritten;
      }
    }
  }
  return isWritten;
}

// Collects keys and enumeration texts of a type and of all that it is made of.
template <class Value>
void collectWords(std::set<std::string>& words) {
  if constexpr (RecordType<Value>) {
    forEachField<Value>([&words](const auto& field) {
      words.insert("\\\"" + std::string(field.key) + "\\\":");
      collectWords<typename std::decay_t<decltype(field)>::ValueType>(words);
    });
  } else if constexpr (RawValueEnumeration<Value>) {
    for (const auto& row : CaseTable<Value>::cases)
      words.insert("\\\"" + std::string(row.rawValue) + "\\\"");
  } else if constexpr (requires(Value list) { list.front(); }) {
    if constexpr (!std::is_same_v<Value, Text>)
      collectWords<std::decay_t<decltype(std::declval<const Value&>().front())>>(words);
  } else if constexpr (requires(Value optional) { optional.value(); }) {
    collectWords<std::decay_t<decltype(std::declval<const Value&>().value())>>(words);
  }
}

std::string dictionary() {
  std::set<std::string> words;
  collectWords<KorrinProject>(words);
  std::string text = "# Written by document_seeds: every key and every enumeration's texts.\n\n";
  for (const std::string& word : words) text += '"' + word + "\"\n";
  return text;
}

}  // namespace
}  // namespace korrin::fuzz

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: document_seeds FOLDER DICTIONARY\n");
    return 2;
  }
  using namespace korrin::fuzz;
  std::filesystem::create_directories(argv[1]);
  if (!writeSeeds(argv[1]) || !write(argv[2], dictionary())) {
    std::fprintf(stderr, "document_seeds: cannot write\n");
    return 1;
  }
  return 0;
}
