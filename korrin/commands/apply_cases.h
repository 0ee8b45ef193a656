#pragma once

// How each case but `Compound` changes a project. The functions work in place and may leave a
// project half changed when they throw: `DocumentCommand::apply` hands them a copy.

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

/// Sets `modifiedAt` to the current instant, which is read here and nowhere else.
inline void touch(KorrinProject& project, const Environment& environment) {
  project.metadata.modifiedAt = environment.now();
}

}  // namespace korrin
