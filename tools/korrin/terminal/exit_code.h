#pragma once

// What the program tells its caller by its exit status.

#include <algorithm>

namespace korrin::host {

/// The exit statuses, the worse the higher; scripts rely on the numbers.
enum class ExitCode {
  clean = 0,              ///< Done, and nothing above the severity information was found.
  findings = 1,           ///< Findings of severity error or warning.
  unusable = 2,           ///< A file that cannot be read or written, is not a plot, or is not
                          ///< valid; or a line of a script that is refused.
  needsNewerVersion = 3,  ///< A document that only a newer version can read.
  usage = 64,             ///< A command line that cannot be understood.
};

constexpr ExitCode worse(ExitCode a, ExitCode b) { return std::max(a, b); }

}  // namespace korrin::host
