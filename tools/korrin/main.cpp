// The command-line host: the table of its commands, and what surrounds the one that runs.

#include <exception>
#include <iostream>
#include <new>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

#include "commands/asset_command.h"
#include "commands/check_command.h"
#include "commands/command_line.h"
#include "commands/diff_command.h"
#include "commands/edit_command.h"
#include "commands/fix_command.h"
#include "commands/fmt_command.h"
#include "commands/merge_command.h"
#include "commands/new_command.h"
#include "commands/render_command.h"
#include "commands/schema_command.h"
#include "commands/templates_command.h"
#include "commands/waive_command.h"
#include "terminal/signals.h"

namespace {

using namespace korrin::host;

/// All commands, in the order in which help shows them.
std::vector<Command> commands() {
  return {
      checkCommand(), fixCommand(),       waiveCommand(),  formatCommand(),
      editCommand(),  diffCommand(),      mergeCommand(),  assetCommand(),
      newCommand(),   templatesCommand(), renderCommand(), schemaCommand(),
  };
}

/// A standard stream that the caller closed would leave its number to the next file opened, which
/// would then receive what is printed. A descriptor opened the wrong way round keeps the number and
/// fails on use.
void occupyStandardDescriptors() {
  for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(descriptor, F_GETFD) != -1) continue;
    ::open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
  }
}

}  // namespace

int main(int argc, char** argv) {
  occupyStandardDescriptors();
  prepareForSignals();
  std::ios::sync_with_stdio(false);
  Console console{std::cout, std::cerr, Terminal::of(STDOUT_FILENO), Terminal::of(STDERR_FILENO)};
  ExitCode result = ExitCode::unusable;
  try {
    result = runCommandLine(commands(), argc, argv, console);
  } catch (const std::bad_alloc&) {
    complain(console, "there is not enough memory");
  } catch (const std::exception& error) {
    complain(console, error.what());
  }
  if (!std::cout.flush()) {
    complain(console, "standard output cannot be written");
    result = worse(result, ExitCode::unusable);
  }
  return static_cast<int>(result);
}
