#include "korrin/validation/raster_asset_safety.h"

#include "korrin/validation/document_validation_error.h"
#include "korrin/validation/raster/raster_facts.h"

namespace korrin {

std::int64_t RasterAssetSafety::validate(std::span<const std::byte> bytes) {
  const auto facts = readRasterFacts(bytes);
  if (!facts || !facts->size) throw DocumentValidationError(DocumentValidationError::invalidImage);

  const auto [width, height] = *facts->size;
  if (width < 1 || height < 1) throw DocumentValidationError(DocumentValidationError::invalidImage);
  // Each side is compared before the product is formed, which therefore cannot overflow.
  if (width > maximumDimension || height > maximumDimension || width * height > maximumPixels)
    throw DocumentValidationError(DocumentValidationError::imageTooLarge);
  return static_cast<std::int64_t>(width * height);
}

}  // namespace korrin
