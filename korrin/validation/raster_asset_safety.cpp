#include "korrin/validation/raster_asset_safety.h"

#include "korrin/validation/raster/readers.h"

namespace korrin {
namespace {

std::optional<AssetRefusal> refusalOf(const std::optional<PixelSize>& size) noexcept {
  using namespace RasterAssetSafety;
  if (!size) return AssetRefusal::damagedImage;
  const auto [width, height] = *size;
  if (width < 1 || height < 1) return AssetRefusal::imageWithoutArea;
  // Each side is compared before the product is formed, which therefore cannot overflow.
  if (width > maximumDimension || height > maximumDimension) return AssetRefusal::imageTooLong;
  if (width * height > maximumPixels) return AssetRefusal::tooManyPixels;
  return std::nullopt;
}

}  // namespace

std::optional<AssetRefusal> RasterAssetSafety::refusal(std::span<const std::byte> bytes) noexcept {
  if (bytes.empty()) return AssetRefusal::emptyFile;
  const raster::Reader* const reader = raster::readerFor(bytes);
  if (reader == nullptr) return AssetRefusal::unknownFormat;
  return refusalOf(reader->size(bytes));
}

std::int64_t RasterAssetSafety::validate(std::span<const std::byte> bytes) {
  // The size stays where its reader put it: a copy at once waits longer than a PNG takes to read.
  const raster::Reader* const reader = raster::readerFor(bytes);
  if (reader == nullptr) throw DocumentValidationError(errorOf(AssetRefusal::unknownFormat));
  const std::optional<PixelSize> size = reader->size(bytes);
  if (const auto reason = refusalOf(size)) throw DocumentValidationError(errorOf(*reason));
  return static_cast<std::int64_t>(size->width * size->height);
}

}  // namespace korrin
