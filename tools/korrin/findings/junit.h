#pragma once

// Findings as the XML in which build servers take the results of tests.

#include <span>
#include <string>

#include "findings/findings.h"

namespace korrin::host {

/// One suite for each file, one case for each finding: errors and warnings fail, accepted findings
/// are skipped with the reason, information passes. A file without findings is one case that
/// passes, and one that was refused is an error. Ends with a line break.
std::string junitReport(std::span<const FileFindings> files);

}  // namespace korrin::host
