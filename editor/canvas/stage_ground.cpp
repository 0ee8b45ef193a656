#include "editor/canvas/stage_ground.h"

#include <QCoreApplication>
#include <algorithm>
#include <cmath>
#include <vector>

#include "korrin/validation/document_validation.h"

#include "editor/look/theme.h"
#include "editor/plot/qt_texts.h"

namespace korrin::editor {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("StageGround", text); }

QPen hairline(const QColor& colour, double width = 1, Qt::PenStyle style = Qt::SolidLine) {
  QPen pen(colour, width, style);
  pen.setCosmetic(true);
  return pen;
}

void drawGrid(QPainter& painter, const QRectF& floor, const QRectF& exposed, double spacing,
              double zoom) {
  constexpr double narrowest = 9;  // pixels; narrower lines cannot be told apart
  const double every = std::max(1.0, std::ceil(narrowest / (spacing * zoom)));
  const auto lines = [&](double from, double to, auto draw) {
    const std::vector<double> all = DocumentValidation::gridCoordinates(from, to, spacing);
    const std::size_t step = every < 1e6 ? static_cast<std::size_t>(every) : all.size() + 1;
    for (std::size_t i = 0; i < all.size(); i += step) draw(all[i]);
  };
  painter.setPen(hairline(gridColour()));
  const QRectF shown = floor & exposed;
  lines(floor.left(), floor.right(), [&](double x) {
    if (x >= shown.left() && x <= shown.right())
      painter.drawLine(QPointF(x, shown.top()), QPointF(x, shown.bottom()));
  });
  lines(floor.top(), floor.bottom(), [&](double y) {
    if (y >= shown.top() && y <= shown.bottom())
      painter.drawLine(QPointF(shown.left(), y), QPointF(shown.right(), y));
  });
}

bool isUpright(AudienceEdge edge) {
  return edge == AudienceEdge::left || edge == AudienceEdge::right;
}

void drawAudience(QPainter& painter, const QRectF& floor, AudienceEdge edge, double zoom) {
  const bool upright = isUpright(edge);
  painter.setPen(hairline(QColor(0x8a, 0x94, 0xa0), 1, Qt::DashDotLine));
  if (upright)
    painter.drawLine(QPointF(floor.left(), 0), QPointF(floor.right(), 0));
  else
    painter.drawLine(QPointF(0, floor.top()), QPointF(0, floor.bottom()));

  const double thick = 4 / zoom;
  QRectF bar = floor;
  if (edge == AudienceEdge::bottom) bar = {floor.left(), floor.bottom(), floor.width(), thick};
  if (edge == AudienceEdge::top) bar = {floor.left(), floor.top() - thick, floor.width(), thick};
  if (edge == AudienceEdge::right) bar = {floor.right(), floor.top(), thick, floor.height()};
  if (edge == AudienceEdge::left) bar = {floor.left() - thick, floor.top(), thick, floor.height()};
  painter.fillRect(bar, accentColour());

  painter.save();
  const double side = edge == AudienceEdge::bottom || edge == AudienceEdge::right ? 1.0 : -1.0;
  const double away = side * 18 / zoom;
  painter.translate(upright ? QPointF(bar.center().x() + away, 0)
                            : QPointF(0, bar.center().y() + away));
  if (upright) painter.rotate(side * 90);
  painter.scale(1 / zoom, 1 / zoom);
  QFont font = painter.font();
  font.setPixelSize(12);
  font.setWeight(QFont::DemiBold);
  font.setLetterSpacing(QFont::AbsoluteSpacing, 3);
  painter.setFont(font);
  painter.setPen(isDark() ? QColor(0x94, 0xa0, 0xad) : QColor(0x5b, 0x67, 0x73));
  painter.drawText(QRectF(-300, -12, 600, 24), Qt::AlignCenter, tr("AUDIENCE"));
  painter.restore();
}

void drawDimensions(QPainter& painter, const StageDefinition& stage, const QRectF& floor,
                    double zoom) {
  painter.save();
  const bool isTopFree = stage.audienceEdge != AudienceEdge::top;
  const double away = (isTopFree ? -18 : 18) / zoom;
  painter.translate(0, (isTopFree ? floor.top() : floor.bottom()) + away);
  painter.scale(1 / zoom, 1 / zoom);
  QFont font = painter.font();
  font.setPixelSize(12);
  painter.setFont(font);
  painter.setPen(isDark() ? QColor(0x94, 0xa0, 0xad) : QColor(0x5b, 0x67, 0x73));
  const QLocale locale;
  painter.drawText(QRectF(-400, -12, 800, 24), Qt::AlignCenter,
                   tr("%1  ·  %2 m × %3 m")
                       .arg(toQString(stage.name).simplified().left(80),
                            locale.toString(stage.size.width / 1000, 'f', 2),
                            locale.toString(stage.size.height / 1000, 'f', 2)));
  painter.restore();
}

}  // namespace

void drawGround(QPainter& painter, const StageDefinition& stage, const QRectF& exposed,
                double zoom) {
  const QRectF floor(-stage.size.width / 2, -stage.size.height / 2, stage.size.width,
                     stage.size.height);
  painter.fillRect(exposed, deskColour());
  painter.setRenderHint(QPainter::Antialiasing, false);
  // A soft shadow, so that the stage lies upon the desk.
  for (int step = 1; step <= 5; ++step) {
    const double rim = step / zoom;
    painter.fillRect(floor.adjusted(-rim, -rim, rim, rim).translated(0, rim), QColor(0, 0, 0, 10));
  }
  painter.fillRect(floor, stageColour());
  if (stage.showGrid && stage.gridSpacingMillimeters > 0)
    drawGrid(painter, floor, exposed, stage.gridSpacingMillimeters, zoom);
  drawAudience(painter, floor, stage.audienceEdge, zoom);
  painter.setPen(hairline(stageInkColour(), 1.4));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(floor);
  if (stage.showDimensions) drawDimensions(painter, stage, floor, zoom);
  painter.setRenderHint(QPainter::Antialiasing);
}

}  // namespace korrin::editor
