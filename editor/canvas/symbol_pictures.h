#pragma once

// Pictures of symbols, each drawn once however many items show it.

#include <QPixmap>
#include <QSvgRenderer>
#include <map>
#include <memory>
#include <string>

#include "korrin/model/plot_items.h"

namespace korrin::editor {

/// How one symbol looks, at any zoom.
class SymbolPicture {
 public:
  explicit SymbolPicture(const std::string& svg);

  /// The picture in so many device pixels; drawn anew only when their number changes.
  const QPixmap& pixmap(QSize pixels);
  /// Draws the picture itself: sharp at any turn and on paper.
  void draw(QPainter& painter, const QRectF& box) { renderer_.render(&painter, box); }

 private:
  QSvgRenderer renderer_;
  QPixmap pixmap_;
};

/// Items that look the same share one picture, which goes with the last of them.
class SymbolPictures {
 public:
  std::shared_ptr<SymbolPicture> pictureOf(const PlotItem& item);

 private:
  std::map<std::string, std::weak_ptr<SymbolPicture>> known_;
  std::size_t sweepAt_ = 64;
};

/// Whether two items are drawn alike but for place and turn.
bool looksLike(const PlotItem& a, const PlotItem& b);

}  // namespace korrin::editor
