#include "korrin/validation/embedded_asset_safety.h"

#include <cmath>

#include "korrin/validation/document_validation_error.h"
#include "korrin/validation/pdf/first_page_box.h"
#include "korrin/validation/raster/readers.h"
#include "korrin/validation/raster_asset_safety.h"

namespace korrin {
namespace {

constexpr std::string_view pdfMediaType = "application/pdf";

bool isSafeExtent(double extent) noexcept {
  return std::isfinite(extent) && extent > 0 && extent <= EmbeddedAssetSafety::maximumPageExtent;
}

void validatePdf(std::span<const std::byte> bytes) {
  // A known raster image is of another type, even when the rest of it is damaged or a PDF follows
  // inside. Bytes that no raster reader knows are the PDF reader's to judge.
  if (raster::readerFor(bytes) != nullptr)
    throw DocumentValidationError(DocumentValidationError::invalidImage);

  const PdfPage page = readFirstPage(bytes);
  const bool hasPage = page.outcome == PdfOutcome::box || page.outcome == PdfOutcome::noBox;
  if (!hasPage) throw DocumentValidationError(DocumentValidationError::invalidImage);
  // A page without a usable box bounds nothing, which is why it counts as too large rather than as
  // invalid.
  if (page.outcome == PdfOutcome::noBox || !isSafeExtent(page.width) || !isSafeExtent(page.height))
    throw DocumentValidationError(DocumentValidationError::imageTooLarge);
}

}  // namespace

std::int64_t EmbeddedAssetSafety::validate(std::span<const std::byte> bytes,
                                           std::optional<std::string_view> mediaType) {
  if (mediaType != pdfMediaType) return RasterAssetSafety::validate(bytes);
  validatePdf(bytes);
  return 0;
}

}  // namespace korrin
