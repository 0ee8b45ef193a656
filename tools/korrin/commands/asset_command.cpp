#include "commands/asset_command.h"

#include <cstddef>
#include <span>

#include "assets/asset_json.h"
#include "assets/asset_table.h"
#include "assets/judged_asset.h"
#include "documents/document_file.h"

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
      complain(console, asset.name + ": " + asset.remark);
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
    progress.step(inputName(path));
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

}  // namespace korrin::host
