#pragma once

// The outside world as the library sees it.

#include <functional>

#include "korrin/foundation/instant.h"
#include "korrin/foundation/uuid.h"

#pragma GCC visibility push(default)

namespace korrin {

/// The two outside facts that operations read. A host that wants repeatable results copies
/// `system()` and replaces what it likes. Both functions must be callable; what they throw passes
/// through the operation that called them.
struct Environment {
  /// The current instant.
  std::function<Instant()> now;
  /// A fresh identifier, different from all others.
  std::function<UUID()> makeUUID;

  /// The system's clock and random version 4 identifiers.
  static Environment system();
};

}  // namespace korrin

#pragma GCC visibility pop
