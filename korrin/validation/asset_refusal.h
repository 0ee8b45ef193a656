#pragma once

// Why the bytes of an embedded image or PDF are refused, more closely than the error says. For a
// host that explains a refusal; the sentences are its own.

#include <array>

#include "korrin/foundation/enumeration.h"
#include "korrin/validation/document_validation_error.h"

#pragma GCC visibility push(default)

namespace korrin {

/// The first reason in the order of the checks.
enum class AssetRefusal {
  emptyFile,            ///< There are no bytes.
  unknownFormat,        ///< Neither a raster format that is read nor a PDF.
  pdfUnderAnotherType,  ///< A PDF whose media type is not "application/pdf".
  imageUnderPdfType,    ///< A raster image whose media type is "application/pdf".
  damagedImage,         ///< The header is damaged, cut short or of a kind that is not read.
  imageWithoutArea,     ///< A side of 0 pixels.
  imageTooLong,         ///< A side beyond RasterAssetSafety::maximumDimension.
  tooManyPixels,        ///< More than RasterAssetSafety::maximumPixels.
  lockedPdf,            ///< It needs a password, or is encrypted in a way that is not read.
  unreadablePdf,        ///< It is damaged, has no page, or takes too much work to read.
  pageWithoutBox,       ///< The first page has no media box of four numbers.
  pageNotFinite,        ///< A side of the first page is not a finite number of points.
  pageWithoutArea,      ///< A side of 0 points.
  pageTooLarge,         ///< A side beyond EmbeddedAssetSafety::maximumPageExtent.
};

template <>
struct CaseTable<AssetRefusal> {
  static constexpr std::array cases = {
      Case{AssetRefusal::emptyFile, "emptyFile"},
      Case{AssetRefusal::unknownFormat, "unknownFormat"},
      Case{AssetRefusal::pdfUnderAnotherType, "pdfUnderAnotherType"},
      Case{AssetRefusal::imageUnderPdfType, "imageUnderPdfType"},
      Case{AssetRefusal::damagedImage, "damagedImage"},
      Case{AssetRefusal::imageWithoutArea, "imageWithoutArea"},
      Case{AssetRefusal::imageTooLong, "imageTooLong"},
      Case{AssetRefusal::tooManyPixels, "tooManyPixels"},
      Case{AssetRefusal::lockedPdf, "lockedPdf"},
      Case{AssetRefusal::unreadablePdf, "unreadablePdf"},
      Case{AssetRefusal::pageWithoutBox, "pageWithoutBox"},
      Case{AssetRefusal::pageNotFinite, "pageNotFinite"},
      Case{AssetRefusal::pageWithoutArea, "pageWithoutArea"},
      Case{AssetRefusal::pageTooLarge, "pageTooLarge"},
  };
};

/// The case of the error that is thrown for this reason: `imageTooLarge` when the header is in
/// order and its size is the reason, a page without a usable size among them, else `invalidImage`.
DocumentValidationError::Code errorOf(AssetRefusal refusal) noexcept;

}  // namespace korrin

#pragma GCC visibility pop
