#pragma once

// korrin check: what plots still lack or get wrong.

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "korrin/coding/coding_options.h"

#include "assets/known_assets.h"
#include "commands/command.h"

namespace korrin::host {

/// The forms in which findings are printed.
enum class CheckFormat { text, json, sarif, junit };

struct CheckOptions {
  std::vector<std::string> files;  ///< Folders are searched for plots; "-" is standard input.
  std::size_t workers = 1;         ///< How many files are read and inspected at once.
  AssetOptions assets = {};
  /// Where the images of the plots' manifests are looked for; none for not at all.
  std::vector<std::string> assetFolders = {};
  CheckFormat format = CheckFormat::text;
  bool withAudit = false;
  /// Accepted findings; absent for the file beside each plot, where there is one.
  std::optional<std::string> waivers = {};
  bool isStrict = false;                      ///< Whether a stale waiver is a finding.
  std::optional<std::string> explained = {};  ///< The rule to explain instead of checking.
  DateStrategy dates = DateStrategy::iso8601;
};

/// Opens, validates and inspects each file and prints what it finds: in text format findings to
/// the console's output and refusals to its error output, in another format one report of both. The
/// result is the worst of all files'; `unusable` without a report when a file of known assets
/// or a folder of images cannot be read.
ExitCode check(const CheckOptions& options, Console& console);

Command checkCommand();

}  // namespace korrin::host

namespace korrin {

template <>
struct CaseTable<host::CheckFormat> {
  static constexpr std::array cases = {
      Case{host::CheckFormat::text, "text"}, Case{host::CheckFormat::json, "json"},
      Case{host::CheckFormat::sarif, "sarif"}, Case{host::CheckFormat::junit, "junit"}};
};

}  // namespace korrin
