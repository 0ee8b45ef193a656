#pragma once

// Why an item may not be edited, for a host that has to say so.

#include <optional>

#include "korrin/model/project.h"

#pragma GCC visibility push(default)

namespace korrin {

/// What keeps an item from being edited. Where several reasons hold, the first of this list is
/// given.
enum class EditRefusal {
  itemLocked,    ///< The item itself is locked.
  layerHidden,   ///< Its layer is not visible, locked or not.
  layerLocked,   ///< Its layer is locked.
  layerMissing,  ///< The project has no layer with its `layerID`.
};

/// Why the item may not be edited; nothing exactly where `canEditItem` is true. The item need not
/// belong to the project. Layers that share an identifier let an item be edited if any of them
/// does; otherwise the first of them gives the reason.
std::optional<EditRefusal> whyNotEditable(const KorrinProject& project, const PlotItem& item);

}  // namespace korrin

#pragma GCC visibility pop
