#pragma once

// korrin render: a plot as a picture that a venue can read.

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "korrin/coding/coding_options.h"

#include "commands/command.h"
#include "commands/picture_converter.h"

namespace korrin::host {

struct RenderOptions {
  std::string file;                                       ///< "-" is standard input.
  std::optional<std::string> output = std::nullopt;       ///< Absent or "-": the console's output.
  std::optional<std::size_t> page = std::nullopt;         ///< Counted from 1; absent for all.
  bool isPlotOnly = false;                                ///< The drawing without page and lists.
  std::optional<PictureFormat> converted = std::nullopt;  ///< Absent for SVG.
  std::optional<unsigned> pixelWidth = std::nullopt;      ///< Of a PNG.
  /// Of printed dates; absent for that of this machine on the day of the event.
  std::optional<std::chrono::minutes> utcOffset = std::nullopt;
  std::vector<std::string> assetFolders = {};       ///< Where embedded images are looked for.
  std::optional<std::string> since = std::nullopt;  ///< A former revision, to mark changes.
  DateStrategy dates = DateStrategy::iso8601;       ///< How the dates are read.
};

/// Opens and validates the plot, draws it and writes the picture, in the format that the output's
/// ending names. Throws UsageError where options contradict each other. A file is replaced all at
/// once or, when anything fails, left alone; a plot is never replaced by a picture.
ExitCode render(const RenderOptions& options, Console& console);

Command renderCommand();

}  // namespace korrin::host
