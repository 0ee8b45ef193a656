#pragma once

// One command of the program: what is said about it, and what it does.

#include <functional>

#include "commands/command_page.h"
#include "terminal/exit_code.h"
#include "terminal/terminal.h"

namespace korrin::host {

/// The page's parameters fill the options with which `run` then runs; both share them.
struct Command {
  CommandPage page;
  std::function<ExitCode(Console&)> run;
};

}  // namespace korrin::host
