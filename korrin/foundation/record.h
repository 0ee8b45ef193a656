#pragma once

// Records: plain aggregates whose fields stand in one table, from which hashing, document coding
// and every other walk over the fields are derived.
//
// A record joins by one table under its declaration:
//
//   template <>
//   constexpr auto fieldsOf<StagePoint>() {
//     return std::tuple{Field{"x", &StagePoint::x}, Field{"y", &StagePoint::y}};
//   }
//   static_assert(tableIsComplete<StagePoint>);

#include <concepts>
#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <unordered_set>

#include "korrin/foundation/hash.h"
#include "korrin/foundation/instant.h"
#include "korrin/foundation/uuid.h"

#pragma GCC visibility push(default)

namespace korrin {

/// A set of identifiers, in no order.
using IDSet = std::unordered_set<UUID>;

/// One field of a record: its key in documents, which is its name, and where it is held.
template <class Record, class Value>
struct Field {
  using ValueType = Value;  ///< What the field holds.

  std::string_view key;   ///< ASCII letters and digits.
  Value Record::*member;  ///< Never null.
};
template <class Record, class Value>
Field(std::string_view, Value Record::*) -> Field<Record, Value>;

/// The record's fields as a std::tuple of `Field`, in declaration order.
template <class Record>
constexpr auto fieldsOf() = delete;

/// A type with a field table.
template <class T>
concept RecordType = requires {
  fieldsOf<T>();
};

/// Whether documents hold records of this type. A record that stands in none says so under its
/// table.
template <class Record>
inline constexpr bool standsInDocuments = true;

/// Calls `visit(field)` for every field of the record, in declaration order.
template <class Record, class Visit>
constexpr void forEachField(Visit&& visit) {
  std::apply([&visit](const auto&... field) { (visit(field), ...); }, fieldsOf<Record>());
}

/// The key of the field that this member is; empty when the table does not name it.
template <class Record, class Value>
constexpr std::string_view keyOf(Value Record::*member) {
  std::string_view key;
  forEachField<Record>([&](const auto& field) {
    if constexpr (std::is_same_v<decltype(field.member), Value Record::*>)
      if (field.member == member) key = field.key;
  });
  return key;
}

namespace detail {

struct Anything {
  template <class T>
  operator T() const;
};

template <class Record, class Fields>
struct Completeness;
template <class Record, class... Values>
struct Completeness<Record, std::tuple<Field<Record, Values>...>> {
  static constexpr bool takesAll = requires { Record{std::declval<Values>()...}; };
  static constexpr bool takesMore = requires { Record{std::declval<Values>()..., Anything{}}; };
};

template <class Value>
std::size_t hashValue(const Value& value) {
  return std::hash<Value>{}(value);
}
inline std::size_t hashValue(Instant instant) {
  return std::hash<Instant::rep>{}(instant.time_since_epoch().count());
}
template <class Value>
std::size_t hashValue(const std::optional<Value>& value) {
  return value ? hashCombine(1, hashValue(*value)) : 0;
}
inline std::size_t hashValue(const IDSet& ids) {
  // A sum, since equal sets may hold their elements in different orders.
  std::size_t sum = ids.size();
  for (const UUID& id : ids) sum += hashCombine(0, hashValue(id));
  return sum;
}

}  // namespace detail

/// Whether the table names every field of the aggregate, with its type and in its order.
template <class Record>
inline constexpr bool tableIsComplete =
    detail::Completeness<Record, decltype(fieldsOf<Record>())>::takesAll &&
    !detail::Completeness<Record, decltype(fieldsOf<Record>())>::takesMore;

}  // namespace korrin

/// Every record hashes over all its fields in declaration order.
template <korrin::RecordType Record>
struct std::hash<Record> {
  std::size_t operator()(const Record& record) const {
    std::size_t seed = 0;
    korrin::forEachField<Record>([&](const auto& field) {
      seed = korrin::hashCombine(seed, korrin::detail::hashValue(record.*field.member));
    });
    return seed;
  }
};

#pragma GCC visibility pop
