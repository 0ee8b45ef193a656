#include "korrin/validation/embedded_asset_safety.h"

#include <cmath>

#include "korrin/validation/pdf/first_page_box.h"
#include "korrin/validation/raster/raster_facts.h"
#include "korrin/validation/raster_asset_safety.h"

namespace korrin {
namespace {

constexpr std::string_view pdfMediaType = "application/pdf";

std::optional<AssetRefusal> refusalOf(const PdfPage& page) noexcept {
  switch (page.outcome) {
    case PdfOutcome::notAPdf:
      return AssetRefusal::unknownFormat;
    case PdfOutcome::locked:
      return AssetRefusal::lockedPdf;
    case PdfOutcome::unreadable:
      return AssetRefusal::unreadablePdf;
    case PdfOutcome::noBox:
      return AssetRefusal::pageWithoutBox;
    default:  // a box
      break;
  }
  constexpr double largest = EmbeddedAssetSafety::maximumPageExtent;
  if (!std::isfinite(page.width) || !std::isfinite(page.height)) return AssetRefusal::pageNotFinite;
  if (page.width <= 0 || page.height <= 0) return AssetRefusal::pageWithoutArea;
  if (page.width > largest || page.height > largest) return AssetRefusal::pageTooLarge;
  return std::nullopt;
}

std::optional<AssetRefusal> refusalAsPdf(std::span<const std::byte> bytes) {
  if (bytes.empty()) return AssetRefusal::emptyFile;
  // A known raster image is of another type, even when the rest of it is damaged or a PDF follows
  // inside. Bytes that no raster reader knows are the PDF reader's to judge.
  if (readRasterFacts(bytes)) return AssetRefusal::imageUnderPdfType;
  return refusalOf(readFirstPage(bytes));
}

}  // namespace

std::optional<AssetRefusal> EmbeddedAssetSafety::refusal(
    std::span<const std::byte> bytes, std::optional<std::string_view> mediaType) {
  if (mediaType == pdfMediaType) return refusalAsPdf(bytes);
  const auto reason = RasterAssetSafety::refusal(bytes);
  const bool isPdf = reason == AssetRefusal::unknownFormat && hasPdfHeader(bytes);
  return isPdf ? AssetRefusal::pdfUnderAnotherType : reason;
}

std::int64_t EmbeddedAssetSafety::validate(std::span<const std::byte> bytes,
                                           std::optional<std::string_view> mediaType) {
  if (mediaType != pdfMediaType) return RasterAssetSafety::validate(bytes);
  if (const auto reason = refusalAsPdf(bytes)) throw DocumentValidationError(errorOf(*reason));
  return 0;
}

}  // namespace korrin
