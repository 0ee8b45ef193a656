#pragma once

// korrin edit: a plot edited by commands, typed or from a script.

#include <optional>
#include <string>

#include "korrin/coding/coding_options.h"

#include "assets/known_assets.h"
#include "commands/command.h"

namespace korrin::host {

struct EditOptions {
  std::string file;  ///< The plot; "-" is standard input, and then a script must be another file.
  /// File of commands; absent or "-" for standard input.
  std::optional<std::string> script = std::nullopt;
  AssetOptions assets = {};                    ///< For the command preflight.
  DateStrategy dates = DateStrategy::iso8601;  ///< How dates are read and written.
  bool isPretty = false;                       ///< Whether the plot is saved indented.
  /// Whether a script that ends at a refused line saves nothing, not even what it saved before.
  bool isAllOrNothing = false;
};

/// Opens and validates the plot and carries out one command a line. Typed at a terminal, a refused
/// line is said and the next one awaited; anywhere else the first refused line ends the run, with
/// its number and a result of `unusable`, or `needsNewerVersion` when that document would have been
/// replaced. Says when changes are lost in the end.
ExitCode edit(const EditOptions& options, Console& console);

Command editCommand();

}  // namespace korrin::host
