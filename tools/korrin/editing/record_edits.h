#pragma once

// Editing commands for fields and records of any kind. What can be set follows from the field
// tables. `words` are those behind the command's name; all throw LineError when the line is
// refused.

#include "editing/edit_commands.h"

namespace korrin::host {

/// PATH VALUE of the plot or of an item, ITEM FIELD VALUE..., LIST NAME FIELD VALUE...
void setFieldsOf(EditSession& session, const EditCommand::Words& words);

/// item SYMBOL X Y [FIELD VALUE]..., LIST [FIELD VALUE]...
void addRecord(EditSession& session, const EditCommand::Words& words);

/// LIST NAME..., layer NAME [LAYER]
void removeRecords(EditSession& session, const EditCommand::Words& words);

/// @{
/// LIST NAME ITEM, LIST NAME: what shows an input, a mix or a line of equipment.
void linkRecord(EditSession& session, const EditCommand::Words& words);
void unlinkRecord(EditSession& session, const EditCommand::Words& words);
/// @}

/// input [FIRST], mix [FIRST]: numbers in the list's order.
void renumberList(EditSession& session, const EditCommand::Words& words);

/// WIDTH DEPTH [EDGE]
void setStage(EditSession& session, const EditCommand::Words& words);

/// SIZE
void setPaper(EditSession& session, const EditCommand::Words& words);

}  // namespace korrin::host
