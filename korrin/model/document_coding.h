#pragma once

// Reading and writing the documents of this model; see `encodeJSON` and `decodeJSON`.
//
// A host that opens a document peeks at its versions first, refuses it when it demands a newer
// reader, decodes it and then validates it: a newer version may have written words that this one
// can only take for mistakes.

#include <cstdint>

#include "korrin/coding/json.h"
#include "korrin/model/project.h"

#pragma GCC visibility push(default)

namespace korrin {

/// The two version fields of a project's document.
struct DocumentVersions {
  std::int64_t schemaVersion;         ///< Version of the format that wrote the document.
  std::int64_t minimumReaderVersion;  ///< Lowest format version that can read it.

  friend bool operator==(const DocumentVersions&, const DocumentVersions&) = default;
};

template <>
constexpr auto fieldsOf<DocumentVersions>() {
  // The keys are the project's own.
  return std::tuple{
      Field{keyOf(&KorrinProject::schemaVersion), &DocumentVersions::schemaVersion},
      Field{keyOf(&KorrinProject::minimumReaderVersion), &DocumentVersions::minimumReaderVersion},
  };
}
static_assert(tableIsComplete<DocumentVersions>);

/// Reads the two version fields and nothing else of a project's document. Throws `DecodingError`
/// when the text is not a JSON object that holds both as integers.
DocumentVersions peekVersions(std::string_view document);

}  // namespace korrin

#pragma GCC visibility pop
