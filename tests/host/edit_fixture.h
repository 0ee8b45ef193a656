#pragma once

// A folder with a plot, for the tests of korrin edit.

#include <string_view>

#include <gtest/gtest.h>

#include "documents/plot_document.h"
#include "scratch.h"

namespace korrin::host {

inline KorrinProject plotIn(const Scratch& scratch, std::string_view name) {
  return decodeDocument(contentOf(scratch.path(name)), DateStrategy::iso8601);
}

/// A folder that holds a plot to edit.
class Edit : public testing::Test {
 protected:
  Edit() { scratch.write("plot.json", exampleDocument("festival-main-stage")); }

  Outcome run(std::string_view script) const {
    scratch.write("script", script);
    return scratch.korrin("edit plot.json --script script");
  }

  const Scratch scratch;
};

}  // namespace korrin::host
