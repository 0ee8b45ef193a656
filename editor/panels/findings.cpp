#include "editor/panels/findings.h"

#include <QCoreApplication>
#include <algorithm>
#include <map>

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

// The plot as it would be with the images alone that are there.
KorrinProject withoutImages(KorrinProject project, const std::set<Text>& missing) {
  if (missing.empty()) return project;
  List<AssetManifestEntry> present;
  for (const AssetManifestEntry& entry : project.assetManifest)
    if (!missing.contains(entry.sha256)) present.push_back(entry);
  project.assetManifest = std::move(present);
  return project;
}

// What to do about symbols whose image was embedded and is gone.
void explainImages(std::vector<Finding>& findings, const KorrinProject& project,
                   const std::set<Text>& missing) {
  if (missing.empty()) return;
  std::map<Text, QString> names;
  for (const AssetManifestEntry& entry : project.assetManifest)
    if (missing.contains(entry.sha256)) names.emplace(entry.sha256, toQString(entry.filename));
  for (Finding& finding : findings) {
    const auto* issue = std::get_if<PreflightIssue>(&finding.source);
    if (issue == nullptr || issue->rule != PreflightRule::missingAsset || !finding.subject)
      continue;
    const auto name = names.find(project.items[finding.subject->index].assetID);
    if (name == names.end()) continue;
    finding.detail = toText(
        QCoreApplication::translate(
            "Findings",
            "The image “%1” is not there, or is not safe to show: it will not be printed. Put its "
            "file beside the plot, or delete the symbol and insert the image again.")
            .arg(name->second.left(60)));
  }
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

std::vector<Finding> findingsOf(const KorrinProject& project, const WaiverList& waivers,
                                const std::set<Text>& missing) {
  const ReviewedIssues issues =
      review(PreflightEngine::inspect(withoutImages(project, missing), builtInAssetIDs()), waivers);
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
  explainImages(findings, project, missing);
  return findings;
}

std::vector<Fix> fixesOf(const Finding& finding, const KorrinProject& project,
                         const Environment& environment) {
  return std::visit([&](const auto& source) { return fixesFor(source, project, environment); },
                    finding.source);
}

}  // namespace korrin::editor
