#pragma once

// korrin waive: accepting a finding, with a reason.

#include <optional>
#include <string>

#include "korrin/coding/coding_options.h"
#include "korrin/foundation/environment.h"

#include "commands/command.h"

namespace korrin::host {

struct WaiveOptions {
  std::string file;
  std::string finding;
  std::optional<std::string> reason = {};
  std::optional<std::string> author = {};
  std::optional<std::string> waivers = {};  ///< Absent for the file beside the plot.
  DateStrategy dates = DateStrategy::iso8601;
  Environment environment = Environment::system();
};

/// Adds a waiver to the plot's file of waivers. Refuses a finding that the plot does not have, and
/// one that is accepted already.
ExitCode waive(const WaiveOptions& options, Console& console);

Command waiveCommand();

}  // namespace korrin::host
