#include "findings/finding_rows.h"

#include <algorithm>

#include "findings/concern.h"

namespace korrin::host {

std::vector<FindingRow> rowsOf(const KorrinProject& project,
                               const std::vector<PreflightIssue>& issues,
                               const std::vector<AuditFinding>& audit) {
  if (issues.empty() && audit.empty()) return {};
  const Concerns concerns(project);
  std::vector<FindingRow> rows;
  rows.reserve(issues.size() + audit.size());
  for (const PreflightIssue& issue : issues)
    rows.push_back({rawValue(issue.rule), issue.severity, issue.id, issue.title, issue.detail,
                    concerns.of(issue)});
  for (const AuditFinding& finding : audit)
    rows.push_back({rawValue(finding.rule), finding.severity, finding.id, finding.title,
                    finding.detail, concerns.of(finding)});
  std::ranges::stable_sort(rows, {}, &FindingRow::severity);
  return rows;
}

std::vector<FindingRow> openRows(const FileFindings& file) {
  return rowsOf(file.project, file.issues, file.audit.value_or(std::vector<AuditFinding>()));
}

}  // namespace korrin::host
