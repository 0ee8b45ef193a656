#include <gtest/gtest.h>

#include "tests/support/fuzz_corpus.h"

namespace korrin::test {
namespace {

TEST(DrawingFuzzing, FindsNothingInItsCommittedCorpus) {
  EXPECT_GE(replayFuzzCorpus("drawing"), 8u);
}

}  // namespace
}  // namespace korrin::test
