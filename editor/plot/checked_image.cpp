#include "editor/plot/checked_image.h"

#include <QBuffer>
#include <QImageReader>
#include <QTransform>
#include <algorithm>
#include <span>

#include "korrin/drawing/photo_turn.h"
#include "korrin/validation/embedded_asset_safety.h"
#include "korrin/validation/pdf/first_page_box.h"
#include "korrin/validation/raster_asset_safety.h"

namespace korrin::editor {
namespace {

constexpr std::string_view pdfType = "application/pdf";

struct Format {
  RasterFormat format;
  const char* decoder;  // its name among Qt's plug-ins
  std::string_view ending;
};

constexpr Format formats[] = {
    {RasterFormat::png, "png", "png"},    {RasterFormat::jpeg, "jpeg", "jpg"},
    {RasterFormat::gif, "gif", "gif"},    {RasterFormat::bmp, "bmp", "bmp"},
    {RasterFormat::tiff, "tiff", "tif"},  {RasterFormat::webp, "webp", "webp"},
    {RasterFormat::heif, "heif", "heic"}, {RasterFormat::avif, "avif", "avif"},
};

const Format& rowOf(RasterFormat format) {
  return *std::find_if(std::begin(formats), std::end(formats) - 1,
                       [format](const Format& row) { return row.format == format; });
}

}  // namespace

std::variant<CheckedImage, AssetRefusal> CheckedImage::check(
    std::string bytes, std::optional<std::string_view> mediaType) {
  const auto data = std::as_bytes(std::span(bytes));
  const std::optional<RasterFacts> facts = readRasterFacts(data);
  if (!mediaType) mediaType = facts ? korrin::mediaType(facts->format) : pdfType;
  if (const auto refusal = EmbeddedAssetSafety::refusal(data, mediaType)) {
    // Without a type given, what is neither was judged as the PDF that it is not.
    const bool isUnknown = !facts && !hasPdfHeader(data) && !bytes.empty();
    return isUnknown ? AssetRefusal::unknownFormat : *refusal;
  }
  CheckedImage image;
  if (facts) {
    image.format_ = facts->format;
    image.size_ = QSizeF(double(facts->size->width), double(facts->size->height));
    if (photoTurn(data).swapsSides()) image.size_.transpose();
    image.pixels_ = std::int64_t(facts->size->width * facts->size->height);
  } else {
    const PdfPage page = readFirstPage(data);
    image.size_ = QSizeF(page.width, page.height);
  }
  image.bytes_ = std::move(bytes);
  return image;
}

std::string_view CheckedImage::mediaType() const {
  return format_ ? korrin::mediaType(*format_) : pdfType;
}

std::string_view CheckedImage::ending() const { return format_ ? rowOf(*format_).ending : "pdf"; }

QByteArray CheckedImage::decoder() const {
  return format_ ? QByteArray(rowOf(*format_).decoder) : QByteArray();
}

bool CheckedImage::canBeDrawn() const {
  return format_ && QImageReader::supportedImageFormats().contains(decoder());
}

QImage CheckedImage::decoded(int longestSide) const {
  if (!canBeDrawn()) return {};
  QByteArray raw = QByteArray::fromRawData(bytes_.data(), qsizetype(bytes_.size()));
  QBuffer buffer(&raw);
  buffer.open(QIODevice::ReadOnly);
  // No other decoder than that of the format which was judged.
  QImageReader reader(&buffer, decoder());
  reader.setAutoDetectImageFormat(false);
  const QSize size = reader.size();
  const bool isAsJudged =
      size.isValid() && qint64(size.width()) * size.height() <= RasterAssetSafety::maximumPixels;
  if (!isAsJudged) return {};
  if (std::max(size.width(), size.height()) > longestSide)
    reader.setScaledSize(
        size.scaled(longestSide, longestSide, Qt::KeepAspectRatio).expandedTo({1, 1}));
  // As the drawing library turns it, not as the decoder would.
  reader.setAutoTransform(false);
  const PhotoTurn turn = photoTurn(std::as_bytes(std::span(bytes_)));
  const QImage stored = reader.read();
  if (turn == PhotoTurn{}) return stored;
  return stored.mirrored(turn.isMirrored, false)
      .transformed(QTransform().rotate(90 * turn.quarterTurns));
}

}  // namespace korrin::editor
