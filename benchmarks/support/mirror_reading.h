#pragma once

// Fills mirrored records from a peer's JSON tree, with the checks that the library makes: every
// required key, every type, identifiers, dates, enumerations and integers that fit. `Node` is a
// peer's value behind one face: at(key), find(key) -> std::optional<Node> (nothing for null),
// text(), number(), integer(), boolean() and elements(visit), all of which throw on a mismatch.

#include <cstdint>
#include <stdexcept>

#include "korrin/coding/instant_text.h"

#include "benchmarks/support/mirror.h"

namespace korrin::benchmarks {

template <class Value>
Value required(const std::optional<Value>& value) {
  if (!value) throw std::runtime_error("malformed value");
  return *value;
}

/// Reads what mirrors a `T`.
template <class T>
struct ReadingOf {
  template <class Node>
  static Mirror<T> from(const Node& node) {
    if constexpr (std::is_same_v<T, Text>)
      return std::string(node.text());
    else if constexpr (std::is_same_v<T, UUID>)
      return required(UUID::fromText(node.text()));
    else if constexpr (std::is_same_v<T, Instant>)
      return required(instantFromText(node.text()));
    else if constexpr (RawValueEnumeration<T>)
      return required(fromRawValue<T>(node.text()));
    else if constexpr (std::is_same_v<T, bool>)
      return node.boolean();
    else if constexpr (std::is_same_v<T, double>)
      return node.number();
    else if constexpr (std::is_same_v<T, std::int64_t>)
      return node.integer();
  }
  template <class Node>
  static Mirror<T> fromField(const Node& record, std::string_view key) {
    return from(record.at(key));
  }
};

template <RecordType T>
struct ReadingOf<T> {
  template <class Node>
  static Mirror<T> from(const Node& node) {
    return std::apply(
        [&node](const auto&... field) {
          return Mirror<T>{
              ReadingOf<typename std::remove_cvref_t<decltype(field)>::ValueType>::fromField(
                  node, field.key)...};
        },
        fieldsOf<T>());
  }
  template <class Node>
  static Mirror<T> fromField(const Node& record, std::string_view key) {
    return from(record.at(key));
  }
};

template <class T>
struct ReadingOf<List<T>> {
  template <class Node>
  static Mirror<List<T>> fromField(const Node& record, std::string_view key) {
    Mirror<List<T>> elements;
    record.at(key).elements(
        [&](const Node& element) { elements.push_back(ReadingOf<T>::from(element)); });
    return elements;
  }
};

template <class T>
struct ReadingOf<std::optional<T>> {
  template <class Node>
  static std::optional<Mirror<T>> fromField(const Node& record, std::string_view key) {
    const std::optional<Node> node = record.find(key);
    if (!node) return std::nullopt;
    return ReadingOf<T>::from(*node);
  }
};

}  // namespace korrin::benchmarks
