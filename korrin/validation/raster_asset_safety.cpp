#include "korrin/validation/raster_asset_safety.h"

#include "korrin/validation/document_validation_error.h"
#include "korrin/validation/raster/readers.h"

namespace korrin {

std::int64_t RasterAssetSafety::validate(std::span<const std::byte> bytes) {
  const raster::Reader* reader = raster::readerFor(bytes);
  if (reader == nullptr) throw DocumentValidationError(DocumentValidationError::invalidImage);
  const std::optional<PixelSize> size = reader->size(bytes);
  if (!size) throw DocumentValidationError(DocumentValidationError::invalidImage);

  const auto [width, height] = *size;
  if (width < 1 || height < 1) throw DocumentValidationError(DocumentValidationError::invalidImage);
  // Each side is compared before the product is formed, which therefore cannot overflow.
  if (width > maximumDimension || height > maximumDimension || width * height > maximumPixels)
    throw DocumentValidationError(DocumentValidationError::imageTooLarge);
  return static_cast<std::int64_t>(width * height);
}

}  // namespace korrin
