#include <gtest/gtest.h>

#include "tests/support/fuzz_corpus.h"

namespace korrin::test {
namespace {

TEST(DocumentFuzzing, FindsNothingInItsCommittedCorpus) {
  EXPECT_GT(replayFuzzCorpus("document"), 100u);
}

}  // namespace
}  // namespace korrin::test
