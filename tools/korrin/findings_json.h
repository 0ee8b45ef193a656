#pragma once

// Findings for a program to read; docs/check-report.md describes the object.

#include <span>
#include <string>

#include "findings.h"

namespace korrin::host {

/// Version of the report's shape; raised when a member changes its meaning or goes away.
inline constexpr int reportVersion = 1;

/// The report on all files as one JSON object, indented, without a final line break.
std::string findingsReport(std::span<const FileFindings> files, ExitCode exitCode);

}  // namespace korrin::host
