#pragma once

// How long a value's text is likely to be, told from its type and the lengths of its lists alone,
// so that a writer reserves about the right room at once.

#include <concepts>
#include <cstddef>
#include <type_traits>

#include "korrin/foundation/instant.h"
#include "korrin/foundation/list.h"
#include "korrin/foundation/record.h"
#include "korrin/foundation/text.h"

namespace korrin::json {

template <class Value>
inline constexpr bool isList = false;
template <class Element>
inline constexpr bool isList<List<Element>> = true;

/// The typical length for a type; of a list it is that of four elements.
template <class Value>
constexpr std::size_t typicalSize() {
  if constexpr (RecordType<Value>) {
    std::size_t size = 2;
    forEachField<Value>([&size]<class FieldValue>(const Field<Value, FieldValue>& field) {
      constexpr std::size_t punctuation = 4;
      size += field.key.size() + punctuation + typicalSize<FieldValue>();
    });
    return size;
  } else if constexpr (std::same_as<Value, UUID>) {
    return UUID::textLength + 2;
  } else if constexpr (std::same_as<Value, Instant>) {
    return 30;
  } else if constexpr (std::same_as<Value, Text>) {
    return 16;
  } else if constexpr (std::is_enum_v<Value>) {
    return 14;
  } else if constexpr (std::is_arithmetic_v<Value>) {
    return 6;
  } else if constexpr (isList<Value>) {
    return 4 * typicalSize<typename Value::value_type>();
  } else {  // a std::optional
    return typicalSize<typename Value::value_type>();
  }
}

/// The length to reserve for a value.
template <class Value>
std::size_t expectedSize(const Value& value) {
  std::size_t size = typicalSize<Value>();
  if constexpr (RecordType<Value>)
    forEachField<Value>([&](const auto& field) { size += expectedSize(value.*field.member); });
  else if constexpr (isList<Value>)
    size = 2 + value.size() * (typicalSize<typename Value::value_type>() + 1);
  return size;
}

}  // namespace korrin::json
