// Fails every allocation of a line of korrin edit in turn: the line is refused, and the plot and
// what can be undone are as they were.

#include <cstddef>
#include <new>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "documents/plot_document.h"
#include "editing/edit_session.h"
#include "scratch.h"
#include "tests/support/allocations.h"

namespace korrin::host {
namespace {

class LineWithoutMemory : public testing::TestWithParam<std::string> {
 protected:
  /// What the session prints for a line.
  std::string said(const std::string& line) {
    out.str("");
    session.run(line);
    return out.str();
  }

  std::ostringstream out;
  std::ostringstream err;
  Console console{out, err, {}, {}};
  const Scratch scratch;
  EditSession session{{.file = scratch.path("plot.json"), .environment = Environment::system()},
                      decodeDocument(exampleDocument("festival-main-stage"), DateStrategy::iso8601),
                      console};
};

TEST_P(LineWithoutMemory, ChangesNothingAndCanBeRepeated) {
  session.run("label GTR first");
  session.run("label first second");
  session.run("copy second");
  session.run("undo");
  const KorrinProject before = session.project();
  const std::string edits = said("history");
  std::size_t allocations = 0;
  for (bool isDone = false; !isDone; ++allocations) {
    try {
      const AllocationLimit limit(allocations, 1);
      session.run(GetParam());
      isDone = true;
    } catch (const std::bad_alloc&) {
    }
    if (isDone) break;
    ASSERT_EQ(session.project(), before) << allocations;
    ASSERT_EQ(said("history"), edits) << allocations;
  }
  EXPECT_GT(allocations, 3u);
  EXPECT_TRUE(out.good());
}

INSTANTIATE_TEST_SUITE_P(Lines, LineWithoutMemory,
                         testing::Values("label first third", "delete first", "undo", "redo",
                                         "paste 0 10", "duplicate first 1 1", "layer Risers first",
                                         "set title \"A title of more than fifteen bytes\"",
                                         "save"));

}  // namespace
}  // namespace korrin::host
