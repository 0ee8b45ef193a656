#include "commands/asset_command.h"

#include <cstddef>
#include <memory>
#include <span>

#include "assets/asset_json.h"
#include "assets/asset_table.h"
#include "assets/judged_asset.h"
#include "commands/parameters.h"
#include "documents/document_file.h"
#include "terminal/similar_file.h"

namespace korrin::host {
namespace {

JudgedAsset judgeFile(AssetJudge& judge, const std::string& path,
                      const std::optional<std::string>& mediaType) {
  std::string bytes;
  try {
    bytes = readFile(path, largestAsset);
  } catch (const FileError& error) {
    return judge.unreadable(path, error.what());
  }
  return judge.file(path, std::as_bytes(std::span(bytes)), mediaType);
}

void print(std::span<const JudgedAsset> assets, Console& console) {
  for (const JudgedAsset& asset : assets)
    if (asset.status == AssetStatus::unreadable)
      complain(console, asset.name + ": " + asset.remark + similarFileSuggestion(asset.name));
  printAssets(console.out, console.outTerminal, assets);
  console.out << assetSummary(assets) << '\n';
  printManifest(console.out, assets);
}

}  // namespace

ExitCode judgeFiles(const AssetCommandOptions& options, Console& console) {
  AssetJudge judge;
  std::vector<JudgedAsset> assets;
  Progress progress(console, options.files.size());
  for (const std::string& path : options.files) {
    progress.step(inputName(path), sizeOf(path));
    assets.push_back(judgeFile(judge, path, options.mediaType));
  }
  progress.clear();
  const ExitCode result = exitCodeOf(assets);
  if (options.format == ReportFormat::json)
    console.out << assetReport(assets, result) << '\n';
  else
    print(assets, console);
  return result;
}

Command assetCommand() {
  const auto options = std::make_shared<AssetCommandOptions>();
  CommandPage page{
      .name = "asset",
      .summary = "Say which images and PDFs a plot may embed.",
      .arguments = {inputFiles("Files to judge; - is standard input", options->files)},
      .options = {option({"--media-type"}, "TYPE",
                         "Judge every file as this; that of its content when absent",
                         options->mediaType),
                  choice("--format", "FORMAT", "How verdicts are printed", options->format)},
      .passages = {
          {.prose = "The files are taken in their order, as if one plot embedded them all; those "
                    "that are accepted stand below the table as the manifest of such a plot, the "
                    "others by digest. Only headers are read: an accepted file is safe to decode, "
                    "and may still be damaged. The first of several words is the default."},
          exitStatuses()}};
  return {std::move(page), [options](Console& console) { return judgeFiles(*options, console); }};
}

}  // namespace korrin::host
