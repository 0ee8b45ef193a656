#pragma once

// Documents as JSON text. Keys are the records' field names, in field order; optional fields that
// are absent are left out; enumerations stand as their raw values, identifiers as their canonical
// text.
//
// Reading is strict in syntax (RFC 8259 in UTF-8, the whole text one value) and in types, and
// checks nothing else: unknown keys are passed over, nothing is normalised, versions are not
// compared and nothing is validated.

#include <string>
#include <string_view>

#include "korrin/coding/coding_error.h"
#include "korrin/coding/coding_options.h"
#include "korrin/coding/unknown_keys.h"
#include "korrin/foundation/enumeration.h"
#include "korrin/foundation/list.h"
#include "korrin/foundation/record.h"

#pragma GCC visibility push(default)

namespace korrin {

namespace json {

template <class Value>
struct Codec {
  static std::string encode(const Value& value, const EncodingOptions& options);
  static Value decode(std::string_view text, const DecodingOptions& options);
  static DecodedWithUnknownKeys<Value> decodeWithUnknownKeys(std::string_view text,
                                                             const DecodingOptions& options);
};

}  // namespace json

/// A record of documents, an enumeration with raw values, or a list of either.
template <class T>
inline constexpr bool isCodable = RawValueEnumeration<T> && !requires {
  CaseTable<T>::isNotCodable;
};
/// Records of documents alone: a finding, for one, has a table of its fields and stands in none.
template <RecordType Record>
inline constexpr bool isCodable<Record> = standsInDocuments<Record>;
/// A list is what its elements are.
template <class T>
inline constexpr bool isCodable<List<T>> = isCodable<T>;

/// The value as JSON text in UTF-8. Text is escaped only where JSON demands it; doubles take the
/// shortest form that reads back exactly. What is decoded from the result with the same strategies
/// equals the value, bit for bit in doubles and instants. Throws `EncodingError` for a number that
/// is not finite, unless `options` allow it.
///
/// Offered for every record of a document, every raw-value enumeration of documents, and lists of
/// them.
template <class T>
requires isCodable<T> std::string encodeJSON(const T& value, const EncodingOptions& options = {}) {
  return json::Codec<T>::encode(value, options);
}

/// The value that `text` holds. Throws `DecodingError` and yields nothing when the text is not
/// JSON, a required key is missing, twice there or null, or a value has the wrong type or does not
/// fit. Objects and arrays may be nested 512 deep. Time and memory are linear in the text's size,
/// stack use is constant.
template <class T>
requires isCodable<T> T decodeJSON(std::string_view text, const DecodingOptions& options = {}) {
  return json::Codec<T>::decode(text, options);
}

/// As `decodeJSON`, and says which members of the text were passed over because no record knows
/// their keys. Where there are none it costs no more; where there are some, the text is walked a
/// second time, up to the last of those that are named. However many there are and however long
/// their keys, what is named takes less than half a megabyte.
template <class T>
requires isCodable<T> DecodedWithUnknownKeys<T> decodeJSONWithUnknownKeys(
    std::string_view text, const DecodingOptions& options = {}) {
  return json::Codec<T>::decodeWithUnknownKeys(text, options);
}

}  // namespace korrin

#pragma GCC visibility pop
