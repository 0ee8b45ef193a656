#pragma once

// Everything that can be mended without a choice, mended at once.

#include <optional>
#include <vector>

#include "korrin/review/fixes.h"
#include "korrin/review/waivers.h"

#pragma GCC visibility push(default)

namespace korrin {

/// Fixes that were put together.
struct SafeFixes {
  std::vector<Text> titles;  ///< Of each fix, in the order in which they took effect.
  /// One replacement of the project. Meant for the project as it stood.
  DocumentCommand command;
};

/// The findings of preflight and of the audit that have one fix alone, mended together; nothing
/// where there is none. A fix that touches what another one did, or that another one made possible,
/// follows it, in at most 100 rounds. A finding that appears on the way is left alone,
/// and so is one that a waiver of `accepted` names.
///
/// Nothing either for a project in which a list holds an identifier twice: validation refuses it.
///
/// Changes nothing. Reads the clock. Takes O(n log n) time a round for the findings; a fix takes
/// far less than a look at each record, so that tens of thousands in one plot take seconds. A few
/// rounds are the rule.
std::optional<SafeFixes> safeFixes(const KorrinProject& project, const WaiverList& accepted = {},
                                   const Environment& environment = Environment::system());

}  // namespace korrin

#pragma GCC visibility pop
