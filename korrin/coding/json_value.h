#pragma once

// Single values of a document as JSON text: what one field of a record holds, for hosts that show
// or compare fields one by one.

#include <cstdint>
#include <string>
#include <string_view>

#include "korrin/coding/json.h"
#include "korrin/foundation/instant.h"
#include "korrin/foundation/text.h"
#include "korrin/foundation/uuid.h"

#pragma GCC visibility push(default)

namespace korrin {

/// The value of a field as it stands in a document: a truth value, number, text, identifier or
/// instant, a list of numbers, texts or identifiers, or whatever `encodeJSON` takes. Throws
/// `EncodingError` for a number that is not finite, unless `options` allow it.
template <class Value>
std::string encodeJSONValue(const Value& value, const EncodingOptions& options = {}) {
  return json::Codec<Value>::encode(value, options);
}

/// The value that `text` holds, strictly read as by `decodeJSON`. Throws `DecodingError`.
template <class Value>
Value decodeJSONValue(std::string_view text, const DecodingOptions& options = {}) {
  return json::Codec<Value>::decode(text, options);
}

}  // namespace korrin

#pragma GCC visibility pop
