#pragma once

// Enumerations whose cases have a text, their raw value, that stands for them in documents.
//
// An enumeration joins by one table under its declaration:
//
//   template <>
//   struct CaseTable<AudienceEdge> {
//     static constexpr std::array cases = {Case{AudienceEdge::top, "top"}, ...};
//   };

#include <array>
#include <concepts>
#include <cstddef>
#include <optional>
#include <string_view>

#include "korrin/foundation/precondition.h"

#pragma GCC visibility push(default)

namespace korrin {

/// A case and its raw value.
template <class Enumeration>
struct Case {
  Enumeration value;          ///< The case.
  std::string_view rawValue;  ///< The text that stands for it, different from all others.
};
template <class Enumeration>
Case(Enumeration, const char*) -> Case<Enumeration>;

/// The cases of an enumeration in declaration order, which counts from 0. A table with a member
/// `isHidden` keeps its list to itself: `allCases` is not offered. One with a member `isNotCodable`
/// names what stands in no document: `encodeJSON` and `decodeJSON` are not offered.
template <class Enumeration>
struct CaseTable;

/// An enumeration with a case table.
template <class T>
concept RawValueEnumeration = requires {
  CaseTable<T>::cases;
};

/// An enumeration whose table does not keep its list to itself.
template <class T>
concept ListedEnumeration = RawValueEnumeration<T> && !requires {
  CaseTable<T>::isHidden;
};

/// Whether the table's order is the declaration's, so that a case's number is its place.
template <RawValueEnumeration E>
inline constexpr bool casesStandInOrder = [] {
  std::size_t place = 0;
  for (const Case<E>& row : CaseTable<E>::cases)
    if (static_cast<std::size_t>(row.value) != place++) return false;
  return true;
}();

/// The text that stands for a case. Aborts for a value that is no case.
template <RawValueEnumeration E>
constexpr std::string_view rawValue(E value) {
  static_assert(casesStandInOrder<E>);
  const auto place = static_cast<std::size_t>(value);
  precondition(place < CaseTable<E>::cases.size(), "an enumeration holds a value that is no case");
  return CaseTable<E>::cases[place].rawValue;
}

/// The case with exactly this raw value: letter case counts and nothing is trimmed. Nothing for any
/// other text.
template <RawValueEnumeration E>
constexpr std::optional<E> fromRawValue(std::string_view text) {
  for (const Case<E>& row : CaseTable<E>::cases)
    if (row.rawValue == text) return row.value;
  return std::nullopt;
}

/// All cases in declaration order.
template <ListedEnumeration E>
constexpr auto allCases() {
  std::array<E, CaseTable<E>::cases.size()> cases{};
  std::size_t place = 0;
  for (const Case<E>& row : CaseTable<E>::cases) cases[place++] = row.value;
  return cases;
}

}  // namespace korrin

#pragma GCC visibility pop
