#pragma once

// Texts that are dates of documents and texts that are not, each with a name.

#include <ostream>
#include <string>
#include <vector>

#include "korrin/foundation/instant.h"

namespace korrin::test {

struct DateText {
  std::string name;
  std::string text;
  Instant instant;
};
inline void PrintTo(const DateText& row, std::ostream* out) { *out << row.text; }

struct WrongDate {
  std::string name;
  std::string text;
};
inline void PrintTo(const WrongDate& row, std::ostream* out) { *out << row.text; }

std::vector<DateText> acceptedDates();
std::vector<WrongDate> refusedDates();

}  // namespace korrin::test
