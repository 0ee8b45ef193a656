#include "korrin/validation/raster_asset_safety.h"

#include "korrin/validation/raster/raster_facts.h"

namespace korrin {
namespace {

std::optional<AssetRefusal> refusalOf(const std::optional<RasterFacts>& facts) noexcept {
  using namespace RasterAssetSafety;
  if (!facts) return AssetRefusal::unknownFormat;
  if (!facts->size) return AssetRefusal::damagedImage;
  const auto [width, height] = *facts->size;
  if (width < 1 || height < 1) return AssetRefusal::imageWithoutArea;
  // Each side is compared before the product is formed, which therefore cannot overflow.
  if (width > maximumDimension || height > maximumDimension) return AssetRefusal::imageTooLong;
  if (width * height > maximumPixels) return AssetRefusal::tooManyPixels;
  return std::nullopt;
}

}  // namespace

std::optional<AssetRefusal> RasterAssetSafety::refusal(std::span<const std::byte> bytes) noexcept {
  if (bytes.empty()) return AssetRefusal::emptyFile;
  return refusalOf(readRasterFacts(bytes));
}

std::int64_t RasterAssetSafety::validate(std::span<const std::byte> bytes) {
  const std::optional<RasterFacts> facts = readRasterFacts(bytes);
  if (const auto reason = refusalOf(facts)) throw DocumentValidationError(errorOf(*reason));
  return static_cast<std::int64_t>(facts->size->width * facts->size->height);
}

}  // namespace korrin
