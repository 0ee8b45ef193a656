#pragma once

// korrin templates: the documents a new plot can begin with.

#include "commands/command.h"
#include "terminal/report_format.h"

namespace korrin::host {

struct TemplatesOptions {
  ReportFormat format = ReportFormat::text;
};

/// Prints identifier, title and summary of each template, as a table or as JSON.
ExitCode listTemplates(const TemplatesOptions& options, Console& console);

Command templatesCommand();

}  // namespace korrin::host
