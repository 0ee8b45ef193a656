#pragma once

// The members of a document that its reader does not know. Reading passes over them, so writing the
// value again drops them.

#include <cstddef>
#include <string>
#include <vector>

#pragma GCC visibility push(default)

namespace korrin {

/// What writing a value drops that stood in its document.
///
/// A path is that of a `DecodingError` with the unknown key at its end: `items[3].glow`. A key that
/// could be misread in this form stands as a JSON string in brackets instead: `items[3]["a.b"]`.
/// These are the empty key, a key with ".", "[", "]", quotation mark, backslash or a control
/// character, and a key longer than 4,096 bytes, which is cut: `["aaaa"...]`.
struct UnknownKeys {
  /// How many members in all. A key that stands twice counts twice; nothing inside an unknown
  /// member counts.
  std::size_t count = 0;
  /// The key paths of the first 100 of them, in the order of the document.
  std::vector<std::string> paths = {};

  friend bool operator==(const UnknownKeys&, const UnknownKeys&) = default;
};

/// A value as its document holds it, and what the document holds beside it.
template <class T>
struct DecodedWithUnknownKeys {
  T value;                  ///< As `decodeJSON` returns it.
  UnknownKeys unknownKeys;  ///< What encoding the value drops.
};

}  // namespace korrin

#pragma GCC visibility pop
