#pragma once

// Findings that somebody accepted, and why. The list is kept in a file of its own beside the plot,
// NAME.waivers.json beside NAME.json, so that the plot stays what the venue receives.

#include <cstdint>
#include <vector>

#include "korrin/coding/json.h"
#include "korrin/review/audit.h"

#pragma GCC visibility push(default)

namespace korrin {

/// A finding that somebody accepted.
struct Waiver {
  Text findingID;  ///< The `id` of the finding.
  Text reason;     ///< Why it may stay.
  Text author;     ///< Who accepted it; may be empty.
  Instant date;    ///< When it was accepted.

  friend bool operator==(const Waiver&, const Waiver&) = default;
};

template <>
constexpr auto fieldsOf<Waiver>() {
  return std::tuple{
      Field{"findingID", &Waiver::findingID},
      Field{"reason", &Waiver::reason},
      Field{"author", &Waiver::author},
      Field{"date", &Waiver::date},
  };
}
static_assert(tableIsComplete<Waiver>);

/// What the file holds.
struct WaiverList {
  std::int64_t schemaVersion;  ///< Version of this format.
  List<Waiver> waivers;        ///< In the order in which they were given.

  /// The version that this library writes and understands.
  static constexpr std::int64_t currentSchemaVersion = 1;

  friend bool operator==(const WaiverList&, const WaiverList&) = default;
};

template <>
constexpr auto fieldsOf<WaiverList>() {
  return std::tuple{
      Field{"schemaVersion", &WaiverList::schemaVersion},
      Field{"waivers", &WaiverList::waivers},
  };
}
static_assert(tableIsComplete<WaiverList>);

/// A finding of preflight and the waiver that accepts it.
struct WaivedIssue {
  PreflightIssue issue;  ///< As it was found.
  Waiver waiver;         ///< The first one for it.

  friend bool operator==(const WaivedIssue&, const WaivedIssue&) = default;
};

/// Findings of preflight, sorted by whether they were accepted.
struct ReviewedIssues {
  std::vector<PreflightIssue> open;  ///< Those without a waiver, in their order.
  std::vector<WaivedIssue> waived;   ///< The others, in their order.
  /// Waivers whose finding is gone, and second ones for one finding, in their order.
  std::vector<Waiver> stale;

  friend bool operator==(const ReviewedIssues&, const ReviewedIssues&) = default;
};

/// Tells accepted findings from open ones. A waiver accepts every finding with its `findingID`;
/// where two have the same, the first does and the second is stale. Every finding and every waiver
/// that accepts none stands in exactly one place of the result. Takes O(n log n) time.
ReviewedIssues review(std::vector<PreflightIssue> issues, const WaiverList& waivers);

/// A finding of the audit and the waiver that accepts it.
struct WaivedFinding {
  AuditFinding finding;  ///< As it was found.
  Waiver waiver;         ///< The first one for it.

  friend bool operator==(const WaivedFinding&, const WaivedFinding&) = default;
};

/// Findings of the audit, sorted by whether they were accepted; see `ReviewedIssues`.
struct ReviewedFindings {
  std::vector<AuditFinding> open;     ///< Those without a waiver, in their order.
  std::vector<WaivedFinding> waived;  ///< The others, in their order.
  std::vector<Waiver> stale;          ///< Waivers that accept none, in their order.

  friend bool operator==(const ReviewedFindings&, const ReviewedFindings&) = default;
};

/// The same for findings of the audit. A host that keeps one list for both passes the `stale` of
/// the one review to the other: what is stale then accepts nothing.
ReviewedFindings review(std::vector<AuditFinding> findings, const WaiverList& waivers);

}  // namespace korrin

#pragma GCC visibility pop
