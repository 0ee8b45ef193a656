#pragma once

// How the cases that need more than a row in replaced_parts.h change a project. Like the rows, they
// first make whatever may fail, the inverse and the reading of the clock among it. Then they
// exchange parts of the project, which cannot fail. What they throw leaves the project as it was.

#include <type_traits>

#include "korrin/commands/document_command.h"

namespace korrin {

CommandResult applyCase(const InsertItems& insert, KorrinProject& project,
                        const Environment& environment);
CommandResult applyCase(const DeleteItems& deletion, KorrinProject& project,
                        const Environment& environment);
CommandResult applyCase(const ReplaceItems& replacement, KorrinProject& project,
                        const Environment& environment);
CommandResult applyCase(const ReplaceProject& replacement, KorrinProject& project,
                        const Environment& environment);

/// What all of them rest on: shared storage is exchanged, and nothing is allocated.
static_assert(std::is_nothrow_copy_assignable_v<KorrinProject>);
static_assert(std::is_nothrow_move_assignable_v<KorrinProject>);
static_assert(std::is_nothrow_move_constructible_v<CommandResult>);

}  // namespace korrin
