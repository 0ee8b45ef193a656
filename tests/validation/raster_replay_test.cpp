#include <gtest/gtest.h>

#include "tests/support/fuzz_corpus.h"

namespace korrin::test {
namespace {

TEST(RasterFuzzing, FindsNothingInItsCommittedCorpus) {
  EXPECT_GT(replayFuzzCorpus("raster"), 100u);
}

}  // namespace
}  // namespace korrin::test
