#include "assets/judged_asset.h"

#include <filesystem>
#include <utility>

#include "korrin/validation/raster_asset_safety.h"

#include "assets/sha256.h"
#include "documents/document_file.h"

namespace korrin::host {
namespace {

std::string filenameOf(const std::string& path) {
  return path == standardStream ? inputName(path) : std::filesystem::path(path).filename().string();
}

/// What to call an entry: its file's name or, when that is blank, its digest.
std::string manifestName(const AssetManifestEntry& entry) {
  return entry.filename.isBlank() ? entry.sha256.str() : entry.filename.str();
}

AssetStatus statusOf(const DocumentValidationError& error) {
  return error == DocumentValidationError::imageTooLarge ? AssetStatus::imageTooLarge
                                                         : AssetStatus::invalidImage;
}

}  // namespace

JudgedAsset AssetJudge::take(JudgedAsset asset, std::span<const std::byte> bytes,
                             const std::string& digest, std::optional<std::string_view> mediaType) {
  const AssetVerdict verdict = judgeAsset(bytes, mediaType);
  asset.type = verdict.type;
  asset.size = verdict.size;
  asset.totalPixels = budget_.pixels();
  if (verdict.error) {
    asset.status = statusOf(*verdict.error);
    asset.remark = verdict.reason;
    return asset;
  }
  asset.pixels = verdict.pixels;
  if (const auto same = names_.find(digest); same != names_.end()) {
    asset.isRepeated = true;
    asset.remark = "the same bytes as " + same->second + ", counted once";
    return asset;
  }
  const std::int64_t before = budget_.pixels();
  try {
    budget_.add(verdict.pixels);
  } catch (const DocumentValidationError& error) {
    asset.status = statusOf(error);
    asset.remark = "with it the plot would have " +
                   grouped(static_cast<std::uint64_t>(before + verdict.pixels)) + " pixels, and " +
                   grouped(RasterAssetSafety::maximumAggregatePixels) + " are allowed";
    return asset;
  }
  asset.totalPixels = budget_.pixels();
  names_.emplace(digest, asset.name);
  return asset;
}

JudgedAsset AssetJudge::file(const std::string& path, std::span<const std::byte> bytes,
                             const std::optional<std::string>& mediaType) {
  const std::string digest = sha256(bytes);
  JudgedAsset asset = take({.name = inputName(path), .status = AssetStatus::accepted, .file = path},
                           bytes, digest, mediaType);
  const Text contentType(asset.type ? asset.type->mediaType : std::string_view());
  asset.entry = {.sha256 = digest,
                 .filename = filenameOf(path),
                 .mediaType = mediaType ? Text(*mediaType) : contentType,
                 .byteCount = static_cast<std::int64_t>(bytes.size())};
  return asset;
}

JudgedAsset AssetJudge::entry(const AssetManifestEntry& entry, const FoundAsset& found) {
  JudgedAsset asset = take({.name = manifestName(entry),
                            .status = AssetStatus::accepted,
                            .file = found.path,
                            .entry = entry},
                           std::as_bytes(std::span(found.bytes)), found.digest, entry.mediaType);
  if (asset.status == AssetStatus::accepted &&
      std::cmp_not_equal(found.bytes.size(), entry.byteCount)) {
    asset.status = AssetStatus::wrongByteCount;
    asset.remark = "the manifest says " + std::to_string(entry.byteCount) + " bytes, and it has " +
                   std::to_string(found.bytes.size());
  }
  return asset;
}

JudgedAsset AssetJudge::unreadable(const std::string& path, std::string remark) const {
  return {.name = inputName(path),
          .status = AssetStatus::unreadable,
          .remark = std::move(remark),
          .totalPixels = budget_.pixels()};
}

JudgedAsset AssetJudge::missing(const AssetManifestEntry& entry, std::string remark) const {
  return {.name = manifestName(entry),
          .status = AssetStatus::missing,
          .remark = std::move(remark),
          .totalPixels = budget_.pixels(),
          .entry = entry};
}

AssetCounts countsOf(std::span<const JudgedAsset> assets) {
  AssetCounts counts;
  for (const JudgedAsset& asset : assets) {
    if (asset.status == AssetStatus::accepted)
      ++counts.accepted;
    else if (asset.status == AssetStatus::missing)
      ++counts.missing;
    else if (asset.status == AssetStatus::unreadable)
      ++counts.unreadable;
    else
      ++counts.refused;
  }
  return counts;
}

ExitCode exitCodeOf(std::span<const JudgedAsset> assets) {
  const AssetCounts counts = countsOf(assets);
  if (counts.unreadable > 0) return ExitCode::unusable;
  return counts.accepted < assets.size() ? ExitCode::findings : ExitCode::clean;
}

}  // namespace korrin::host
