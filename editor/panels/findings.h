#pragma once

// What preflight and audit have to say about a plot, in one list.

#include <set>
#include <variant>
#include <vector>

#include "korrin/review/audit.h"
#include "korrin/review/rules.h"
#include "korrin/review/waivers.h"

namespace korrin::editor {

struct Finding {
  PreflightSeverity severity;
  Text id;
  Text title;  ///< This and the detail are in the user's language.
  Text detail;
  IDSet items;                          ///< The items concerned.
  std::optional<IssueSubject> subject;  ///< The row concerned, where it stands in a list.
  std::optional<Waiver> waiver;         ///< Why it was accepted, where it was.
  std::variant<PreflightIssue, AuditFinding> source;
};

/// The open findings, the most serious first; those that were accepted after them. `missing` are
/// the digests of embedded images that will not be printed, since their files are not there.
std::vector<Finding> findingsOf(const KorrinProject& project, const WaiverList& waivers,
                                const std::set<Text>& missing);

/// The ways to mend a finding. The plot is the one that it was found in.
std::vector<Fix> fixesOf(const Finding& finding, const KorrinProject& project,
                         const Environment& environment);

}  // namespace korrin::editor
