#pragma once

// Editing commands that show the plot and change nothing. `words` are those behind the command's
// name; all throw LineError when the line is refused.

#include "editing/edit_commands.h"

namespace korrin::host {

/// [LIST], or symbols
void listRecords(EditSession& session, const EditCommand::Words& words);

/// [ITEM], or LIST NAME; what belongs to no list without words
void showRecord(EditSession& session, const EditCommand::Words& words);

/// TEXT
void findText(EditSession& session, const EditCommand::Words& words);

/// No words.
void preflightPlot(EditSession& session, const EditCommand::Words& words);

}  // namespace korrin::host
