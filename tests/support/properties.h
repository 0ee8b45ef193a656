#pragma once

// Properties as tests: drawn a hundred times, made smaller when they fail. A run prints its seed;
// RC_PARAMS="seed=..." in the environment repeats it.

#include <string>

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include "tests/support/random_edits.h"

namespace korrin::test {

/// Choices made by the property testing library. For use inside a property.
inline Chance drawn() {
  return [](int limit) { return *rc::gen::resize(rc::kNominalSize, rc::gen::inRange(0, limit)); };
}

/// Fails the property at hand when a law does not hold.
inline void require(const testing::AssertionResult& law) {
  if (!law) RC_FAIL(std::string(law.message()));
}

template <class Property>
void expectAlways(const std::string& statement, Property property) {
  EXPECT_TRUE(rc::check(statement, property));
}

}  // namespace korrin::test
