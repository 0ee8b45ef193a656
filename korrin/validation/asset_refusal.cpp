#include "korrin/validation/asset_refusal.h"

namespace korrin {

DocumentValidationError::Code errorOf(AssetRefusal refusal) noexcept {
  switch (refusal) {
    case AssetRefusal::emptyFile:
    case AssetRefusal::unknownFormat:
    case AssetRefusal::pdfUnderAnotherType:
    case AssetRefusal::imageUnderPdfType:
    case AssetRefusal::damagedImage:
    case AssetRefusal::imageWithoutArea:
    case AssetRefusal::lockedPdf:
    case AssetRefusal::unreadablePdf:
      return DocumentValidationError::invalidImage;
    case AssetRefusal::imageTooLong:
    case AssetRefusal::tooManyPixels:
    // A page without a usable box bounds nothing, which is why it counts as too large rather than
    // as invalid.
    case AssetRefusal::pageWithoutBox:
    case AssetRefusal::pageNotFinite:
    case AssetRefusal::pageWithoutArea:
    case AssetRefusal::pageTooLarge:
      return DocumentValidationError::imageTooLarge;
  }
  return DocumentValidationError::invalidImage;
}

}  // namespace korrin
