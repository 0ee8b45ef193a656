#include <gtest/gtest.h>

#include "tests/support/fuzz_corpus.h"

namespace korrin::test {
namespace {

TEST(OpeningFuzzing, FindsNothingInItsCommittedCorpus) {
  EXPECT_GT(replayFuzzCorpus("opening"), 15u);
}

}  // namespace
}  // namespace korrin::test
