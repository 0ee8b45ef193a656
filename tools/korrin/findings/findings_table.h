#pragma once

// Findings for a person to read.

#include <ostream>
#include <vector>

#include "findings/findings.h"
#include "terminal/terminal.h"

namespace korrin::host {

/// Prints a table of the findings about the project, one a row, in columns aligned by display
/// width; nothing when there are none. Long cells are wrapped to the terminal's width, names of
/// records are shortened first. Nothing a document holds reaches the terminal as a command.
void printFindings(std::ostream& out, const Terminal& terminal, const KorrinProject& project,
                   const std::vector<PreflightIssue>& issues);

/// The same for rows.
void printRows(std::ostream& out, const Terminal& terminal, const std::vector<FindingRow>& rows);

/// Prints who accepted what and why, and the waivers that accept nothing; nothing when there are
/// none.
void printWaivers(std::ostream& out, const Terminal& terminal, const FileFindings& file);

/// The line that sums a file up: how many findings of each severity, and what was not checked.
std::string summaryLine(const FileFindings& file);

}  // namespace korrin::host
