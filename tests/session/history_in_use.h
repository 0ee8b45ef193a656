#pragma once

// What the tests of the history share: a clock that they set, and a symbol that they move.

#include <cmath>

#include <gtest/gtest.h>

#include "korrin/foundation/same_bits.h"
#include "korrin/session/edit_history.h"

#include "tests/support/laws.h"
#include "tests/support/sample_project.h"

namespace korrin::test {

// A clock that stands until it is set.
struct Clock {
  Instant time = instant(1000);
  int reads = 0;
  Environment environment = {.now =
                                 [this] {
                                   ++reads;
                                   return time;
                                 },
                             .makeUUID = [] { return identifier(0xE000); }};
};

inline DocumentCommand move(const KorrinProject& project, double x, UUID id = sample::vocal) {
  for (const PlotItem& item : project.items)
    if (item.id == id) {
      PlotItem moved = item;
      moved.position.x = x;
      return DocumentCommand::replaceItems({moved});
    }
  return DocumentCommand::replaceItems({});
}

inline double xOf(const EditHistory& history, UUID id = sample::vocal) {
  for (const PlotItem& item : history.project().items)
    if (item.id == id) return item.position.x;
  return std::nan("");
}

inline void expectSame(const KorrinProject& project, const KorrinProject& expected) {
  EXPECT_TRUE(sameBits(withModifiedAt(project, {}), withModifiedAt(expected, {})));
}

}  // namespace korrin::test
