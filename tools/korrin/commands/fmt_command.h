#pragma once

// korrin fmt: a plot document in its canonical form.

#include <optional>
#include <string>

#include "korrin/coding/coding_options.h"

#include "commands/command.h"

namespace korrin::host {

struct FormatOptions {
  std::string file;                                  ///< "-" is standard input.
  std::optional<std::string> output = std::nullopt;  ///< Absent or "-": the console's output.
  DateStrategy dates = DateStrategy::iso8601;        ///< How the dates are read.
  EncodingOptions encoding = {};                     ///< How the document is written.
};

/// Writes the document anew, followed by a line break: keys in the format's order, numbers in their
/// shortest form. Says on the console's error output which keys are lost. A file is replaced all at
/// once or, when anything fails, left alone; one that needs a newer version is never replaced. The
/// project is not validated.
ExitCode format(const FormatOptions& options, Console& console);

Command formatCommand();

}  // namespace korrin::host
