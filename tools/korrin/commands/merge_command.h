#pragma once

// korrin merge: two edited copies of one plot brought together.

#include <optional>
#include <string>

#include "korrin/coding/coding_options.h"

#include "commands/command.h"

namespace korrin::host {

struct MergeOptions {
  std::string base;    ///< The plot before both edits; an empty file where both sides made it.
  std::string ours;    ///< One edited copy; it stands where both changed the same.
  std::string theirs;  ///< The other edited copy.
  /// What git calls the plot. Where given, the merged plot replaces `ours`, unless `output` says
  /// otherwise.
  std::optional<std::string> path = std::nullopt;
  std::optional<std::string> output = std::nullopt;  ///< Absent or "-": the console's output.
  DateStrategy dates = DateStrategy::iso8601;        ///< How the dates of all plots are read.
};

/// Writes the merged plot in the layout of ours and lists the conflicts: on the console's output,
/// or on its error output where the plot goes to the former. The result is `findings` where there
/// are any. The merged plot is validated, and nothing is written where it or a file is refused.
ExitCode merge(const MergeOptions& options, Console& console);

Command mergeCommand();

}  // namespace korrin::host
