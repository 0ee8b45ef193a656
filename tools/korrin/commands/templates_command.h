#pragma once

// korrin templates: the documents a new plot can begin with.

#include "commands/check_command.h"
#include "terminal/exit_code.h"
#include "terminal/terminal.h"

namespace korrin::host {

struct TemplatesOptions {
  ReportFormat format = ReportFormat::text;
};

/// Prints identifier, title and summary of each template, as a table or as JSON.
ExitCode listTemplates(const TemplatesOptions& options, Console& console);

}  // namespace korrin::host
