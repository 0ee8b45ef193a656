#include "editor/dialogs/image_refusals.h"

#include <QCoreApplication>
#include <QLocale>

#include "korrin/validation/embedded_asset_safety.h"
#include "korrin/validation/raster_asset_safety.h"

namespace korrin::editor {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("ImageRefusals", text); }

QString number(double value) { return QLocale().toString(value, 'f', 0); }

QString withLimit(const QString& sentences, double limit) { return sentences.arg(number(limit)); }

}  // namespace

QString sentencesFor(AssetRefusal refusal) {
  switch (refusal) {
    case AssetRefusal::emptyFile:
      return tr("The file is empty. Copy it again from where it came from.");
    case AssetRefusal::unknownFormat:
    case AssetRefusal::pdfUnderAnotherType:
    case AssetRefusal::imageUnderPdfType:
      return tr(
          "It is none of PNG, JPEG, GIF, BMP, TIFF, WebP, HEIF, AVIF and PDF. Export it as "
          "PNG and insert that.");
    case AssetRefusal::damagedImage:
      return tr(
          "The image is damaged, cut short or of a kind that is not read. Open it in a "
          "picture program and save it anew as PNG or JPEG.");
    case AssetRefusal::imageWithoutArea:
      return tr("The image has a side of 0 pixels. Export it again.");
    case AssetRefusal::imageTooLong:
      return withLimit(tr("A side of the image is longer than %1 pixels. Make it smaller; 2000 "
                          "pixels are plenty on paper."),
                       double(RasterAssetSafety::maximumDimension));
    case AssetRefusal::tooManyPixels:
      return withLimit(tr("The image has more than %1 pixels. Make it smaller; 2000 pixels a side "
                          "are plenty on paper."),
                       double(RasterAssetSafety::maximumPixels));
    case AssetRefusal::lockedPdf:
      return tr(
          "The PDF needs a password, or is encrypted in a way that is not read. Save it "
          "without a password.");
    case AssetRefusal::unreadablePdf:
      return tr(
          "The PDF is damaged, has no page, or takes too much work to read. Print it into a "
          "new PDF and insert that.");
    case AssetRefusal::pageWithoutBox:
    case AssetRefusal::pageNotFinite:
    case AssetRefusal::pageWithoutArea:
      return tr(
          "The first page of the PDF has no usable size. Print it into a new PDF and insert "
          "that.");
    case AssetRefusal::pageTooLarge:
      return withLimit(tr("The first page of the PDF is larger than %1 points. Print it on smaller "
                          "paper."),
                       EmbeddedAssetSafety::maximumPageExtent);
  }
  return {};
}

QString noRoomSentences() {
  return withLimit(tr("With it, the images of this plot would have more than %1 pixels together. "
                      "Make it smaller, or delete another image."),
                   double(RasterAssetSafety::maximumAggregatePixels));
}

}  // namespace korrin::editor
