#pragma once

// How each case but `Compound` changes a project. All of them first make what may fail, the inverse
// and the reading of the clock among it, and then exchange parts of the project without fail: what
// they throw leaves the project as it was. The clock is read nowhere else.

#include <type_traits>

#include "korrin/commands/command_result.h"

namespace korrin {

CommandResult applyCase(const InsertItems& insert, KorrinProject& project,
                        const Environment& environment);
CommandResult applyCase(const DeleteItems& deletion, KorrinProject& project,
                        const Environment& environment);
CommandResult applyCase(const ReplaceItems& replacement, KorrinProject& project,
                        const Environment& environment);
CommandResult applyCase(const ReplaceGroups& replacement, KorrinProject& project,
                        const Environment& environment);
CommandResult applyCase(const ReplaceLayers& replacement, KorrinProject& project,
                        const Environment& environment);
CommandResult applyCase(const ReplaceAssetManifest& replacement, KorrinProject& project,
                        const Environment& environment);
CommandResult applyCase(const ReplaceMetadata& replacement, KorrinProject& project,
                        const Environment& environment);
CommandResult applyCase(const ReplaceStage& replacement, KorrinProject& project,
                        const Environment& environment);
CommandResult applyCase(const ReplaceInputs& replacement, KorrinProject& project,
                        const Environment& environment);
CommandResult applyCase(const ReplaceMonitorMixes& replacement, KorrinProject& project,
                        const Environment& environment);
CommandResult applyCase(const ReplaceEquipment& replacement, KorrinProject& project,
                        const Environment& environment);
CommandResult applyCase(const ReplaceNotes& replacement, KorrinProject& project,
                        const Environment& environment);
CommandResult applyCase(const ReplaceProject& replacement, KorrinProject& project,
                        const Environment& environment);

/// What all of them rest on: shared storage is exchanged, and nothing is allocated.
static_assert(std::is_nothrow_copy_assignable_v<KorrinProject>);
static_assert(std::is_nothrow_move_assignable_v<KorrinProject>);
static_assert(std::is_nothrow_move_constructible_v<CommandResult>);

}  // namespace korrin
