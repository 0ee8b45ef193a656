#include "commands/check_command.h"

#include <memory>
#include <utility>

#include "korrin/preflight/preflight_engine.h"

#include "assets/asset_folders.h"
#include "assets/asset_table.h"
#include "assets/known_assets.h"
#include "assets/manifest_check.h"
#include "commands/parameters.h"
#include "documents/document_file.h"
#include "documents/plot_document.h"
#include "findings/findings.h"
#include "findings/findings_json.h"
#include "findings/findings_table.h"
#include "terminal/display_text.h"
#include "terminal/failure.h"

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

ExitCode checkFiles(const CheckOptions& options, Console& console) {
  const KnownAssets known = knownAssets(options.assets);
  AssetFolders folders(options.assetFolders);
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

}  // namespace

ExitCode check(const CheckOptions& options, Console& console) {
  return sayingFailures(console, "", [&] { return checkFiles(options, console); });
}

Command checkCommand() {
  const auto options = std::make_shared<CheckOptions>();
  CommandPage page{
      .name = "check",
      .summary = "Say what plots still lack or get wrong.",
      .arguments = {inputFiles("Plots to check; - is standard input", options->files)},
      .options = knownAssetOptions(options->assets),
      .passages = {
          {.prose = "Without known assets the rule missingAsset is not run. With --assets, each "
                    "image of a plot's manifest must be in a folder (not in one inside it), as "
                    "long as the manifest says, and safe to draw, by itself and together with the "
                    "others. The first of several words is the default."},
          {.heading = "Examples",
           .rows = {{"korrin check --builtin-assets plot.json",
                     "what a venue's crew would trip over"},
                    {"korrin check --format json *.json", "the same of many, for programs"}}},
          exitStatuses()}};
  page.options.push_back(repeatable(
      {"--assets"}, "FOLDER", "Folder with the plots' embedded images, found by their digests",
      options->assetFolders));
  page.options.push_back(choice("--format", "FORMAT", "How findings are printed", options->format));
  page.options.push_back(dates(options->dates, "How dates stand in the plots"));
  return {std::move(page), [options](Console& console) { return check(*options, console); }};
}

}  // namespace korrin::host
