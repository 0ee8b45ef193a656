#include "findings.h"

namespace korrin::host {

SeverityCounts FileFindings::counts() const {
  SeverityCounts counts{};
  for (const PreflightIssue& issue : issues) ++counts[static_cast<std::size_t>(issue.severity)];
  return counts;
}

ExitCode FileFindings::exitCode() const {
  if (refusal) return refusal->exitCode();
  const auto [errors, warnings, information] = counts();
  return errors + warnings > 0 ? ExitCode::findings : ExitCode::clean;
}

}  // namespace korrin::host
