#include "assets/asset_verdict.h"

#include <cmath>

#include "korrin/validation/embedded_asset_safety.h"
#include "korrin/validation/pdf/first_page_box.h"
#include "korrin/validation/raster/raster_facts.h"
#include "korrin/validation/raster_asset_safety.h"

#include "terminal/display_text.h"

namespace korrin::host {
namespace {

constexpr AssetType pdfType{"PDF", "application/pdf"};

/// What the readers see, one of the two at most.
struct Facts {
  std::optional<RasterFacts> raster;
  std::optional<PdfPage> pdf;  ///< Absent when the bytes are no PDF.
};

Facts factsOf(std::span<const std::byte> bytes) {
  const std::optional<RasterFacts> raster = readRasterFacts(bytes);
  if (raster) return {raster, std::nullopt};
  const PdfPage page = readFirstPage(bytes);
  if (page.outcome == PdfOutcome::notAPdf) return {};
  return {std::nullopt, page};
}

std::string_view mediaTypeOf(RasterFormat format) {
  switch (format) {
    case RasterFormat::png:
      return "image/png";
    case RasterFormat::jpeg:
      return "image/jpeg";
    case RasterFormat::gif:
      return "image/gif";
    case RasterFormat::bmp:
      return "image/bmp";
    case RasterFormat::tiff:
      return "image/tiff";
    case RasterFormat::webp:
      return "image/webp";
    case RasterFormat::avif:
      return "image/avif";
    case RasterFormat::heif:
      return "image/heif";
  }
  return "";
}

std::optional<AssetType> typeOf(const Facts& facts) {
  if (facts.raster) return AssetType{name(facts.raster->format), mediaTypeOf(facts.raster->format)};
  return facts.pdf ? std::optional(pdfType) : std::nullopt;
}

/// Points, which are seldom whole, in as many digits as tell a page from its limit.
std::string pointsText(double points) { return shortNumber(points, 7); }

std::string sizeOf(const Facts& facts) {
  if (facts.raster && facts.raster->size)
    return std::to_string(facts.raster->size->width) + " x " +
           std::to_string(facts.raster->size->height) + " px";
  if (facts.pdf && facts.pdf->outcome == PdfOutcome::box)
    return pointsText(facts.pdf->width) + " x " + pointsText(facts.pdf->height) + " pt";
  return {};
}

/// "wider", "higher" or both.
std::string excess(bool isTooWide, bool isTooHigh) {
  if (isTooWide && isTooHigh) return "wider and higher";
  return isTooWide ? "wider" : "higher";
}

std::string whyRefused(const RasterFacts& facts) {
  const std::string format(name(facts.format));
  if (!facts.size) return "the " + format + " is damaged, cut short or of a kind that is not read";
  const auto [width, height] = *facts.size;
  if (width == 0 || height == 0) return "the " + format + " has a side of 0 pixels";
  constexpr std::uint64_t side = RasterAssetSafety::maximumDimension;
  if (width > side || height > side)
    return excess(width > side, height > side) + " than " + grouped(side) + " pixels";
  return grouped(width * height) + " pixels, and " + grouped(RasterAssetSafety::maximumPixels) +
         " are allowed";
}

std::string whyRefused(const PdfPage& page) {
  switch (page.outcome) {
    case PdfOutcome::notAPdf:
      break;
    case PdfOutcome::locked:
      return "it needs a password, or is encrypted in a way that is not read";
    case PdfOutcome::unreadable:
      return "it is damaged, has no page, or takes too much work to read";
    case PdfOutcome::noBox:
      return "the first page has no media box of four numbers, and so no size";
    case PdfOutcome::box: {
      if (!std::isfinite(page.width) || !std::isfinite(page.height))
        return "the first page's size is not a finite number";
      if (page.width <= 0 || page.height <= 0) return "the first page has a side of 0 points";
      constexpr double side = EmbeddedAssetSafety::maximumPageExtent;
      return "the first page is " + excess(page.width > side, page.height > side) + " than " +
             grouped(static_cast<std::uint64_t>(side)) + " points";
    }
  }
  return "the content is not PDF";
}

std::string whyRefused(std::span<const std::byte> bytes, const Facts& facts, bool isJudgedAsPdf) {
  if (bytes.empty()) return "the file is empty";
  if (facts.raster && isJudgedAsPdf)
    return "the content is " + std::string(name(facts.raster->format)) + " and not PDF";
  if (facts.raster) return whyRefused(*facts.raster);
  if (facts.pdf && !isJudgedAsPdf)
    return "the content is PDF, which is accepted as application/pdf only";
  if (facts.pdf) return whyRefused(*facts.pdf);
  return "the content is none of PNG, JPEG, GIF, BMP, TIFF, WebP, HEIF, AVIF and PDF";
}

}  // namespace

AssetVerdict judgeAsset(std::span<const std::byte> bytes,
                        std::optional<std::string_view> mediaType) {
  const Facts facts = factsOf(bytes);
  AssetVerdict verdict{typeOf(facts), sizeOf(facts), std::nullopt, 0, {}};
  if (!mediaType && verdict.type) mediaType = verdict.type->mediaType;
  try {
    verdict.pixels = EmbeddedAssetSafety::validate(bytes, mediaType);
  } catch (const DocumentValidationError& error) {
    verdict.error = error;
    verdict.reason = whyRefused(bytes, facts, mediaType == pdfType.mediaType);
  }
  return verdict;
}

std::string grouped(std::uint64_t number) {
  std::string text = std::to_string(number);
  for (std::size_t place = text.size(); place > 3; place -= 3) text.insert(place - 3, ",");
  return text;
}

}  // namespace korrin::host
