#pragma once

// What is installed beside the program for those who use it.

#include <string>
#include <string_view>

#include "commands/command_page.h"

namespace korrin::host {

/// Writes man1/korrin.1, man1/korrin-check.1 and so on, and the completions of shells, which are
/// completions/korrin, zsh/_korrin and fish/korrin.fish, into a folder, which is made where it is
/// missing. Throws FileError or std::filesystem::filesystem_error.
void writeManual(const CommandPage& program, std::string_view version, const std::string& folder);

}  // namespace korrin::host
