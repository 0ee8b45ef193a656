#include "editor/panels/findings.h"

#include <algorithm>

#include "korrin/drawing/symbol_catalogue.h"
#include "korrin/preflight/preflight_engine.h"

#include "editor/languages/library_texts.h"
#include "editor/plot/qt_texts.h"

namespace korrin::editor {
namespace {

Text inUsersLanguage(const Text& sentence) {
  return toText(editor::inUsersLanguage(toQString(sentence)));
}

Finding findingOf(const PreflightIssue& issue, const KorrinProject& project) {
  Finding finding{.severity = issue.severity,
                  .id = issue.id,
                  .title = inUsersLanguage(issue.title),
                  .detail = inUsersLanguage(issue.detail),
                  .items = {},
                  .subject = subjectOf(issue, project),
                  .waiver = {},
                  .source = issue};
  if (issue.relatedID) finding.items.insert(*issue.relatedID);
  return finding;
}

Finding findingOf(const AuditFinding& found) {
  return {.severity = found.severity,
          .id = found.id,
          .title = inUsersLanguage(found.title),
          .detail = inUsersLanguage(found.detail),
          .items = IDSet(found.itemIDs.begin(), found.itemIDs.end()),
          .subject = {},
          .waiver = {},
          .source = found};
}

}  // namespace

std::vector<Finding> findingsOf(const KorrinProject& project, const WaiverList& waivers) {
  const ReviewedIssues issues =
      review(PreflightEngine::inspect(project, builtInAssetIDs()), waivers);
  const ReviewedFindings audited = review(audit(project), waivers);
  std::vector<Finding> findings;
  for (const PreflightIssue& issue : issues.open) findings.push_back(findingOf(issue, project));
  for (const AuditFinding& found : audited.open) findings.push_back(findingOf(found));
  const auto bySeverity = [](const Finding& a, const Finding& b) {
    return a.severity < b.severity;
  };
  std::stable_sort(findings.begin(), findings.end(), bySeverity);

  const auto openOnes = std::ptrdiff_t(findings.size());
  for (const WaivedIssue& waived : issues.waived) {
    findings.push_back(findingOf(waived.issue, project));
    findings.back().waiver = waived.waiver;
  }
  for (const WaivedFinding& waived : audited.waived) {
    findings.push_back(findingOf(waived.finding));
    findings.back().waiver = waived.waiver;
  }
  std::stable_sort(findings.begin() + openOnes, findings.end(), bySeverity);
  return findings;
}

std::vector<Fix> fixesOf(const Finding& finding, const KorrinProject& project,
                         const Environment& environment) {
  return std::visit([&](const auto& source) { return fixesFor(source, project, environment); },
                    finding.source);
}

}  // namespace korrin::editor
