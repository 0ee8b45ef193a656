#pragma once

// How review looks at records through their field tables: what tells records of a list apart, what
// counts as one value, when two values are the same, and how a value is written. Not public.

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>

#include "korrin/coding/json_value.h"
#include "korrin/model/document_coding.h"
#include "korrin/model/project.h"

namespace korrin::revision {

/// Records whose fields are values of their own. Points and sizes are one value each: nobody moves
/// an item along x and means nothing by y.
template <class Value>
inline constexpr bool isWalked = RecordType<Value>;
template <>
inline constexpr bool isWalked<StagePoint> = false;
template <>
inline constexpr bool isWalked<StageSize> = false;

template <class Value>
inline constexpr bool isList = false;
template <class Element>
inline constexpr bool isList<List<Element>> = true;

template <class Value>
inline constexpr bool isOptional = false;
template <class Value>
inline constexpr bool isOptional<std::optional<Value>> = true;

template <class Field>
using ValueOf = typename std::decay_t<Field>::ValueType;

/// What tells a record apart from the others of its list.
template <class Record>
const auto& identityOf(const Record& record) {
  if constexpr (requires { record.id(); })
    return record.id();
  else
    return record.id;
}
template <class Record>
using IdentityOf = std::decay_t<decltype(identityOf(std::declval<const Record&>()))>;

inline std::string textOf(const UUID& id) { return id.text(); }
inline std::string textOf(const Text& digest) { return digest.str(); }

/// The same value to a user: equal, and a not-a-number is as good as another.
struct Alike {
  static bool agree(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }
  static bool agree(const Text& a, const Text& b) { return a == b; }
};

/// The same value to the bit and to the byte.
struct Exact {
  static bool agree(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
  }
  static bool agree(const Text& a, const Text& b) {
    return std::string_view(a) == std::string_view(b);
  }
};

/// Whether two values are the same in the sense of `How`: `Alike` or `Exact`.
template <class How, class Value>
bool agree(const Value& a, const Value& b) {
  if constexpr (std::is_same_v<Value, double> || std::is_same_v<Value, Text>) {
    return How::agree(a, b);
  } else if constexpr (isOptional<Value>) {
    return a.has_value() == b.has_value() && (!a || agree<How>(*a, *b));
  } else if constexpr (isList<Value>) {
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), agree<How, typename Value::value_type>);
  } else if constexpr (RecordType<Value>) {
    if (&a == &b) return true;
    bool agrees = true;
    forEachField<Value>([&](const auto& field) {
      agrees = agrees && agree<How>(a.*field.member, b.*field.member);
    });
    return agrees;
  } else {
    return a == b;
  }
}

/// The value as differences and conflicts hold it; nothing for an absent one.
template <class Value>
std::string jsonOf(const Value& value) {
  if constexpr (isOptional<Value>)
    return value ? jsonOf(*value) : std::string();
  else
    return encodeJSONValue(value, {.nonFinite = NonFinite::strings});
}

/// The path of a field inside the record at `path`.
inline std::string below(const std::string& path, std::string_view key) {
  return path.empty() ? std::string(key) : path + "." + std::string(key);
}

/// Whether this is the field that every edit sets.
template <class Field>
constexpr bool isModifiedAt(const Field& field) {
  if constexpr (std::is_same_v<decltype(field.member), Instant ProjectMetadata::*>)
    return field.member == &ProjectMetadata::modifiedAt;
  else
    return false;
}

}  // namespace korrin::revision
