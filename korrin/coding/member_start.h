#pragma once

// How a field's key stands in documents. The constants are hidden, since g++ would export them as
// it exports the record.

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <tuple>

#include "korrin/foundation/record.h"

namespace korrin::json {

/// A field's key between quotation marks.
template <class Record, std::size_t index>
[[gnu::visibility("hidden")]] inline constexpr auto quotedKey = [] {
  constexpr std::string_view key = std::get<index>(fieldsOf<Record>()).key;
  std::array<char, key.size() + 2> text{};
  std::copy(key.begin(), key.end(), text.begin() + 1);
  text.front() = text.back() = '"';
  return text;
}();

/// A field's key as it stands behind another member in a compact document: `,"key":`.
template <class Record, std::size_t index>
[[gnu::visibility("hidden")]] inline constexpr auto memberStart = [] {
  constexpr auto key = quotedKey<Record, index>;
  std::array<char, key.size() + 2> text{};
  std::copy(key.begin(), key.end(), text.begin() + 1);
  text.front() = ',';
  text.back() = ':';
  return text;
}();

}  // namespace korrin::json
