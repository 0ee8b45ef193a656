#include "assets/asset_verdict.h"

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

std::optional<AssetType> typeOf(const Facts& facts) {
  if (facts.raster) return AssetType{name(facts.raster->format), mediaType(facts.raster->format)};
  return facts.pdf ? std::optional(pdfType) : std::nullopt;
}

/// Points, which are seldom whole, in as many digits as tell a page from its limit.
std::string pointsText(double points) { return shortNumber(points, 7); }

std::string sizeInWords(const Facts& facts) {
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

std::string inWords(AssetRefusal refusal, const Facts& facts) {
  constexpr std::uint64_t side = RasterAssetSafety::maximumDimension;
  constexpr double extent = EmbeddedAssetSafety::maximumPageExtent;
  const std::string format(facts.raster ? name(facts.raster->format) : "");
  const PixelSize size = facts.raster ? facts.raster->size.value_or(PixelSize{}) : PixelSize{};
  switch (refusal) {
    case AssetRefusal::emptyFile:
      return "the file is empty";
    case AssetRefusal::unknownFormat:
      return "the content is none of PNG, JPEG, GIF, BMP, TIFF, WebP, HEIF, AVIF and PDF";
    case AssetRefusal::pdfUnderAnotherType:
      return "the content is PDF, which is accepted as application/pdf only";
    case AssetRefusal::imageUnderPdfType:
      return "the content is " + format + " and not PDF";
    case AssetRefusal::damagedImage:
      return "the " + format + " is damaged, cut short or of a kind that is not read";
    case AssetRefusal::imageWithoutArea:
      return "the " + format + " has a side of 0 pixels";
    case AssetRefusal::imageTooLong:
      return excess(size.width > side, size.height > side) + " than " + grouped(side) + " pixels";
    case AssetRefusal::tooManyPixels:
      return grouped(size.width * size.height) + " pixels, and " +
             grouped(RasterAssetSafety::maximumPixels) + " are allowed";
    case AssetRefusal::lockedPdf:
      return "it needs a password, or is encrypted in a way that is not read";
    case AssetRefusal::unreadablePdf:
      return "it is damaged, has no page, or takes too much work to read";
    case AssetRefusal::pageWithoutBox:
      return "the first page has no media box of four numbers, and so no size";
    case AssetRefusal::pageNotFinite:
      return "the first page's size is not a finite number";
    case AssetRefusal::pageWithoutArea:
      return "the first page has a side of 0 points";
    case AssetRefusal::pageTooLarge:
      return "the first page is " + excess(facts.pdf->width > extent, facts.pdf->height > extent) +
             " than " + grouped(static_cast<std::uint64_t>(extent)) + " points";
  }
  return {};
}

}  // namespace

AssetVerdict judgeAsset(std::span<const std::byte> bytes,
                        std::optional<std::string_view> mediaType) {
  const Facts facts = factsOf(bytes);
  AssetVerdict verdict{typeOf(facts), sizeInWords(facts), std::nullopt, 0, {}};
  if (!mediaType && verdict.type) mediaType = verdict.type->mediaType;
  if (const auto refusal = EmbeddedAssetSafety::refusal(bytes, mediaType)) {
    verdict.error = errorOf(*refusal);
    verdict.reason = inWords(*refusal, facts);
  } else if (facts.raster) {
    verdict.pixels =
        static_cast<std::int64_t>(facts.raster->size->width * facts.raster->size->height);
  }
  return verdict;
}

std::string grouped(std::uint64_t number) {
  std::string text = std::to_string(number);
  for (std::size_t place = text.size(); place > 3; place -= 3) text.insert(place - 3, ",");
  return text;
}

}  // namespace korrin::host
