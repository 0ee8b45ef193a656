#include <gtest/gtest.h>

#include "tests/support/fuzz_corpus.h"

namespace korrin::test {
namespace {

TEST(PasteFuzzing, FindsNothingInItsCommittedCorpus) { EXPECT_GT(replayFuzzCorpus("paste"), 50u); }

}  // namespace
}  // namespace korrin::test
