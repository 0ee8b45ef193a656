#include <gtest/gtest.h>

#include "tests/support/fuzz_corpus.h"

namespace korrin::test {
namespace {

TEST(JSONFuzzing, FindsNothingInItsCommittedCorpus) {
  EXPECT_GT(replayFuzzCorpus("json_oracle"), 100u);
}

}  // namespace
}  // namespace korrin::test
