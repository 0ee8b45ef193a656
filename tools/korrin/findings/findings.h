#pragma once

// What checking one file brought to light.

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "korrin/preflight/preflight_issue.h"
#include "korrin/review/waivers.h"

#include "assets/judged_asset.h"
#include "documents/plot_document.h"
#include "terminal/exit_code.h"

namespace korrin::host {

/// Number of findings of each severity, in the order of `PreflightSeverity`.
using SeverityCounts = std::array<std::size_t, 3>;

/// One finding of preflight or of the audit, as reports show it.
struct FindingRow {
  std::string_view rule;  ///< Its raw value.
  PreflightSeverity severity;
  Text id;
  Text title;
  Text detail;
  std::string concern;  ///< What it is about; may be empty. Not yet fit for a terminal.
};

/// A finding that somebody accepted.
struct AcceptedFinding {
  FindingRow row;
  Waiver waiver;
};

/// The outcome for one file: refused, or inspected.
struct FileFindings {
  std::string name;                      ///< The file as the user named it.
  std::optional<Refusal> refusal;        ///< Absent when the file was inspected.
  KorrinProject project;                 ///< Meaningless when refused.
  std::vector<PreflightIssue> issues;    ///< In the engine's order, without the accepted ones.
  std::string missingAssetNotRunReason;  ///< Empty when the rule missingAsset was run.
  /// The images of the plot's manifest, in its order; absent when they were not looked for.
  std::optional<std::vector<JudgedAsset>> assets = {};
  /// What the audit found, without the accepted ones; absent when it was not asked for.
  std::optional<std::vector<AuditFinding>> audit = {};
  std::vector<AcceptedFinding> waived = {};  ///< The most serious first.
  std::vector<Waiver> stale = {};            ///< Waivers that accept nothing.
  bool isStrict = false;                     ///< Whether a stale waiver is a finding.

  /// Of the open findings.
  SeverityCounts counts() const;
  /// Information alone is clean, and an image that is not accepted is a finding.
  ExitCode exitCode() const;
};

}  // namespace korrin::host
