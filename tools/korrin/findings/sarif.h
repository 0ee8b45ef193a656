#pragma once

// Findings in SARIF 2.1.0, the format in which programs that show code reviews take them.

#include <span>
#include <string>

#include "findings/findings.h"

namespace korrin::host {

/// The log of one run over all files, indented, without a final line break. A finding's id is its
/// fingerprint, an accepted finding is suppressed, and a file that was refused is a notification.
std::string sarifLog(std::span<const FileFindings> files, ExitCode exitCode);

}  // namespace korrin::host
