#pragma once

// Completion of command lines in the shells bash, zsh and fish.

#include <string>

#include "commands/command_page.h"

namespace korrin::host {

/// A script that bash reads, from then on to complete the program's commands, options, the words
/// that an option takes where they are known, and the names of files where a command or an option
/// takes one.
std::string bashCompletion(const CommandPage& program);

/// The same as a function of zsh, to be found by its name, "_korrin".
std::string zshCompletion(const CommandPage& program);

/// The same as commands of fish.
std::string fishCompletion(const CommandPage& program);

}  // namespace korrin::host
