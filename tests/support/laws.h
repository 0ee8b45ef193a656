#pragma once

// What holds for every command, whatever it is and whatever project it meets.

#include <gtest/gtest.h>

#include "korrin/commands/document_command.h"

namespace korrin::test {

/// The project with another `modifiedAt`.
KorrinProject withModifiedAt(KorrinProject project, Instant modifiedAt);

/// The cases that a command comes down to once its compounds are unfolded, in order.
std::vector<DocumentCommand> unfolded(const DocumentCommand& command);

/// Applying the command
/// - reads the clock once for each case that sets `modifiedAt`, and sets it to what was read;
/// - changes no field of the project that its cases do not concern, and none but metadata that the
///   change set does not answer for: an item that is new or different is named, all else flagged;
/// - leaves copies of the project alone.
testing::AssertionResult changesWhatItSays(const KorrinProject& project,
                                           const DocumentCommand& command);

/// Applying the inverse gives back the project but for `modifiedAt`, and after a deletion or a
/// replacement of the project, that too. Does not hold for inserts of items that are there already
/// or that groups and lists refer to.
testing::AssertionResult undoes(const KorrinProject& project, const DocumentCommand& command);

/// Applying the inverse's inverse after that gives the first result again but for `modifiedAt`.
testing::AssertionResult redoes(const KorrinProject& project, const DocumentCommand& command);

/// All of these laws.
void expectUndoAndRedo(const KorrinProject& project, const DocumentCommand& command);

}  // namespace korrin::test
