#include "editor/canvas/symbol_pictures.h"

#include <QPainter>

#include "korrin/drawing/plot_drawing.h"

namespace korrin::editor {

SymbolPicture::SymbolPicture(const std::string& svg) : renderer_(QByteArray::fromStdString(svg)) {
  renderer_.setAspectRatioMode(Qt::IgnoreAspectRatio);
}

SymbolPicture::SymbolPicture(QImage image, bool isFlippedAcross, bool isFlippedDown)
    : image_(std::move(image)), isFlippedAcross_(isFlippedAcross), isFlippedDown_(isFlippedDown) {}

void SymbolPicture::draw(QPainter& painter, const QRectF& box) {
  if (image_.isNull()) {
    renderer_.render(&painter, box);
    return;
  }
  const QSizeF size = QSizeF(image_.size()).scaled(box.size(), Qt::KeepAspectRatio);
  painter.save();
  painter.translate(box.center());
  painter.scale(isFlippedAcross_ ? -1 : 1, isFlippedDown_ ? -1 : 1);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(QRectF(QPointF(-size.width() / 2, -size.height() / 2), size), image_);
  painter.restore();
}

const QPixmap& SymbolPicture::pixmap(QSize pixels) {
  if (pixmap_.size() != pixels) {
    pixmap_ = QPixmap(pixels);
    pixmap_.fill(Qt::transparent);
    QPainter painter(&pixmap_);
    painter.setRenderHint(QPainter::Antialiasing);
    draw(painter, QRectF(QPointF(), QSizeF(pixels)));
  }
  return pixmap_;
}

std::shared_ptr<SymbolPicture> SymbolPictures::pictureOf(const PlotItem& item) {
  // The label is no more than the picture's title, and would keep equal symbols apart.
  PlotItem nameless = item;
  nameless.label = {};
  std::string svg = drawSymbol(nameless);
  QImage image = artwork_.pictureOf(item.assetID);
  if (!image.isNull()) svg += "image";  // which looks otherwise than its frame
  std::weak_ptr<SymbolPicture>& place = known_[svg];
  std::shared_ptr<SymbolPicture> picture = place.lock();
  if (!picture) {
    picture = image.isNull()
                  ? std::make_shared<SymbolPicture>(svg)
                  : std::make_shared<SymbolPicture>(std::move(image), item.isFlippedHorizontally,
                                                    item.isFlippedVertically);
    place = picture;
  }
  // A symbol that is resized by hand leaves a picture behind at every step.
  if (known_.size() >= sweepAt_) {
    std::erase_if(known_, [](const auto& entry) { return entry.second.expired(); });
    sweepAt_ = 2 * known_.size() + 64;
  }
  return picture;
}

bool looksLike(const PlotItem& a, const PlotItem& b) {
  return a.kind == b.kind && a.assetID == b.assetID && a.size == b.size &&
         a.isFlippedHorizontally == b.isFlippedHorizontally &&
         a.isFlippedVertically == b.isFlippedVertically && a.style.tintHex == b.style.tintHex;
}

}  // namespace korrin::editor
