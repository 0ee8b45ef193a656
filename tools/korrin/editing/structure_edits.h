#pragma once

// Editing commands for the order, the layers and the groups of items, and for copies of them.
// `words` are those behind the command's name; all throw LineError when the line is refused.

#include "editing/edit_commands.h"

namespace korrin::host {

/// ITEM... DX DY
void duplicateItems(EditSession& session, const EditCommand::Words& words);

/// @{
/// ITEM...
void ungroupItems(EditSession& session, const EditCommand::Words& words);
void bringToFront(EditSession& session, const EditCommand::Words& words);
void bringForward(EditSession& session, const EditCommand::Words& words);
void sendBackward(EditSession& session, const EditCommand::Words& words);
void sendToBack(EditSession& session, const EditCommand::Words& words);
/// @}

/// LAYER ITEM...
void putOnLayer(EditSession& session, const EditCommand::Words& words);

/// LAYER [LAYER]: the second one takes the items of the first.
void removeLayer(EditSession& session, const EditCommand::Words& words);

/// GROUP...
void removeGroups(EditSession& session, const EditCommand::Words& words);

/// ITEM... [to FILE]
void copyItems(EditSession& session, const EditCommand::Words& words);

/// [from FILE] [DX DY]: what was copied in this session, or to a file.
void pasteItems(EditSession& session, const EditCommand::Words& words);

}  // namespace korrin::host
