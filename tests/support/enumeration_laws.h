#pragma once

// What holds for every enumeration that has raw values. A test calls the laws in one line, with the
// table that the enumeration must have.

#include <algorithm>
#include <ranges>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "korrin/foundation/enumeration.h"

#include "tests/support/locales.h"

namespace korrin::test {

template <class E>
inline constexpr bool offersAllCases = requires {
  allCases<E>();
};

/// Each case of `expected` has its text and its place in declaration order, is found by exactly
/// that text, and there is no other case.
template <RawValueEnumeration E>
void expectRawValues(const std::vector<Case<E>>& expected) {
  EXPECT_EQ(CaseTable<E>::cases.size(), expected.size());
  std::size_t place = 0;
  for (const Case<E>& row : expected) {
    const std::string text(row.rawValue);
    SCOPED_TRACE(text);
    EXPECT_EQ(static_cast<std::size_t>(row.value), place++);
    EXPECT_EQ(rawValue(row.value), text);
    EXPECT_EQ(fromRawValue<E>(text), row.value);

    std::string otherCase = text;
    otherCase[0] = capital(otherCase[0]);
    for (const std::string& other :
         {otherCase, " " + text, text + " ", "\t" + text, text + text, text.substr(1)})
      EXPECT_FALSE(fromRawValue<E>(other).has_value()) << other;
  }
  EXPECT_FALSE(fromRawValue<E>("").has_value());
}

/// The raw values, and the public list of all cases in declaration order.
template <ListedEnumeration E>
void expectEnumerationLaws(const std::vector<Case<E>>& expected) {
  expectRawValues(expected);
  const auto all = allCases<E>();
  static_assert(std::ranges::sized_range<decltype(all)>);
  EXPECT_TRUE(std::ranges::equal(all, expected, {}, {}, &Case<E>::value));
}

}  // namespace korrin::test
