#pragma once

// The audit: what neither validation nor preflight looks at, such as items on layers that do not
// exist, and groups and items that disagree about each other.

#include <span>
#include <vector>

#include "korrin/review/fixes.h"

#pragma GCC visibility push(default)

namespace korrin {

/// Which check of the audit produced a finding.
enum class AuditRule {
  missingLayer,
  hiddenItems,
  missingGroup,
  oneSidedMembership,
  unknownMember,
  repeatedMember,
  emptyGroup,
  unencodableNumber,
  rotatedOutsideStage,
  unreadableTint,
  sharedIdentifier,
  numberBelowOne,
  unusedAsset,
  repeatedAsset,
  newerFormat,
};

template <>
struct CaseTable<AuditRule> {
  static constexpr std::array cases = {
      Case{AuditRule::missingLayer, "missingLayer"},
      Case{AuditRule::hiddenItems, "hiddenItems"},
      Case{AuditRule::missingGroup, "missingGroup"},
      Case{AuditRule::oneSidedMembership, "oneSidedMembership"},
      Case{AuditRule::unknownMember, "unknownMember"},
      Case{AuditRule::repeatedMember, "repeatedMember"},
      Case{AuditRule::emptyGroup, "emptyGroup"},
      Case{AuditRule::unencodableNumber, "unencodableNumber"},
      Case{AuditRule::rotatedOutsideStage, "rotatedOutsideStage"},
      Case{AuditRule::unreadableTint, "unreadableTint"},
      Case{AuditRule::sharedIdentifier, "sharedIdentifier"},
      Case{AuditRule::numberBelowOne, "numberBelowOne"},
      Case{AuditRule::unusedAsset, "unusedAsset"},
      Case{AuditRule::repeatedAsset, "repeatedAsset"},
      Case{AuditRule::newerFormat, "newerFormat"},
  };
};

/// A rule of the audit in words, as `RuleDescription` is for a rule of preflight.
struct AuditRuleDescription {
  AuditRule rule;                ///< The rule; its raw value is its name.
  PreflightSeverity severity;    ///< How serious its findings are.
  std::string_view title;        ///< A short heading.
  std::string_view explanation;  ///< What it means on a stage, in sentences.
  std::string_view remedy;       ///< How to mend it, in sentences.
};

/// All rules of the audit in the order of `AuditRule`.
std::span<const AuditRuleDescription> auditRules();

/// One finding of the audit.
struct AuditFinding {
  AuditRule rule;              ///< The check that found it.
  PreflightSeverity severity;  ///< How much it matters.
  Text title;                  ///< A short heading.
  Text detail;                 ///< One sentence of explanation or advice.
  /// The items concerned, each once, in the project's order or, under a rule about groups, in the
  /// group's and then the project's; for `unknownMember` the identifiers that are no item's.
  List<UUID> itemIDs;
  /// The group, layer or row concerned; absent when the finding is about items, assets or the
  /// document alone.
  std::optional<UUID> recordID;
  /// The rule's raw value, ":", and the identifier of the record concerned, an asset's digest, or
  /// the document's key for `newerFormat`: the same from one audit to the next while the finding
  /// stands.
  Text id;

  friend bool operator==(const AuditFinding&, const AuditFinding&) = default;
};

template <>
constexpr auto fieldsOf<AuditFinding>() {
  return std::tuple{
      Field{"rule", &AuditFinding::rule},       Field{"severity", &AuditFinding::severity},
      Field{"title", &AuditFinding::title},     Field{"detail", &AuditFinding::detail},
      Field{"itemIDs", &AuditFinding::itemIDs}, Field{"recordID", &AuditFinding::recordID},
      Field{"id", &AuditFinding::id},
  };
}
static_assert(tableIsComplete<AuditFinding>);
template <>
inline constexpr bool standsInDocuments<AuditFinding> = false;

/// Everything that the audit has to say about the project, the most serious first, then by title,
/// detail and id in text order. One finding for each item, layer, group, row, digest or shared
/// identifier concerned. Empty when there is nothing. Changes nothing; throws nothing but
/// std::bad_alloc. Takes O(n log n) time.
std::vector<AuditFinding> audit(const KorrinProject& project);

/// The ways to mend the finding, as `fixesFor` offers them for one of preflight, under the same
/// promises: no error or warning of audit or preflight appears. A finding about a group whose
/// mending would leave the group empty has none, nor has an empty group that an item still names.
std::vector<Fix> fixesFor(const AuditFinding& finding, const KorrinProject& project,
                          const Environment& environment = Environment::system());

}  // namespace korrin

#pragma GCC visibility pop
