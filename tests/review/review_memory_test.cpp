// Fails every allocation of a comparison and of a merge in turn.

#include <cstddef>
#include <new>
#include <optional>

#include <gtest/gtest.h>

#include "korrin/model/document_coding.h"
#include "korrin/review/difference.h"
#include "korrin/review/merge.h"

#include "tests/support/allocations.h"
#include "tests/support/laws.h"
#include "tests/support/sample_project.h"

namespace korrin::test {
namespace {

/// Runs `action` with one more allocation each time until it succeeds; says how many it took.
template <class Action>
std::size_t allocationsUntilSuccess(Action action) {
  for (std::size_t allocations = 0;; ++allocations) {
    try {
      const AllocationLimit limit(allocations);
      action();
      return allocations;
    } catch (const std::bad_alloc&) {
    }
  }
}

struct Sides {
  KorrinProject base = sampleProject();
  KorrinProject ours = base;
  KorrinProject theirs = base;
};

// Records that come, go, move and change on both sides, conflicts and a shared identifier.
Sides editedSides() {
  Sides sides;
  const PlotItem first = sides.base.items[0];
  sides.ours.items.erase(0);
  sides.ours.items.push_back(first);
  sides.ours.items.edit(2).label = "a label of ours that is too long to stand in a string itself";
  sides.theirs.items.edit(1).label = "a label of theirs that is too long to stand in a string";
  sides.theirs.items.insert(3, microphone(identifier(700)));
  sides.theirs.items.erase(5);
  sides.ours.notes.push_back({.id = identifier(700), .title = "T", .body = "B"});
  sides.ours.metadata.title = "Ours";
  sides.theirs.metadata.title = "Theirs";
  sides.theirs.groups.erase(0);
  sides.ours.groups.edit(0).name = "Band";
  return sides;
}

TEST(ReviewWithoutMemory, LeavesAllProjectsOfAMergeAlone) {
  const Sides sides = editedSides();
  const std::string written =
      encodeJSON(sides.base) + encodeJSON(sides.ours) + encodeJSON(sides.theirs);
  const MergeResult expected = merge(sides.base, sides.ours, sides.theirs);
  std::optional<MergeResult> result;
  const std::size_t needed =
      allocationsUntilSuccess([&] { result = merge(sides.base, sides.ours, sides.theirs); });
  EXPECT_GT(needed, 20u);
  EXPECT_EQ(result->project, expected.project);
  EXPECT_EQ(result->conflicts, expected.conflicts);
  EXPECT_EQ(encodeJSON(sides.base) + encodeJSON(sides.ours) + encodeJSON(sides.theirs), written);
}

TEST(ReviewWithoutMemory, FindsAllDifferencesOrNone) {
  const Sides sides = editedSides();
  const auto expected = differences(sides.ours, sides.theirs);
  std::vector<Difference> found;
  EXPECT_GT(allocationsUntilSuccess([&] { found = differences(sides.ours, sides.theirs); }), 20u);
  EXPECT_EQ(found, expected);
  for (const Difference& one : expected) {
    const std::string sentence = sentenceFor(one, sides.ours, sides.theirs);
    std::string again;
    allocationsUntilSuccess([&] { again = sentenceFor(one, sides.ours, sides.theirs); });
    EXPECT_EQ(again, sentence);
  }
}

}  // namespace
}  // namespace korrin::test
