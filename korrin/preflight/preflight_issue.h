#pragma once

// What preflight reports: how serious, by which rule, and about what.

#include <optional>

#include "korrin/foundation/enumeration.h"
#include "korrin/foundation/record.h"
#include "korrin/foundation/text.h"

#pragma GCC visibility push(default)

namespace korrin {

/// How serious an issue is, the most serious first.
enum class PreflightSeverity { error, warning, information };

template <>
struct CaseTable<PreflightSeverity> {
  static constexpr std::array cases = {
      Case{PreflightSeverity::error, "error"},
      Case{PreflightSeverity::warning, "warning"},
      Case{PreflightSeverity::information, "information"},
  };
};

/// Which check produced an issue. There is no list of all rules: a host shows what it is given.
enum class PreflightRule {
  duplicateInputChannel,
  duplicateMonitorMix,
  incompleteInput,
  unplacedInput,
  unplacedMonitor,
  monitorWithoutOutput,
  missingItemLabel,
  invalidPlotReference,
  itemOutsideStage,
  invalidEquipmentQuantity,
  missingAsset,
};

template <>
struct CaseTable<PreflightRule> {
  static constexpr bool isHidden = true;
  static constexpr std::array cases = {
      Case{PreflightRule::duplicateInputChannel, "duplicateInputChannel"},
      Case{PreflightRule::duplicateMonitorMix, "duplicateMonitorMix"},
      Case{PreflightRule::incompleteInput, "incompleteInput"},
      Case{PreflightRule::unplacedInput, "unplacedInput"},
      Case{PreflightRule::unplacedMonitor, "unplacedMonitor"},
      Case{PreflightRule::monitorWithoutOutput, "monitorWithoutOutput"},
      Case{PreflightRule::missingItemLabel, "missingItemLabel"},
      Case{PreflightRule::invalidPlotReference, "invalidPlotReference"},
      Case{PreflightRule::itemOutsideStage, "itemOutsideStage"},
      Case{PreflightRule::invalidEquipmentQuantity, "invalidEquipmentQuantity"},
      Case{PreflightRule::missingAsset, "missingAsset"},
  };
};

/// One finding about a plot. Its `id` names the rule and the record, so that it stays the same from
/// one inspection to the next while the finding stands.
class PreflightIssue {
 public:
  /// Forms `id` from the rule's raw value, ":" and the text of `recordID`, or else of `relatedID`,
  /// or else `detail`. Later changes of the other members do not change it.
  PreflightIssue(PreflightRule rule, PreflightSeverity severity, Text title, Text detail,
                 std::optional<UUID> relatedID = std::nullopt,
                 std::optional<UUID> recordID = std::nullopt);

  Text id;                     ///< Tells the finding from others; see the constructor.
  PreflightRule rule;          ///< The check that found it.
  PreflightSeverity severity;  ///< How much it matters.
  Text title;                  ///< A short heading.
  Text detail;                 ///< One sentence of explanation or advice.
  /// The plot item that the issue concerns or that the concerned record points at; absent when
  /// there is none in the project.
  std::optional<UUID> relatedID;
  /// The input, monitor mix or equipment line that the issue concerns; absent for an issue about an
  /// item.
  std::optional<UUID> recordID;

  friend bool operator==(const PreflightIssue&, const PreflightIssue&) = default;
};

template <>
constexpr auto fieldsOf<PreflightIssue>() {
  return std::tuple{
      Field{"id", &PreflightIssue::id},
      Field{"rule", &PreflightIssue::rule},
      Field{"severity", &PreflightIssue::severity},
      Field{"title", &PreflightIssue::title},
      Field{"detail", &PreflightIssue::detail},
      Field{"relatedID", &PreflightIssue::relatedID},
      Field{"recordID", &PreflightIssue::recordID},
  };
}
template <>
inline constexpr bool standsInDocuments<PreflightIssue> = false;

}  // namespace korrin

#pragma GCC visibility pop
