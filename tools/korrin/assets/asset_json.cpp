#include "assets/asset_json.h"

#include <utility>

#include "korrin/validation/raster_asset_safety.h"

#include "terminal/record_json.h"

namespace korrin::host {
namespace {

std::optional<Text> textUnlessEmpty(std::string_view text) {
  return text.empty() ? std::nullopt : std::optional<Text>(text);
}

ReportedAsset reportOn(const JudgedAsset& asset) {
  // Names are bytes, and JSON holds well-formed text only: what Text makes of them.
  std::optional<AssetManifestEntry> entry;
  if (!asset.entry.sha256.empty()) entry = asset.entry;
  return {.name = asset.name,
          .status = asset.status,
          .remark = textUnlessEmpty(asset.remark),
          .file = textUnlessEmpty(asset.file.value_or("")),
          .type = textUnlessEmpty(asset.type ? asset.type->name : ""),
          .size = textUnlessEmpty(asset.size),
          .pixels = asset.pixels,
          .totalPixels = asset.totalPixels,
          .manifestEntry = std::move(entry)};
}

}  // namespace

AssetSection assetSection(std::span<const JudgedAsset> assets) {
  std::vector<ReportedAsset> entries;
  for (const JudgedAsset& asset : assets) entries.push_back(reportOn(asset));
  return {.totalPixels = assets.empty() ? 0 : assets.back().totalPixels,
          .maximumTotalPixels = RasterAssetSafety::maximumAggregatePixels,
          .entries = std::move(entries)};
}

std::string assetReport(std::span<const JudgedAsset> assets, ExitCode exitCode) {
  AssetSection section = assetSection(assets);
  const AssetReport report{.reportVersion = {}, .exitCode = exitCode, .assets = std::move(section)};
  return RecordJson::of(report).dump(2);
}

}  // namespace korrin::host
