#pragma once

// What differs between two states of a plot.

#include "korrin/commands/change_set.h"
#include "korrin/model/project.h"

namespace korrin {

/// Names every item that is new, gone or different to the bit, and raises the flags of everything
/// else that differs; a different order of items, other export settings and other format versions
/// count as structure. What the states share is not looked at.
ChangeSet changesBetween(const KorrinProject& before, const KorrinProject& after);

}  // namespace korrin
