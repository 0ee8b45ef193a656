#pragma once

// The edits that every editor offers for a selection, as commands.
//
// Every function here leaves the project as it is and returns the command to perform on it as it
// stands; nothing where that command would change nothing but `modifiedAt`. Undo is exact. Unknown
// identifiers are passed over. Selected items that may not be edited (see
// `KorrinProject::canEditItem`) are treated as if they were not selected. Where items
// of a damaged plot share an identifier, none of them is edited unless all may be, and the first
// one stands for them.

#include <optional>

#include "korrin/session/clipboard.h"

#pragma GCC visibility push(default)

namespace korrin {

/// Moves items by so many millimetres. Nothing where no position changes, since `by` is zero or too
/// small beside the positions.
std::optional<DocumentCommand> movingCommand(const KorrinProject& project, const IDSet& selection,
                                             StagePoint by);

/// Deletes items, with all that `DeleteItems` entails.
std::optional<DocumentCommand> deletingCommand(const KorrinProject& project,
                                               const IDSet& selection);

/// Dissolves every group that lists a selected item, except groups that also list an item that may
/// not be edited. The group goes, and all items that name it belong to none.
std::optional<DocumentCommand> ungroupingCommand(const KorrinProject& project,
                                                 const IDSet& selection);

/// Where items go in the stacking order of their layer.
enum class StackingMove {
  toFront,   ///< Above all others.
  forward,   ///< One further up.
  backward,  ///< One further down.
  toBack,    ///< Below all others.
};

/// Restacks items within their layers. The places that a layer's items take in `items` stay that
/// layer's. Here B and C are selected, x is an item of another layer:
///
///     A B x C D     toFront   ->   A D x B C     forward    ->   A D x B C
///                   toBack    ->   B C x A D     backward   ->   B C x A D
///
///     A B x D C     forward   ->   A D x B C     where C is in front already and stays
///
/// A command that replaces the project: it reads the clock, where there is something to do.
std::optional<DocumentCommand> stackingCommand(
    const KorrinProject& project, const IDSet& selection, StackingMove move,
    const Environment& environment = Environment::system());

/// Puts items on another layer. Nothing when there is no such layer or it is locked; a hidden one
/// will do.
std::optional<DocumentCommand> layerAssigningCommand(const KorrinProject& project,
                                                     const IDSet& selection, UUID layerID);

/// Deletes a layer. Its items move to the layer `moveItemsTo`, or are deleted with all that
/// `DeleteItems` entails when that is absent. Nothing when the layer is unknown, the last one or
/// locked, when an item on it is locked or shares its identifier with another item, or when
/// `moveItemsTo` names no other layer or a locked one. A hidden layer goes like any other.
std::optional<DocumentCommand> layerDeletingCommand(const KorrinProject& project, UUID layerID,
                                                    std::optional<UUID> moveItemsTo);

/// Replaces the export settings, by a command that replaces the project: it reads the clock, where
/// there is something to do.
std::optional<DocumentCommand> exportSettingsCommand(
    const KorrinProject& project, ExportSettings settings,
    const Environment& environment = Environment::system());

/// Copies the selected items, those that may not be edited as well, and pastes the copies shifted
/// by so many millimetres in front of everything; see `fragmentOf` and `pastingCommand`.
std::optional<Paste> duplicatingCommand(const KorrinProject& project, const IDSet& selection,
                                        StagePoint by,
                                        const Environment& environment = Environment::system());

}  // namespace korrin

#pragma GCC visibility pop
