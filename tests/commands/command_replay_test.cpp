#include <gtest/gtest.h>

#include "tests/support/fuzz_corpus.h"

namespace korrin::test {
namespace {

TEST(CommandFuzzing, FindsNothingInItsCommittedCorpus) {
  EXPECT_GT(replayFuzzCorpus("command"), 100u);
}

}  // namespace
}  // namespace korrin::test
