#include "korrin/review/fixes.h"

#include <utility>

#include "korrin/review/audit_rules.h"
#include "korrin/review/fix_laws.h"
#include "korrin/review/fix_rules.h"
#include "korrin/review/plot_lookup.h"

namespace korrin {
namespace {

using fixes::PlotLookup;

// The link of a row of any list.
std::optional<Fix> noLink(PlotLookup& plot, const IssueSubject& subject) {
  switch (subject.list) {
    case ProjectList::inputs:
      return fixes::noInputLink(plot, subject.index);
    case ProjectList::monitorMixes:
      return fixes::noMixLink(plot, subject.index);
    case ProjectList::equipmentRequirements:
      return fixes::noEquipmentLink(plot, subject.index);
    case ProjectList::items:
      break;
  }
  return std::nullopt;
}

// What may be done, the safest first.
std::vector<std::optional<Fix>> candidates(PreflightRule rule, const IssueSubject& subject,
                                           PlotLookup& plot, const Environment& environment) {
  using namespace fixes;
  const std::size_t place = subject.index;
  switch (rule) {
    case PreflightRule::duplicateInputChannel:
      return {freeChannel(plot, place), noChannel(plot, place)};
    case PreflightRule::duplicateMonitorMix:
      return {freeMixNumber(plot, place), noMixNumber(plot, place)};
    case PreflightRule::incompleteInput:
      return {sourceFromLabel(plot, place)};
    case PreflightRule::unplacedInput:
      return {linkInputByName(plot, place)};
    case PreflightRule::unplacedMonitor:
      return {linkMixByName(plot, place)};
    case PreflightRule::missingItemLabel:
      return {labelFromRow(plot, place, environment), hiddenLabel(plot, place, environment)};
    case PreflightRule::invalidPlotReference:
      return {noLink(plot, subject)};
    case PreflightRule::itemOutsideStage:
      return {moveInside(plot, place, environment)};
    case PreflightRule::invalidEquipmentQuantity:
      return {quantityOfOne(plot, place), withoutLine(plot, place)};
    case PreflightRule::monitorWithoutOutput:
    case PreflightRule::missingAsset:
      break;
  }
  return {};
}

// A valid project needs no trial: the laws hold by what each fix is. Where records of a list share
// an identifier, a finding may stand on for the other one.
std::vector<Fix> lawful(std::vector<Fix> offered, const Text& id, const Text& title,
                        const PlotLookup& plot, fixes::Inspection inspect) {
  if (!plot.ids().hasRepeats()) return offered;
  return fixes::keepLawful(std::move(offered), id, title, plot.project(), inspect);
}

}  // namespace

FixFinder::FixFinder(KorrinProject project)
    : plot_(std::make_unique<PlotLookup>(std::move(project))) {}
FixFinder::FixFinder(FixFinder&&) noexcept = default;
FixFinder& FixFinder::operator=(FixFinder&&) noexcept = default;
FixFinder::~FixFinder() = default;

std::vector<Fix> FixFinder::operator()(const PreflightIssue& issue,
                                       const Environment& environment) {
  if (!plot_->has(issue)) return {};
  const std::optional<IssueSubject> subject = plot_->subjectOf(issue);
  if (!subject) return {};
  std::vector<Fix> offered;
  for (std::optional<Fix>& fix : candidates(issue.rule, *subject, *plot_, environment))
    if (fix) offered.push_back(std::move(*fix));
  return lawful(std::move(offered), issue.id, issue.title, *plot_, fixes::preflightFindings);
}

std::vector<Fix> FixFinder::operator()(const AuditFinding& finding,
                                       const Environment& environment) {
  if (!plot_->has(finding)) return {};
  std::vector<Fix> offered;
  if (std::optional<Fix> fix = auditing::fixOf(*plot_, finding, environment))
    offered.push_back(std::move(*fix));
  return lawful(std::move(offered), finding.id, finding.title, *plot_, fixes::allFindings);
}

std::vector<Fix> fixesFor(const PreflightIssue& issue, const KorrinProject& project,
                          const Environment& environment) {
  return FixFinder(project)(issue, environment);
}

std::vector<Fix> fixesFor(const AuditFinding& finding, const KorrinProject& project,
                          const Environment& environment) {
  return FixFinder(project)(finding, environment);
}

}  // namespace korrin
