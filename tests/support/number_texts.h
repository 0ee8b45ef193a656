#pragma once

// Numbers in every notation that JSON has, and what the fields of a document make of them.

#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

#include "korrin/coding/coding_error.h"

namespace korrin::test {

struct IntegerNotation {
  std::string name;
  std::string text;
  std::int64_t value;
};
inline void PrintTo(const IntegerNotation& row, std::ostream* out) { *out << row.text; }

struct IntegerRefused {
  std::string name;
  std::string text;
  DecodingError::Kind kind;
};
inline void PrintTo(const IntegerRefused& row, std::ostream* out) { *out << row.text; }

struct DoubleNotation {
  std::string name;
  std::string text;
  double value;
};
inline void PrintTo(const DoubleNotation& row, std::ostream* out) { *out << row.text; }

std::vector<IntegerNotation> acceptedIntegers();
std::vector<IntegerRefused> refusedIntegers();
std::vector<DoubleNotation> acceptedDoubles();
/// Texts that round to infinity.
std::vector<std::string> refusedDoubles();

}  // namespace korrin::test
