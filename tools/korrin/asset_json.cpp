#include "asset_json.h"

#include <nlohmann/json.hpp>

#include "korrin/coding/json.h"
#include "korrin/validation/raster_asset_safety.h"

#include "findings_json.h"

namespace korrin::host {
namespace {

using Json = nlohmann::ordered_json;

Json textOrNull(std::string_view text) {
  return text.empty() ? Json(nullptr) : Json(Text(text).str());
}

Json report(const JudgedAsset& asset) {
  // Names are bytes, and JSON holds well-formed text only.
  Json result = {{"name", Text(asset.name).str()}, {"status", rawValue(asset.status)}};
  result["remark"] = textOrNull(asset.remark);
  result["file"] = textOrNull(asset.file.value_or(""));
  result["type"] = textOrNull(asset.type ? asset.type->name : "");
  result["size"] = textOrNull(asset.size);
  result["pixels"] = asset.pixels ? Json(*asset.pixels) : Json(nullptr);
  result["totalPixels"] = asset.totalPixels;
  const bool isKnown = !asset.entry.sha256.empty();
  result["manifestEntry"] = isKnown ? Json::parse(encodeJSON(asset.entry)) : Json(nullptr);
  return result;
}

}  // namespace

Json assetSection(std::span<const JudgedAsset> assets) {
  Json result = {
      {"totalPixels", assets.empty() ? 0 : assets.back().totalPixels},
      {"maximumTotalPixels", RasterAssetSafety::maximumAggregatePixels},
      {"entries", Json::array()},
  };
  for (const JudgedAsset& asset : assets) result["entries"].push_back(report(asset));
  return result;
}

std::string assetReport(std::span<const JudgedAsset> assets, ExitCode exitCode) {
  const Json result = {
      {"reportVersion", reportVersion},
      {"exitCode", static_cast<int>(exitCode)},
      {"assets", assetSection(assets)},
  };
  return result.dump(2);
}

}  // namespace korrin::host
