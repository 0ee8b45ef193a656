#pragma once

// Builds nlohmann's ordered tree from mirrored records, as a program would before it prints them.

#include <utility>

#include <nlohmann/json.hpp>

#include "korrin/coding/instant_text.h"

#include "benchmarks/support/mirror.h"

namespace korrin::benchmarks {

using OrderedTree = nlohmann::ordered_json;

/// The tree of what mirrors a `T`.
template <class T>
struct TreeOf {
  static OrderedTree of(const Mirror<T>& value) {
    if constexpr (std::is_same_v<T, UUID>)
      return value.text();
    else if constexpr (std::is_same_v<T, Instant>)
      return instantText(value);
    else if constexpr (RawValueEnumeration<T>)
      return rawValue(value);
    else
      return value;
  }
};

template <class T>
struct TreeOf<List<T>> {
  static OrderedTree of(const Mirror<List<T>>& elements) {
    OrderedTree tree = OrderedTree::array();
    for (const auto& element : elements) tree.push_back(TreeOf<T>::of(element));
    return tree;
  }
};

template <RecordType T>
struct TreeOf<T> {
  static OrderedTree of(const Mirror<T>& record) {
    OrderedTree tree = OrderedTree::object();
    std::apply(
        [&](const auto&... field) {
          std::apply([&](const auto&... value) { (add(tree, field, value), ...); }, record);
        },
        fieldsOf<T>());
    return tree;
  }

 private:
  template <class Value>
  static void add(OrderedTree& tree, const Field<T, Value>& field, const Mirror<Value>& value) {
    tree[std::string(field.key)] = TreeOf<Value>::of(value);
  }
  template <class Value>
  static void add(OrderedTree& tree, const Field<T, std::optional<Value>>& field,
                  const Mirror<std::optional<Value>>& value) {
    if (value) tree[std::string(field.key)] = TreeOf<Value>::of(*value);
  }
};

}  // namespace korrin::benchmarks
