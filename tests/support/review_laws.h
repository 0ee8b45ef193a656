#pragma once

// What holds for the differences of any two projects and for the merge of any three.

#include <gtest/gtest.h>

#include "korrin/model/project.h"

namespace korrin::test {

/// - A project does not differ from itself, nor from its copy that shares no storage.
/// - There are differences exactly where the projects differ in more than `modifiedAt`.
/// - For each list as many records are added, removed and moved as a comparison of each record with
///   each other finds, and the records with a changed field are those that it finds changed.
/// - What is shared does not matter: copies that share nothing have the same differences.
/// - Each difference has a sentence, on one line and with nothing in it that a terminal obeys.
testing::AssertionResult differencesAreRight(const KorrinProject& before,
                                             const KorrinProject& after);

/// - A side that changed nothing gives the other side to the bit, but for `modifiedAt`.
/// - Both sides alike give that side.
/// - An edit of either side is in the result or in a conflict, and nothing else is in the result.
/// - Without conflicts the sides may be exchanged, but for the order of additions.
/// - No identifier stands in the result more often than in one of the three, where it stands in
///   each of them once at most, in whatever list; and the result passes validation where they do.
/// - What is shared does not matter.
testing::AssertionResult mergeIsRight(const KorrinProject& base, const KorrinProject& ours,
                                      const KorrinProject& theirs);

}  // namespace korrin::test
