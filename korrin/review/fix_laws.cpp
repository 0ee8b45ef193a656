#include "korrin/review/fix_laws.h"

#include <algorithm>
#include <map>
#include <utility>

#include "korrin/preflight/preflight_engine.h"
#include "korrin/review/audit.h"

namespace korrin::fixes {
namespace {

// How often each error and warning stands.
using Counts = std::map<std::pair<Text, Text>, std::size_t>;

Counts seriousOnes(const std::vector<FindingName>& findings) {
  Counts counts;
  for (const FindingName& finding : findings)
    if (finding.isSerious) ++counts[{finding.id, finding.title}];
  return counts;
}

bool contains(const std::vector<FindingName>& findings, const Text& id, const Text& title) {
  return std::any_of(findings.begin(), findings.end(), [&](const FindingName& finding) {
    return finding.id == id && finding.title == title;
  });
}

bool areAmong(const Counts& after, const Counts& before) {
  return std::all_of(after.begin(), after.end(), [&before](const auto& entry) {
    const auto found = before.find(entry.first);
    return found != before.end() && entry.second <= found->second;
  });
}

}  // namespace

std::vector<FindingName> preflightFindings(const KorrinProject& project) {
  std::vector<FindingName> names;
  for (const PreflightIssue& issue : PreflightEngine::inspect(project, {}))
    names.push_back({issue.id, issue.title, issue.severity != PreflightSeverity::information});
  return names;
}

std::vector<FindingName> allFindings(const KorrinProject& project) {
  std::vector<FindingName> names = preflightFindings(project);
  for (const AuditFinding& finding : audit(project))
    names.push_back(
        {finding.id, finding.title, finding.severity != PreflightSeverity::information});
  return names;
}

std::vector<Fix> keepLawful(std::vector<Fix> fixes, const Text& id, const Text& title,
                            const KorrinProject& project, Inspection inspect) {
  if (fixes.empty()) return fixes;
  // A rehearsal: the host's clock is not asked.
  const Environment rehearsal = {.now = [] { return Instant(); },
                                 .makeUUID = [] { return UUID(); }};
  const Counts before = seriousOnes(inspect(project));
  std::erase_if(fixes, [&](const Fix& fix) {
    KorrinProject mended = project;
    fix.command.apply(mended, rehearsal);
    const std::vector<FindingName> after = inspect(mended);
    return contains(after, id, title) || !areAmong(seriousOnes(after), before);
  });
  return fixes;
}

}  // namespace korrin::fixes
