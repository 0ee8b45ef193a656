#include "korrin/drawing/artwork.h"

#include <algorithm>
#include <span>

#include "korrin/drawing/photo_turn.h"
#include "korrin/drawing/symbol_table.h"
#include "korrin/drawing/text_fit.h"
#include "korrin/foundation/ascii.h"
#include "korrin/validation/document_validation_error.h"
#include "korrin/validation/embedded_asset_safety.h"
#include "korrin/validation/raster/raster_facts.h"
#include "korrin/validation/raster_asset_safety.h"

namespace korrin::drawing {
namespace {

struct Format {
  RasterFormat format;
  std::string_view mediaType;
  bool isWidelyShown;
};

constexpr Format formats[] = {
    {RasterFormat::png, "image/png", true},    {RasterFormat::jpeg, "image/jpeg", true},
    {RasterFormat::gif, "image/gif", true},    {RasterFormat::bmp, "image/bmp", false},
    {RasterFormat::tiff, "image/tiff", false}, {RasterFormat::webp, "image/webp", true},
    {RasterFormat::heif, "image/heif", false}, {RasterFormat::avif, "image/avif", false},
};

/// Pixels of a safe image; nothing for all that is not one.
std::optional<std::int64_t> safePixels(std::span<const std::byte> bytes,
                                       const AssetManifestEntry* entry) {
  try {
    return entry != nullptr ? EmbeddedAssetSafety::validate(bytes, entry->mediaType)
                            : EmbeddedAssetSafety::validate(bytes, std::nullopt);
  } catch (const DocumentValidationError&) {
    return std::nullopt;
  }
}

}  // namespace

Artwork::Artwork(const KorrinProject& project, const DrawingOptions& options) : options_(options) {
  for (const AssetManifestEntry& entry : project.assetManifest)
    manifest_.emplace(entry.sha256, &entry);
}

const Artwork::Image* Artwork::imageOf(const PlotItem& item, SvgWriter& svg) {
  if (isBuiltIn(item.assetID)) return nullptr;
  const auto known = images_.find(item.assetID);
  if (known != images_.end()) return &known->second;
  const auto entry = manifest_.find(item.assetID);
  if (entry == manifest_.end() && !isDigest(item.assetID)) return nullptr;
  const AssetManifestEntry* listed = entry != manifest_.end() ? entry->second : nullptr;
  return &images_.emplace(item.assetID, load(item.assetID, listed, svg)).first->second;
}

Artwork::Image Artwork::load(const Text& sha256, const AssetManifestEntry* entry, SvgWriter& svg) {
  Image image{.name = entry != nullptr ? Text(paperLine(entry->filename)) : Text(),
              .title = {},
              .kept = std::nullopt};
  // There may be no name, or none that can be seen.
  if (image.name.empty()) image.name = paperLine(sha256);
  image.title = repeatedLine(image.name);
  if (!options_.assetBytes) return image;
  std::optional<std::string> bytes = options_.assetBytes(sha256);
  if (!bytes) return image;
  const auto data = std::as_bytes(std::span(*bytes));
  const std::optional<RasterFacts> facts = readRasterFacts(data);
  if (!facts || !facts->size) return image;
  const std::optional<std::int64_t> pixels = safePixels(data, entry);
  if (!pixels || *pixels > RasterAssetSafety::maximumAggregatePixels - pixels_) return image;
  const auto format =
      std::find_if(std::begin(formats), std::end(formats),
                   [&](const Format& known) { return known.format == facts->format; });
  if (format == std::end(formats)) return image;
  pixels_ += *pixels;
  image.kept = keptCount_++;
  image.isWidelyShown = format->isWidelyShown;
  const PhotoTurn turn = photoTurn(data);
  if (turn != PhotoTurn{}) forgetPhotoTurn(std::as_writable_bytes(std::span(*bytes)));
  svg.keepImage(*image.kept, {.width = static_cast<double>(facts->size->width),
                              .height = static_cast<double>(facts->size->height),
                              .turn = turn,
                              .mediaType = format->mediaType,
                              .bytes = *bytes});
  return image;
}

}  // namespace korrin::drawing
