#pragma once

// Findings for a program to read; docs/check-report.md describes the object.

#include <span>
#include <string>

#include "findings/findings.h"

namespace korrin::host {

/// The report on all files as one JSON object, indented, without a final line break.
std::string findingsReport(std::span<const FileFindings> files, ExitCode exitCode);

}  // namespace korrin::host
