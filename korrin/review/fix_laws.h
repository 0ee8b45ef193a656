#pragma once

// What a fix promises, held against the inspection that reported the finding.

#include <vector>

#include "korrin/foundation/text.h"
#include "korrin/review/fixes.h"

namespace korrin::fixes {

/// A finding as it is told from others: by its identifier and, since lists may share identifiers,
/// its title.
struct FindingName {
  Text id;
  Text title;
  bool isSerious;  ///< An error or a warning.
};

/// The inspection that judges: the names of all findings of a project.
using Inspection = std::vector<FindingName> (*)(const KorrinProject& project);

std::vector<FindingName> preflightFindings(const KorrinProject& project);
/// Of preflight and of the audit.
std::vector<FindingName> allFindings(const KorrinProject& project);

/// The fixes after which the finding is gone and no error or warning stands more often than before,
/// in their order.
std::vector<Fix> keepLawful(std::vector<Fix> fixes, const Text& id, const Text& title,
                            const KorrinProject& project, Inspection inspect);

}  // namespace korrin::fixes
