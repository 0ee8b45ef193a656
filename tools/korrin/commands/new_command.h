#pragma once

// korrin new: a plot to begin with.

#include <optional>
#include <string>

#include "korrin/foundation/environment.h"
#include "korrin/templates/korrin_template.h"

#include "commands/command.h"

namespace korrin::host {

struct NewOptions {
  std::optional<KorrinTemplateID> templateID = std::nullopt;
  bool isExample = false;                            ///< Not together with a template.
  std::optional<std::string> output = std::nullopt;  ///< Absent or "-": the console's output.
  bool isForced = false;                             ///< Whether a file that is there is replaced.
  Environment environment = Environment::system();
};

/// Writes a new document, indented: the template's, the example, or an empty one. A file that is
/// there already is left alone unless `isForced`; one that needs a newer version always is.
ExitCode makeNew(const NewOptions& options, Console& console);

Command newCommand();

}  // namespace korrin::host
