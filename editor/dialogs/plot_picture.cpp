#include "editor/dialogs/plot_picture.h"

#include <QPainter>
#include <QSvgRenderer>

#include "editor/look/painted_svg.h"

namespace korrin::editor {

QPixmap pictureOf(const KorrinProject& project, QSize size, qreal pixelRatio,
                  const DrawingOptions& options) {
  QPixmap pixmap((QSizeF(size) * pixelRatio).toSize());
  pixmap.setDevicePixelRatio(pixelRatio);
  pixmap.fill(Qt::white);
  QSvgRenderer renderer(paintedSvg(drawPlot(project, options)));
  renderer.setAspectRatioMode(Qt::KeepAspectRatio);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  constexpr int margin = 6;
  renderer.render(&painter,
                  QRectF(QPointF(), QSizeF(size)).adjusted(margin, margin, -margin, -margin));
  return pixmap;
}

}  // namespace korrin::editor
