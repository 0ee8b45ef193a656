#pragma once

// Pictures of symbols, each drawn once however many items show it.

#include <QImage>
#include <QPixmap>
#include <QSvgRenderer>
#include <map>
#include <memory>
#include <string>

#include "korrin/model/plot_items.h"

#include "editor/plot/plot_artwork.h"

namespace korrin::editor {

/// How one symbol looks, at any zoom.
class SymbolPicture {
 public:
  explicit SymbolPicture(const std::string& svg);
  /// An embedded image, as large as the box allows.
  SymbolPicture(QImage image, bool isFlippedAcross, bool isFlippedDown);

  /// The picture in so many device pixels; drawn anew only when their number changes.
  const QPixmap& pixmap(QSize pixels);
  /// Draws the picture itself: sharp at any turn and on paper.
  void draw(QPainter& painter, const QRectF& box);

 private:
  QSvgRenderer renderer_;
  QImage image_;  // null for a symbol
  bool isFlippedAcross_ = false;
  bool isFlippedDown_ = false;
  QPixmap pixmap_;
};

/// Items that look the same share one picture, which goes with the last of them.
class SymbolPictures {
 public:
  /// The images must outlive it.
  explicit SymbolPictures(PlotArtwork& artwork) : artwork_(artwork) {}

  /// A frame stands for an embedded image that is not there, or not yet.
  std::shared_ptr<SymbolPicture> pictureOf(const PlotItem& item);

 private:
  PlotArtwork& artwork_;
  std::map<std::string, std::weak_ptr<SymbolPicture>> known_;
  std::size_t sweepAt_ = 64;
};

/// Whether two items are drawn alike but for place and turn.
bool looksLike(const PlotItem& a, const PlotItem& b);

}  // namespace korrin::editor
