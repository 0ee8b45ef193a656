#include "editor/canvas/ruler.h"

#include <QPainter>
#include <array>
#include <cmath>

#include "editor/look/theme.h"

namespace korrin::editor {
namespace {

// The shortest round length, in millimetres, that takes up at least so many pixels.
double stepOf(double zoom, double pixels) {
  double decade = 10;
  while (decade < 1e7) {
    for (const double factor : {1.0, 2.0, 5.0})
      if (decade * factor * zoom >= pixels) return decade * factor;
    decade *= 10;
  }
  return decade;
}

}  // namespace

Ruler::Ruler(Qt::Orientation orientation, QWidget* parent)
    : QWidget(parent), orientation_(orientation) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void Ruler::setRange(double start, double zoom) {
  if (start_ == start && zoom_ == zoom) return;
  start_ = start;
  zoom_ = zoom;
  update();
}

void Ruler::setPointer(int at) {
  if (pointer_ == at) return;
  pointer_ = at;
  update();
}

void Ruler::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const bool isLevel = orientation_ == Qt::Horizontal;
  const int length = isLevel ? width() : height();
  painter.fillRect(rect(), palette().color(QPalette::Window));
  const QColor edge = palette().color(QPalette::Mid);
  painter.fillRect(
      isLevel ? QRect(0, height() - 1, width(), 1) : QRect(width() - 1, 0, 1, height()), edge);
  // The upright one is drawn like the level one, turned.
  if (!isLevel) {
    painter.translate(0, length);
    painter.rotate(-90);
  }
  const auto place = [&](double millimetres) {
    const double at = (millimetres - start_) * zoom_;
    return static_cast<int>(std::lround(isLevel ? at : length - at));
  };
  QFont font = painter.font();
  font.setPixelSize(10);
  painter.setFont(font);
  const double step = stepOf(zoom_, 64);
  const double fine = step / 5;
  const double end = start_ + length / zoom_;
  for (double line = std::floor(start_ / fine) * fine; line <= end; line += fine) {
    const bool isMain = std::fabs(std::remainder(line, step)) < fine / 2;
    const int at = place(line);
    painter.fillRect(QRect(at, thickness - (isMain ? 10 : 5), 1, isMain ? 9 : 4),
                     palette().color(QPalette::PlaceholderText));
    if (!isMain) continue;
    const double metres = line / 1000;
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(QRect(at - 40, 1, 80, 13), Qt::AlignCenter,
                     QLocale().toString(std::fabs(metres) < 1e-9 ? 0 : metres, 'g', 6));
  }
  if (pointer_ >= 0)
    painter.fillRect(QRect(isLevel ? pointer_ : length - pointer_, 0, 1, thickness),
                     accentColour());
}

}  // namespace korrin::editor
