#pragma once

// What applying a command gives back.

#include "korrin/commands/change_set.h"
#include "korrin/commands/document_command.h"

#pragma GCC visibility push(default)

namespace korrin {

/// The way back and what changed.
struct CommandResult {
  /// The command that brings the edited project back to what it was; see `DocumentCommand`. A host
  /// keeps it for undo.
  DocumentCommand inverse;
  ChangeSet changes;  ///< What to refresh.
};

}  // namespace korrin

#pragma GCC visibility pop
