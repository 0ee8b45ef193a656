#pragma once

// What `--help` prints.

#include <string>

#include "commands/command_page.h"

namespace korrin::host {

/// The page for a terminal of 80 columns. Descriptions are broken at blanks; a term that leaves
/// them little room stands on a line of its own.
std::string helpText(const CommandPage& page);

}  // namespace korrin::host
