#include "check_command.h"

#include <unordered_set>
#include <utility>

#include "korrin/preflight/preflight_engine.h"

#include "display_text.h"
#include "document_file.h"
#include "findings.h"
#include "findings_json.h"
#include "findings_table.h"
#include "known_assets.h"
#include "plot_document.h"

namespace korrin::host {
namespace {

/// The assets that the rule missingAsset compares with, or why it cannot be run.
struct KnownAssets {
  std::unordered_set<Text> identifiers = {};
  std::string notRunReason = {};
};

KnownAssets knownAssets(const CheckOptions& options) {
  KnownAssets known;
  if (options.useBuiltinAssets)
    known.identifiers.insert(builtinAssets.begin(), builtinAssets.end());
  for (const std::string& path : options.knownAssetFiles) {
    try {
      addAssetLines(readFile(path), known.identifiers);
    } catch (const FileError& error) {
      throw FileError(inputName(path) + ": " + error.what());
    }
  }
  if (!known.identifiers.empty()) return known;
  known.notRunReason = options.knownAssetFiles.empty() ? "no known assets given"
                                                       : "the files of known assets name none";
  return known;
}

FileFindings inspect(const std::string& path, DateStrategy dates, const KnownAssets& known) {
  FileFindings file{inputName(path), std::nullopt, KorrinProject{}, {}, known.notRunReason};
  try {
    file.project = decodeDocument(readDocument(path), dates);
    requireValid(file.project);
    file.issues = PreflightEngine::inspect(file.project, known.identifiers);
  } catch (const Refusal& refusal) {
    file.refusal = refusal;
  }
  return file;
}

void print(const FileFindings& file, Console& console) {
  if (file.refusal) {
    complain(console, file.name + ": " + file.refusal->what());
    return;
  }
  if (!file.issues.empty()) console.out << printable(file.name) << '\n';
  printFindings(console.out, console.outTerminal, file.project, file.issues);
  console.out << summaryLine(file) << '\n';
}

}  // namespace

ExitCode check(const CheckOptions& options, Console& console) {
  KnownAssets known;
  try {
    known = knownAssets(options);
  } catch (const FileError& error) {
    complain(console, error.what());
    return ExitCode::unusable;
  }
  ExitCode result = ExitCode::clean;
  std::vector<FileFindings> reported;
  Progress progress(console, options.files.size());
  for (const std::string& path : options.files) {
    progress.step(inputName(path));
    FileFindings file = inspect(path, options.dates, known);
    result = worse(result, file.exitCode());
    if (options.format == ReportFormat::json) {
      file.project = KorrinProject{};  // the report needs the findings only
      reported.push_back(std::move(file));
    } else {
      progress.clear();
      print(file, console);
    }
  }
  progress.clear();
  if (options.format == ReportFormat::json) console.out << findingsReport(reported, result) << '\n';
  return result;
}

}  // namespace korrin::host
