#pragma once

// From the words of a command line to the command that they mean.

#include <string>
#include <vector>

#include "commands/command.h"

namespace korrin::host {

/// The page of the whole program, with those of its commands.
CommandPage programPage(const std::vector<Command>& commands);

/// Runs the command that is asked for, or prints help or the version. `arguments` are those of
/// `main`. A command line that cannot be understood is said on the console's error output.
ExitCode runCommandLine(const std::vector<Command>& commands, int count, char** arguments,
                        Console& console);

}  // namespace korrin::host
