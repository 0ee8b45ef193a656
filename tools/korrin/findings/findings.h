#pragma once

// What checking one file brought to light.

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "korrin/preflight/preflight_issue.h"

#include "assets/judged_asset.h"
#include "documents/plot_document.h"
#include "terminal/exit_code.h"

namespace korrin::host {

/// Number of findings of each severity, in the order of `PreflightSeverity`.
using SeverityCounts = std::array<std::size_t, 3>;

/// The outcome for one file: refused, or inspected.
struct FileFindings {
  std::string name;                      ///< The file as the user named it.
  std::optional<Refusal> refusal;        ///< Absent when the file was inspected.
  KorrinProject project;                 ///< Meaningless when refused.
  std::vector<PreflightIssue> issues;    ///< In the engine's order; empty when refused.
  std::string missingAssetNotRunReason;  ///< Empty when the rule missingAsset was run.
  /// The images of the plot's manifest, in its order; absent when they were not looked for.
  std::optional<std::vector<JudgedAsset>> assets = {};

  SeverityCounts counts() const;
  /// Information alone is clean, and an image that is not accepted is a finding.
  ExitCode exitCode() const;
};

}  // namespace korrin::host
