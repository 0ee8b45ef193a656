#include "commands/check_command.h"

#include <utility>

#include "korrin/preflight/preflight_engine.h"

#include "assets/asset_folders.h"
#include "assets/asset_table.h"
#include "assets/known_assets.h"
#include "assets/manifest_check.h"
#include "documents/document_file.h"
#include "documents/plot_document.h"
#include "findings/findings.h"
#include "findings/findings_json.h"
#include "findings/findings_table.h"
#include "terminal/display_text.h"

namespace korrin::host {
namespace {

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
  const bool hasAssets = file.assets && !file.assets->empty();
  if (!file.issues.empty() || hasAssets) console.out << printable(file.name) << '\n';
  printFindings(console.out, console.outTerminal, file.project, file.issues);
  if (hasAssets) printAssets(console.out, console.outTerminal, *file.assets);
  console.out << summaryLine(file) << '\n';
}

}  // namespace

ExitCode check(const CheckOptions& options, Console& console) {
  KnownAssets known;
  AssetFolders folders;
  try {
    known = knownAssets(options.assets);
    folders = AssetFolders(options.assetFolders);
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
    if (!options.assetFolders.empty() && !file.refusal)
      file.assets = checkManifest(file.project, folders);
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
