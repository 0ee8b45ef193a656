#include "korrin/review/audit.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "korrin/review/audit_rules.h"

namespace korrin {
namespace auditing {

AuditFinding finding(AuditRule rule, Text detail, std::string_view place, List<UUID> itemIDs,
                     std::optional<UUID> recordID) {
  const AuditRuleDescription& description = auditRules()[static_cast<std::size_t>(rule)];
  std::string id(rawValue(rule));
  id.append(":").append(place);
  return {.rule = rule,
          .severity = description.severity,
          .title = description.title,
          .detail = std::move(detail),
          .itemIDs = std::move(itemIDs),
          .recordID = recordID,
          .id = std::move(id)};
}

namespace {

// A rule: its check and, where there is one, its fix.
struct Rule {
  AuditRule rule;
  void (*check)(const KorrinProject&, Findings&);
  std::optional<Fix> (*fix)(PlotLookup&, const AuditFinding&, const Environment&);
};

// In the order of the cases.
constexpr Rule rules[] = {
    {AuditRule::missingLayer, missingLayers, firstLayer},
    {AuditRule::hiddenItems, hiddenItems, shownLayer},
    {AuditRule::missingGroup, missingGroups, noGroup},
    {AuditRule::oneSidedMembership, oneSidedMemberships, followedGroup},
    {AuditRule::unknownMember, unknownMembers, knownMembers},
    {AuditRule::repeatedMember, repeatedMembers, membersOnce},
    {AuditRule::emptyGroup, emptyGroups, withoutGroup},
    {AuditRule::unencodableNumber, unencodableNumbers, noHeight},
    {AuditRule::rotatedOutsideStage, rotatedOutsideStage, turnedInside},
    {AuditRule::unreadableTint, unreadableTints, noTint},
    {AuditRule::sharedIdentifier, sharedIdentifiers, freshIdentifiers},
    {AuditRule::numberBelowOne, numbersBelowOne, noNumber},
    {AuditRule::unusedAsset, unusedAssets, withoutAsset},
    {AuditRule::repeatedAsset, repeatedAssets, assetOnce},
    {AuditRule::newerFormat, newerFormat, nullptr},
};
static_assert(std::size(rules) == CaseTable<AuditRule>::cases.size());

}  // namespace

std::optional<Fix> fixOf(PlotLookup& plot, const AuditFinding& finding,
                         const Environment& environment) {
  const auto fix = rules[static_cast<std::size_t>(finding.rule)].fix;
  return fix == nullptr ? std::nullopt : fix(plot, finding, environment);
}

}  // namespace auditing

std::vector<AuditFinding> audit(const KorrinProject& project) {
  std::vector<AuditFinding> findings;
  for (const auditing::Rule& rule : auditing::rules) rule.check(project, findings);
  std::stable_sort(findings.begin(), findings.end(),
                   [](const AuditFinding& a, const AuditFinding& b) {
                     if (a.severity != b.severity) return a.severity < b.severity;
                     return std::tie(a.title, a.detail, a.id) < std::tie(b.title, b.detail, b.id);
                   });
  return findings;
}

}  // namespace korrin
