#include "findings/findings.h"

namespace korrin::host {

SeverityCounts FileFindings::counts() const {
  SeverityCounts counts{};
  for (const PreflightIssue& issue : issues) ++counts[static_cast<std::size_t>(issue.severity)];
  if (audit)
    for (const AuditFinding& finding : *audit) ++counts[static_cast<std::size_t>(finding.severity)];
  return counts;
}

ExitCode FileFindings::exitCode() const {
  if (refusal) return refusal->exitCode();
  const auto [errors, warnings, information] = counts();
  const ExitCode found =
      errors + warnings > 0 || (isStrict && !stale.empty()) ? ExitCode::findings : ExitCode::clean;
  return assets ? worse(found, exitCodeOf(*assets)) : found;
}

}  // namespace korrin::host
