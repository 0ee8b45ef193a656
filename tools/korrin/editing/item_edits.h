#pragma once

// Editing commands for items of the plot. `words` are those behind the command's name; the session
// prints what changed. All throw LineError when the line is refused.

#include "editing/edit_commands.h"

namespace korrin::host {

/// @{
/// EDGE ITEM ITEM..., AXIS ITEM ITEM ITEM...
void alignItems(EditSession& session, const EditCommand::Words& words);
void distributeItems(EditSession& session, const EditCommand::Words& words);
/// @}

/// @{
/// ITEM... DX DY; the words at the end are numbers.
void moveItems(EditSession& session, const EditCommand::Words& words);
void rotateItems(EditSession& session, const EditCommand::Words& words);
void resizeItems(EditSession& session, const EditCommand::Words& words);
/// @}

/// AXIS ITEM...
void flipItems(EditSession& session, const EditCommand::Words& words);

/// @{
/// ITEM...; unlocking is the one edit that a locked item takes.
void lockItems(EditSession& session, const EditCommand::Words& words);
void unlockItems(EditSession& session, const EditCommand::Words& words);
void deleteItems(EditSession& session, const EditCommand::Words& words);
void groupItems(EditSession& session, const EditCommand::Words& words);
/// @}

/// ITEM TEXT
void labelItem(EditSession& session, const EditCommand::Words& words);

/// How help names the edges of `alignItems`.
std::string edgeNames();

}  // namespace korrin::host
