#pragma once

// Findings of preflight and of the audit in one form, for every report that a person or another
// program reads.

#include <vector>

#include "findings/findings.h"

namespace korrin::host {

/// The findings that nobody accepted, the most serious first, of equals preflight's first.
std::vector<FindingRow> openRows(const FileFindings& file);

/// These findings, in the same order.
std::vector<FindingRow> rowsOf(const KorrinProject& project,
                               const std::vector<PreflightIssue>& issues,
                               const std::vector<AuditFinding>& audit);

}  // namespace korrin::host
