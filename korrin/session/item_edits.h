#pragma once

// Edits of the selected items one by one: any change of their fields, alignment and locks; and what
// a click on a member of a group selects. The rules are those of structural_edits.h: the project
// stays as it is, items that may not be edited count as not selected, undo is exact, and there is
// no command where nothing but `modifiedAt` would change.

#include <functional>
#include <optional>

#include "korrin/commands/document_command.h"
#include "korrin/geometry/item_alignment.h"

#pragma GCC visibility push(default)

namespace korrin {

/// Changes each item by `change`, which gets it as it stands, in the order of `items`. Whatever
/// `change` does to the identifier is undone. One `replaceItems`, of those that differ afterwards.
/// What `change` throws passes through.
std::optional<DocumentCommand> changingCommand(const KorrinProject& project, const IDSet& selection,
                                               const std::function<void(PlotItem&)>& change);

/// Lines items up as `KorrinGeometry::applying` does: nothing for fewer than two, or than three in
/// a distribution.
std::optional<DocumentCommand> aligningCommand(const KorrinProject& project, const IDSet& selection,
                                               ItemAlignment alignment);

/// Locks items, or unlocks them. Unlike every other edit it is about all items that may be
/// selected (see `KorrinProject::canSelectItem`), locked or not.
std::optional<DocumentCommand> lockingCommand(const KorrinProject& project, const IDSet& selection,
                                              bool isLocked);

/// The items of the selection together with all members of the groups that list one of them, as far
/// as they may be selected. Unknown identifiers and others that may not be selected are left out.
IDSet withGroupMembers(const KorrinProject& project, const IDSet& selection);

}  // namespace korrin

#pragma GCC visibility pop
