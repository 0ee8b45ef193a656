#pragma once

// korrin fix: what can be done about findings, and doing it.

#include <optional>
#include <string>
#include <vector>

#include "korrin/coding/coding_options.h"
#include "korrin/foundation/environment.h"

#include "commands/command.h"

namespace korrin::host {

struct FixOptions {
  std::string file;                   ///< "-" is standard input.
  std::vector<std::string> findings;  ///< Each an id, or an id, "#" and the number of a choice.
  bool isDryRun = false;
  bool fixesAllSafe = false;
  bool isPretty = false;
  std::optional<std::string> output = {};  ///< Absent for the file itself.
  DateStrategy dates = DateStrategy::iso8601;
  Environment environment = Environment::system();
};

/// Lists what can be done about every finding of preflight and audit. With findings named, or all
/// that have one fix alone, applies the fixes and writes the plot, all of them or none: the result
/// is `findings` and nothing is written where a choice is open.
ExitCode fix(const FixOptions& options, Console& console);

Command fixCommand();

}  // namespace korrin::host
