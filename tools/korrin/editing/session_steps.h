#pragma once

// Editing commands for the session itself. `words` are those behind the command's name; all throw
// LineError when the line is refused.

#include "editing/edit_commands.h"

namespace korrin::host {

/// @{
/// No words.
void undoEdit(EditSession& session, const EditCommand::Words& words);
void redoEdit(EditSession& session, const EditCommand::Words& words);
void listEdits(EditSession& session, const EditCommand::Words& words);
void printHelp(EditSession& session, const EditCommand::Words& words);
void quitSession(EditSession& session, const EditCommand::Words& words);
/// @}

/// @{
/// [FILE]
void savePlot(EditSession& session, const EditCommand::Words& words);
void savePlotAnyway(EditSession& session, const EditCommand::Words& words);
/// @}

}  // namespace korrin::host
