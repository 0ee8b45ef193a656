#pragma once

// korrin check: what plots still lack or get wrong.

#include <string>
#include <vector>

#include "korrin/coding/coding_options.h"

#include "assets/known_assets.h"
#include "commands/command.h"
#include "terminal/report_format.h"

namespace korrin::host {

struct CheckOptions {
  std::vector<std::string> files;  ///< "-" is standard input.
  AssetOptions assets = {};
  /// Where the images of the plots' manifests are looked for; none for not at all.
  std::vector<std::string> assetFolders = {};
  ReportFormat format = ReportFormat::text;
  DateStrategy dates = DateStrategy::iso8601;
};

/// Opens, validates and inspects each file and prints what it finds: in text format findings to
/// the console's output and refusals to its error output, in JSON format one report of both. The
/// result is the worst of all files'; `unusable` without a report when a file of known assets
/// or a folder of images cannot be read.
ExitCode check(const CheckOptions& options, Console& console);

Command checkCommand();

}  // namespace korrin::host
