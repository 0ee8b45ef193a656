#pragma once

// The records of a project as a program would hold them that shares nothing: every list is a
// std::vector and every text a std::string, so that a copy of a project copies all of it. Derived
// from the field tables, so that the mirror holds exactly what the records hold.

#include <cstddef>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "korrin/model/project.h"

namespace korrin::benchmarks {

/// The type that mirrors `T`, and how a value of it is copied deeply.
template <class T>
struct MirrorOf {
  using Type = T;
  static Type of(const T& value) { return value; }
};
template <class T>
using Mirror = typename MirrorOf<T>::Type;

template <>
struct MirrorOf<Text> {
  using Type = std::string;
  static Type of(const Text& text) { return text.str(); }
};

template <class T>
struct MirrorOf<std::optional<T>> {
  using Type = std::optional<Mirror<T>>;
  static Type of(const std::optional<T>& value) {
    if (!value) return std::nullopt;
    return MirrorOf<T>::of(*value);
  }
};

template <class T>
struct MirrorOf<List<T>> {
  using Type = std::vector<Mirror<T>>;
  static Type of(const List<T>& list) {
    Type vector;
    vector.reserve(list.size());
    for (const T& element : list) vector.push_back(MirrorOf<T>::of(element));
    return vector;
  }
};

template <RecordType T>
struct MirrorOf<T> {
  template <class... Fields>
  static std::tuple<Mirror<typename Fields::ValueType>...> typed(const std::tuple<Fields...>&);
  using Type = decltype(typed(fieldsOf<T>()));
  static Type of(const T& record) {
    return std::apply(
        [&record](const auto&... field) {
          return Type{MirrorOf<std::remove_cvref_t<decltype(record.*field.member)>>::of(
              record.*field.member)...};
        },
        fieldsOf<T>());
  }
};

template <class Record, class Value, class... Fields>
constexpr std::size_t placeOf(Value Record::*member, const std::tuple<Fields...>& table) {
  std::size_t place = 0;
  const auto isTheMember = [member](const auto& field) {
    if constexpr (std::is_same_v<std::remove_cvref_t<decltype(field.member)>, Value Record::*>)
      return field.member == member;
    else
      return false;
  };
  std::apply(
      [&](const auto&... field) {
        static_cast<void>(((isTheMember(field) ? true : (++place, false)) || ...));
      },
      table);
  return place;
}

/// The mirror of one field, as in `field<&PlotItem::id>(item)`.
template <auto member, class Record, class Value>
constexpr std::size_t placeIn(Value Record::*) {
  return placeOf(member, fieldsOf<Record>());
}
template <auto member, class RecordMirror>
auto& field(RecordMirror& record) {
  return std::get<placeIn<member>(member)>(record);
}

}  // namespace korrin::benchmarks
