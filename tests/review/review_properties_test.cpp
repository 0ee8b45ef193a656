#include <random>

#include <gtest/gtest.h>

#include "tests/support/fuzz_corpus.h"
#include "tests/support/properties.h"
#include "tests/support/random_revisions.h"
#include "tests/support/review_laws.h"

namespace korrin::test {
namespace {

TEST(DifferenceProperties, HoldForRevisionsOfRandomProjects) {
  expectAlways("differences are right", [] {
    RandomRevisions revisions(drawn());
    const KorrinProject before = revisions.revised(revisions.project());
    require(differencesAreRight(before, revisions.revised(before)));
  });
}

TEST(DifferenceProperties, HoldForUnrelatedProjects) {
  expectAlways("differences are right", [] {
    RandomRevisions revisions(drawn());
    require(differencesAreRight(revisions.project(), revisions.project()));
  });
}

TEST(MergeProperties, HoldForTwoRevisionsOfARandomProject) {
  expectAlways("a merge is right", [] {
    RandomRevisions revisions(drawn());
    const KorrinProject base = revisions.project();
    require(mergeIsRight(base, revisions.revised(base), revisions.revised(base)));
  });
}

TEST(MergeProperties, HoldForUnrelatedProjects) {
  expectAlways("a merge is right", [] {
    RandomRevisions revisions(drawn());
    require(mergeIsRight(revisions.project(), revisions.project(), revisions.project()));
  });
}

TEST(MergeFuzzing, FindsNothingInItsCommittedCorpus) { EXPECT_GT(replayFuzzCorpus("merge"), 10u); }

}  // namespace
}  // namespace korrin::test
