#pragma once

// The definitions behind `encodeJSON` and `decodeJSON`. A source that includes this file
// instantiates `json::Codec` for the types that may be coded; everything else only declares it.

#include "korrin/coding/json.h"
#include "korrin/coding/json_reader.h"
#include "korrin/coding/json_writer.h"
#include "korrin/coding/unknown_key_walk.h"

namespace korrin::json {

template <class Value>
std::string Codec<Value>::encode(const Value& value, const EncodingOptions& options) {
  try {
    return Writer(options).document(value);
  } catch (const NotFinite&) {
    return Writer(options).diagnose(value);
  }
}

template <class Value>
Value Codec<Value>::decode(std::string_view text, const DecodingOptions& options) {
  try {
    return Reader(text, options).document<Value>();
  } catch (const Refused&) {
  } catch (const Malformed&) {
  }
  return Reader(text, options).diagnose<Value>();
}

template <class Value>
DecodedWithUnknownKeys<Value> Codec<Value>::decodeWithUnknownKeys(std::string_view text,
                                                                  const DecodingOptions& options) {
  try {
    Reader reader(text, options);
    DecodedWithUnknownKeys<Value> decoded{.value = reader.document<Value>(), .unknownKeys = {}};
    decoded.unknownKeys.count = reader.unknownKeyCount();
    if (decoded.unknownKeys.count != 0)
      decoded.unknownKeys.paths = UnknownKeyWalk(text).paths<Value>();
    return decoded;
  } catch (const Refused&) {
  } catch (const Malformed&) {
  }
  return {.value = Reader(text, options).diagnose<Value>(), .unknownKeys = {}};
}

}  // namespace korrin::json
