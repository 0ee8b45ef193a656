#include "editor/canvas/change_marks.h"

#include <QCoreApplication>
#include <QPainter>
#include <algorithm>

#include "korrin/drawing/outlines.h"

#include "editor/plot/comparison.h"
#include "editor/plot/qt_texts.h"

namespace korrin::editor {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("ChangeMarks", text); }

constexpr double aboveLabels = 2e6;
constexpr int wordPixels = 12;
constexpr double wordRoom = 320;  // pixels, for the longest word and its name

QPolygonF outlineIn(const PlotItem& item) {
  QPolygonF polygon;
  for (const StagePoint& corner : outlineOf(item)) polygon << QPointF(corner.x, corner.y);
  return polygon;
}

QPointF topOf(const QPolygonF& polygon) {
  return *std::min_element(polygon.begin(), polygon.end(),
                           [](const QPointF& a, const QPointF& b) { return a.y() < b.y(); });
}

// The sheets have the same colours.
const QColor addedColour(0x1a, 0x7f, 0x37);
const QColor changedColour(0x05, 0x50, 0xae);
const QColor movedColour(0x95, 0x38, 0x00);
const QColor goneColour(0xa4, 0x0e, 0x26);

}  // namespace

ChangeMarks::ChangeMarks(OpenPlot& plot) : plot_(plot) {
  setAcceptedMouseButtons(Qt::NoButton);
  setZValue(aboveLabels);
  setVisible(false);
}

void ChangeMarks::setZoom(double pixelsPerMillimetre) {
  zoom_ = pixelsPerMillimetre;
  measure();
}

void ChangeMarks::add(const PlotItem* item, const PlotItem* former, const QString& word,
                      const QColor& colour) {
  Mark mark{.outline = {}, .former = {}, .way = {}, .word = word, .colour = colour};
  if (item != nullptr) mark.outline = outlineIn(*item);
  if (former != nullptr) mark.former = outlineIn(*former);
  if (item != nullptr && former != nullptr)
    mark.way = QLineF(former->position.x, former->position.y, item->position.x, item->position.y);
  marks_.push_back(std::move(mark));
}

void ChangeMarks::refresh() {
  marks_.clear();
  const RevisionMarks& marks = plot_.comparison().marks();
  const auto shown = [this](const UUID& id) -> const PlotItem* {
    const PlotItem* item = plot_.item(id);
    if (item == nullptr) return nullptr;
    for (const PlotLayer& layer : plot_.project().layers)
      if (layer.id == item->layerID) return layer.isVisible ? item : nullptr;
    return nullptr;
  };
  for (const PlotItem& item : marks.gone)
    add(nullptr, &item, tr("gone: %1").arg(toQString(item.label).simplified().left(40)),
        goneColour);
  for (const PlotItem& former : marks.moved)
    if (const PlotItem* item = shown(former.id)) add(item, &former, tr("moved"), movedColour);
  for (const UUID& id : marks.changed)
    if (const PlotItem* item = shown(id)) add(item, nullptr, tr("changed"), changedColour);
  for (const UUID& id : marks.added)
    if (const PlotItem* item = shown(id)) add(item, nullptr, tr("new"), addedColour);
  setVisible(!marks_.empty());
  measure();
  update();
}

void ChangeMarks::measure() {
  prepareGeometryChange();
  bounds_ = {};
  for (const Mark& mark : marks_)
    bounds_ |= mark.outline.boundingRect() | mark.former.boundingRect();
  const double rim = wordRoom / 2 / zoom_;
  bounds_.adjust(-rim, -rim, rim, rim);
}

void ChangeMarks::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) {
  QFont font = painter->font();
  font.setPixelSize(wordPixels);
  font.setWeight(QFont::Bold);
  painter->setFont(font);
  painter->setBrush(Qt::NoBrush);
  for (const Mark& mark : marks_) {
    QPen pen(mark.colour, 2);
    pen.setCosmetic(true);
    painter->setPen(pen);
    painter->drawPolygon(mark.outline);
    pen.setWidthF(1.4);
    pen.setStyle(Qt::DashLine);
    painter->setPen(pen);
    painter->drawPolygon(mark.former);
    if (mark.outline.isEmpty()) {
      painter->drawLine(mark.former[0], mark.former[2]);
      painter->drawLine(mark.former[1], mark.former[3]);
    } else if (!mark.former.isEmpty()) {
      painter->drawLine(mark.way);
    }
    painter->save();
    painter->translate(topOf(mark.outline.isEmpty() ? mark.former : mark.outline));
    painter->scale(1 / zoom_, 1 / zoom_);
    const QRectF place(-wordRoom / 2, -wordPixels - 8, wordRoom, wordPixels + 6);
    // A light rim keeps the word legible on top of lines.
    painter->setPen(QColor(255, 255, 255, 220));
    for (const QPointF off : {QPointF(-1, 0), QPointF(1, 0), QPointF(0, -1), QPointF(0, 1)})
      painter->drawText(place.translated(off), Qt::AlignCenter, mark.word);
    painter->setPen(mark.colour);
    painter->drawText(place, Qt::AlignCenter, mark.word);
    painter->restore();
  }
}

}  // namespace korrin::editor
