#pragma once

// How long a value's text is likely to be, told from its type and the lengths of its lists alone,
// so that a writer reserves about the right room at once.

#include <cstddef>
#include <cstdint>
#include <optional>

#include "korrin/foundation/enumeration.h"
#include "korrin/foundation/instant.h"
#include "korrin/foundation/list.h"
#include "korrin/foundation/record.h"
#include "korrin/foundation/text.h"

namespace korrin::json {

template <class Value>
struct TypicalSize;

template <class Value>
constexpr std::size_t typicalSize() {
  if constexpr (RecordType<Value>) {
    std::size_t size = 2;
    forEachField<Value>([&size](const auto& field) {
      constexpr std::size_t punctuation = 4;
      using FieldValue = typename std::decay_t<decltype(field)>::ValueType;
      size += field.key.size() + punctuation + typicalSize<FieldValue>();
    });
    return size;
  } else {
    return TypicalSize<Value>::value;
  }
}

template <>
struct TypicalSize<bool> {
  static constexpr std::size_t value = 5;
};
template <>
struct TypicalSize<double> {
  static constexpr std::size_t value = 6;
};
template <>
struct TypicalSize<std::int64_t> {
  static constexpr std::size_t value = 6;
};
template <>
struct TypicalSize<Text> {
  static constexpr std::size_t value = 16;
};
template <>
struct TypicalSize<UUID> {
  static constexpr std::size_t value = UUID::textLength + 2;
};
template <>
struct TypicalSize<Instant> {
  static constexpr std::size_t value = 30;
};
template <RawValueEnumeration Enumeration>
struct TypicalSize<Enumeration> {
  static constexpr std::size_t value = 14;
};
template <class Value>
struct TypicalSize<std::optional<Value>> {
  static constexpr std::size_t value = typicalSize<Value>();
};
template <class Element>
struct TypicalSize<List<Element>> {
  static constexpr std::size_t value = 4 * typicalSize<Element>();
};

/// The length to reserve for a value.
template <class Value>
std::size_t expectedSize(const Value&) {
  return typicalSize<Value>();
}
template <class Element>
std::size_t expectedSize(const List<Element>& list) {
  return 2 + list.size() * (typicalSize<Element>() + 1);
}
template <RecordType Record>
std::size_t expectedSize(const Record& record) {
  std::size_t size = typicalSize<Record>();
  forEachField<Record>([&](const auto& field) { size += expectedSize(record.*field.member); });
  return size;
}

}  // namespace korrin::json
