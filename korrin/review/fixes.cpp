#include "korrin/review/fixes.h"

#include <algorithm>

#include "korrin/preflight/preflight_engine.h"
#include "korrin/review/fix_laws.h"
#include "korrin/review/fix_rules.h"
#include "korrin/review/rules.h"

namespace korrin {
namespace {

// The link of a row of any list.
std::optional<Fix> noLink(const KorrinProject& project, const IssueSubject& subject) {
  switch (subject.list) {
    case ProjectList::inputs:
      return fixes::noInputLink(project, subject.index);
    case ProjectList::monitorMixes:
      return fixes::noMixLink(project, subject.index);
    case ProjectList::equipmentRequirements:
      return fixes::noEquipmentLink(project, subject.index);
    case ProjectList::items:
      break;
  }
  return std::nullopt;
}

// What may be done, the safest first.
std::vector<std::optional<Fix>> candidates(PreflightRule rule, const IssueSubject& subject,
                                           const KorrinProject& project,
                                           const Environment& environment) {
  using namespace fixes;
  const std::size_t place = subject.index;
  switch (rule) {
    case PreflightRule::duplicateInputChannel:
      return {freeChannel(project, place), noChannel(project, place)};
    case PreflightRule::duplicateMonitorMix:
      return {freeMixNumber(project, place), noMixNumber(project, place)};
    case PreflightRule::incompleteInput:
      return {sourceFromLabel(project, place)};
    case PreflightRule::unplacedInput:
      return {linkInputByName(project, place)};
    case PreflightRule::unplacedMonitor:
      return {linkMixByName(project, place)};
    case PreflightRule::missingItemLabel:
      return {labelFromRow(project, place, environment), hiddenLabel(project, place, environment)};
    case PreflightRule::invalidPlotReference:
      return {noLink(project, subject)};
    case PreflightRule::itemOutsideStage:
      return {moveInside(project, place, environment)};
    case PreflightRule::invalidEquipmentQuantity:
      return {quantityOfOne(project, place), withoutLine(project, place)};
    case PreflightRule::monitorWithoutOutput:
    case PreflightRule::missingAsset:
      break;
  }
  return {};
}

bool stands(const PreflightIssue& issue, const KorrinProject& project) {
  const std::vector<PreflightIssue> issues = PreflightEngine::inspect(project, {});
  return std::find(issues.begin(), issues.end(), issue) != issues.end();
}

}  // namespace

std::vector<Fix> fixesFor(const PreflightIssue& issue, const KorrinProject& project,
                          const Environment& environment) {
  const std::optional<IssueSubject> subject = subjectOf(issue, project);
  if (!subject || !stands(issue, project)) return {};
  std::vector<Fix> offered;
  for (std::optional<Fix>& fix : candidates(issue.rule, *subject, project, environment))
    if (fix) offered.push_back(std::move(*fix));
  return fixes::keepLawful(std::move(offered), issue.id, issue.title, project,
                           fixes::preflightFindings);
}

}  // namespace korrin
