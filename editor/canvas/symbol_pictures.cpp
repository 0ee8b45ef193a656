#include "editor/canvas/symbol_pictures.h"

#include <QPainter>

#include "korrin/drawing/plot_drawing.h"

namespace korrin::editor {

SymbolPicture::SymbolPicture(const std::string& svg) : renderer_(QByteArray::fromStdString(svg)) {
  renderer_.setAspectRatioMode(Qt::IgnoreAspectRatio);
}

const QPixmap& SymbolPicture::pixmap(QSize pixels) {
  if (pixmap_.size() != pixels) {
    pixmap_ = QPixmap(pixels);
    pixmap_.fill(Qt::transparent);
    QPainter painter(&pixmap_);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer_.render(&painter, QRectF(QPointF(), QSizeF(pixels)));
  }
  return pixmap_;
}

std::shared_ptr<SymbolPicture> SymbolPictures::pictureOf(const PlotItem& item) {
  // The label is no more than the picture's title, and would keep equal symbols apart.
  PlotItem nameless = item;
  nameless.label = {};
  std::string svg = drawSymbol(nameless);
  std::weak_ptr<SymbolPicture>& place = known_[svg];
  std::shared_ptr<SymbolPicture> picture = place.lock();
  if (!picture) {
    picture = std::make_shared<SymbolPicture>(svg);
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
