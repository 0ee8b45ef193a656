#pragma once

// Conflicts of a merge for people.

#include <ostream>
#include <string_view>
#include <vector>

#include "korrin/review/merge.h"

namespace korrin::host {

/// The three plots that were merged.
struct MergedSides {
  const KorrinProject& base;
  const KorrinProject& ours;
  const KorrinProject& theirs;
};

/// Says how many conflicts there are, and for each what either side did and what stands.
void printConflicts(std::ostream& out, std::string_view name,
                    const std::vector<MergeConflict>& conflicts, const MergedSides& sides);

}  // namespace korrin::host
