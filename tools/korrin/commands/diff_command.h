#pragma once

// korrin diff: what changed between two plots, as a crew says it.

#include <array>
#include <string>
#include <vector>

#include "korrin/coding/coding_options.h"
#include "korrin/foundation/enumeration.h"

#include "commands/command.h"

namespace korrin::host {

enum class DiffFormat { text, json };

struct DiffOptions {
  /// The two plots, or what git gives to an external diff: one, seven or nine words.
  std::vector<std::string> words = {};
  DiffFormat format = DiffFormat::text;
  DateStrategy dates = DateStrategy::iso8601;  ///< How the dates of both plots are read.
};

/// Prints the differences, grouped by list. The result is `clean` where there are none and
/// `findings` otherwise. A file that is empty, and /dev/null, stand for no plot: everything in the
/// other one is new or gone then. For git, which takes any other answer for a failure, the result
/// is always `clean`, and a file that cannot be read is named among the output.
ExitCode diff(const DiffOptions& options, Console& console);

Command diffCommand();

}  // namespace korrin::host

namespace korrin {

template <>
struct CaseTable<host::DiffFormat> {
  static constexpr std::array cases = {Case{host::DiffFormat::text, "text"},
                                       Case{host::DiffFormat::json, "json"}};
};

}  // namespace korrin
