#pragma once

// What decoding a document comes to, as a value that tests compare and print.

#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "korrin/coding/json.h"

namespace korrin::test {

/// A `DecodingError`.
struct Refusal {
  DecodingError::Kind kind;
  std::string keyPath;
  std::string message;

  friend bool operator==(const Refusal&, const Refusal&) = default;
};

inline std::string nameOf(DecodingError::Kind kind) {
  switch (kind) {
    case DecodingError::Kind::keyNotFound:
      return "keyNotFound";
    case DecodingError::Kind::valueNotFound:
      return "valueNotFound";
    case DecodingError::Kind::typeMismatch:
      return "typeMismatch";
    case DecodingError::Kind::dataCorrupted:
      return "dataCorrupted";
  }
  return "no kind at all";
}

inline void PrintTo(const Refusal& refusal, std::ostream* out) {
  *out << nameOf(refusal.kind) << " at \"" << refusal.keyPath << "\": " << refusal.message;
}

/// Why the document is refused; nothing when it is accepted.
template <class Value>
std::optional<Refusal> refusalOf(std::string_view document, const DecodingOptions& options = {}) {
  try {
    decodeJSON<Value>(document, options);
    return std::nullopt;
  } catch (const DecodingError& error) {
    return Refusal{.kind = error.kind(), .keyPath = error.keyPath(), .message = error.what()};
  }
}

/// Equal kind and key path; `message` is the whole message after the key path.
inline Refusal refusedAt(const std::string& keyPath, DecodingError::Kind kind,
                         const std::string& message) {
  return {.kind = kind,
          .keyPath = keyPath,
          .message = keyPath.empty() ? message : keyPath + ": " + message};
}

}  // namespace korrin::test
