#pragma once

// korrin asset: which files a plot may embed.

#include <optional>
#include <string>
#include <vector>

#include "commands/command.h"
#include "terminal/report_format.h"

namespace korrin::host {

struct AssetCommandOptions {
  std::vector<std::string> files;             ///< "-" is standard input.
  std::optional<std::string> mediaType = {};  ///< Absent to take that of each file's content.
  ReportFormat format = ReportFormat::text;
};

/// Judges each file, in the order given and as if all were embedded in one plot. In text format the
/// verdicts and the manifest of the accepted files go to the console's output, and files that
/// cannot be read to its error output; in JSON format all go into one report.
ExitCode judgeFiles(const AssetCommandOptions& options, Console& console);

Command assetCommand();

}  // namespace korrin::host
