#pragma once

// The table of the commands that korrin edit understands.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "terminal/passages.h"

namespace korrin::host {

class EditSession;

/// One command. It gets the words behind its name.
struct EditCommand {
  using Words = std::vector<std::string>;

  std::string_view name;
  std::string_view arguments;  ///< As help shows them.
  std::string_view summary;    ///< What it does.
  std::size_t fewest;          ///< Words behind the name.
  std::size_t most;
  void (*carryOut)(EditSession&, const Words&);

  std::string use() const;
};

/// All commands, in the order in which help shows them.
const std::vector<EditCommand>& editCommands();

/// What the user is told about the commands, for --help and help.
std::vector<Passage> editCommandsHelp();

}  // namespace korrin::host
