#pragma once

// What a document's key means to a record: which of its fields, or none.

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include "korrin/coding/json_scanner.h"
#include "korrin/coding/key_table.h"
#include "korrin/foundation/record.h"

namespace korrin::json {

template <class Value>
inline constexpr bool isOptional = false;
template <class Value>
inline constexpr bool isOptional<std::optional<Value>> = true;

template <class Record, std::size_t... index>
consteval auto keyTable(std::index_sequence<index...>) {
  return KeyTable(std::array{std::get<index>(fieldsOf<Record>()).key...});
}
/// The keys of a record, in the order of its fields.
template <class Record>
[[gnu::visibility("hidden")]] inline constexpr auto keysOf =
    keyTable<Record>(std::make_index_sequence<std::tuple_size_v<decltype(fieldsOf<Record>())>>());

/// The place in the table of the field that `key` names, or the number of fields for a key that
/// the record does not know.
template <class Record>
std::size_t fieldNamed(const StringToken& key) {
  if (!key.hasEscapes) return keysOf<Record>.placeOf(key.raw);
  // An escaped character takes six bytes at most: a longer key names no field, and is not worth a
  // copy of its size.
  if (key.raw.size() > 6 * keysOf<Record>.longestKey) return keysOf<Record>.count;
  return keysOf<Record>.placeOf(unescaped(key));
}

}  // namespace korrin::json
