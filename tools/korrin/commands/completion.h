#pragma once

// Completion of command lines in bash.

#include <string>

#include "commands/command_page.h"

namespace korrin::host {

/// A script that bash reads, from then on to complete the program's commands, options, the words
/// that an option takes where they are known, and the names of files where a command or an option
/// takes one.
std::string bashCompletion(const CommandPage& program);

}  // namespace korrin::host
