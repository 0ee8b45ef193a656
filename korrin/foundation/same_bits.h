#pragma once

// Equality to the bit, which is stricter than the records' own: texts by their bytes, and numbers
// so that -0 is not 0 and a not-a-number is itself.

#include <algorithm>
#include <bit>
#include <cstdint>
#include <optional>

#include "korrin/foundation/list.h"
#include "korrin/foundation/record.h"
#include "korrin/foundation/text.h"

namespace korrin {

template <class Value>
bool sameBits(const Value& a, const Value& b) {
  return a == b;
}
inline bool sameBits(double a, double b) {
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}
inline bool sameBits(const Text& a, const Text& b) {
  return std::string_view(a) == std::string_view(b);
}
template <RecordType Record>
bool sameBits(const Record& a, const Record& b);
template <class Element>
bool sameBits(const List<Element>& a, const List<Element>& b);

template <class Value>
bool sameBits(const std::optional<Value>& a, const std::optional<Value>& b) {
  return a.has_value() == b.has_value() && (!a || sameBits(*a, *b));
}
template <class Element>
bool sameBits(const List<Element>& a, const List<Element>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](const Element& x, const Element& y) { return sameBits(x, y); });
}
template <RecordType Record>
bool sameBits(const Record& a, const Record& b) {
  bool isSame = true;
  forEachField<Record>(
      [&](const auto& field) { isSame = isSame && sameBits(a.*field.member, b.*field.member); });
  return isSame;
}

}  // namespace korrin
