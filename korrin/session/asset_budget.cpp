#include "korrin/session/asset_budget.h"

#include "korrin/validation/document_validation_error.h"
#include "korrin/validation/embedded_asset_safety.h"
#include "korrin/validation/raster_asset_safety.h"

namespace korrin {

std::int64_t AssetBudget::admit(std::span<const std::byte> bytes,
                                std::optional<std::string_view> mediaType) {
  const std::int64_t pixels = EmbeddedAssetSafety::validate(bytes, mediaType);
  add(pixels);
  return pixels;
}

void AssetBudget::add(std::int64_t pixels) {
  if (pixels > RasterAssetSafety::maximumAggregatePixels - pixels_)
    throw DocumentValidationError(DocumentValidationError::imageTooLarge);
  pixels_ += pixels;
}

}  // namespace korrin
