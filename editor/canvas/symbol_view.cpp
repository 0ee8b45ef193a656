#include "editor/canvas/symbol_view.h"

#include <QPainter>
#include <QStyleOptionGraphicsItem>
#include <algorithm>
#include <cmath>

#include "korrin/drawing/outlines.h"

#include "editor/plot/qt_texts.h"

namespace korrin::editor {
namespace {

constexpr double labelsBegin = 1e6;  // above all symbols
// Labels grow with the stage, but stay legible far off and modest from near.
constexpr double labelHeight = 150;
constexpr double smallestPixels = 9;
constexpr double largestPixels = 34;
constexpr double haloPixels = 2.5;
// Larger pictures are drawn as they are asked for, so that no zoom takes much memory.
constexpr double largestPixmap = 1500;

}  // namespace

QRectF boundsOf(const PlotItem& item) {
  const std::array<StagePoint, 4> corners = outlineOf(item);
  const auto [left, right] = std::minmax({corners[0].x, corners[1].x, corners[2].x, corners[3].x});
  const auto [top, bottom] = std::minmax({corners[0].y, corners[1].y, corners[2].y, corners[3].y});
  return {left, top, right - left, bottom - top};
}

void LabelView::follow(const PlotItem& item) {
  const QRectF bounds = boundsOf(item);
  setPos(bounds.center().x(), bounds.bottom());
}

void LabelView::show(const PlotItem& item) {
  follow(item);
  const QString text = item.style.labelVisible ? toQString(item.label).simplified() : QString();
  if (text == text_ && item.style.labelScale == scale_) return;
  prepareGeometryChange();
  text_ = text;
  scale_ = item.style.labelScale;
  layOut();
}

void LabelView::setZoom(double pixelsPerMillimetre) {
  if (zoom_ == pixelsPerMillimetre) return;
  prepareGeometryChange();
  zoom_ = pixelsPerMillimetre;
  layOut();
}

void LabelView::layOut() {
  const double pixels = std::clamp(labelHeight * zoom_, smallestPixels, largestPixels) *
                        std::clamp(scale_, 0.0, 10.0);
  font_.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
  font_.setWeight(QFont::DemiBold);
  laidOut_.setTextFormat(Qt::PlainText);
  laidOut_.setText(pixels < 1 ? QString() : text_.left(200));
  laidOut_.prepare({}, font_);
}

QRectF LabelView::boundingRect() const {
  if (laidOut_.text().isEmpty()) return {};
  const QSizeF size = (laidOut_.size() + QSizeF(2 * haloPixels, 2 * haloPixels)) / zoom_;
  return {-size.width() / 2, 0, size.width(), size.height()};
}

void LabelView::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) {
  if (laidOut_.text().isEmpty()) return;
  const QPointF at(-laidOut_.size().width() / 2, haloPixels);
  painter->scale(1 / zoom_, 1 / zoom_);
  painter->setFont(font_);
  // A light rim keeps the text legible on top of lines.
  painter->setPen(QColor(255, 255, 255, 170));
  for (const QPointF off : {QPointF(-1, 0), QPointF(1, 0), QPointF(0, -1), QPointF(0, 1)})
    painter->drawStaticText(at + off, laidOut_);
  painter->setPen(QColor(0x1f, 0x29, 0x33));
  painter->drawStaticText(at, laidOut_);
}

SymbolView::SymbolView(const PlotItem& item, SymbolPictures& pictures)
    : item_(item), picture_(pictures.pictureOf(item)), label_(std::make_unique<LabelView>()) {
  show(item, pictures);
  label_->show(item);
}

SymbolView::~SymbolView() = default;

void SymbolView::show(const PlotItem& item, SymbolPictures& pictures) {
  if (!looksLike(item_, item)) {
    prepareGeometryChange();
    picture_ = pictures.pictureOf(item);
    update();
  } else if (item_.isLocked != item.isLocked) {
    update();
  }
  const bool isLabelledAlike = item_.label == item.label && item_.style == item.style;
  item_ = item;
  setPos(item.position.x, item.position.y);
  setRotation(std::fmod(item.rotationDegrees, 360));
  if (isLabelledAlike)
    label_->follow(item);
  else
    label_->show(item);
}

void SymbolView::redraw(SymbolPictures& pictures) {
  picture_ = pictures.pictureOf(item_);
  update();
}

void SymbolView::setPlace(int place) {
  setZValue(place);
  label_->setZValue(labelsBegin + place);
}

void SymbolView::setShown(bool isShown) {
  setVisible(isShown);
  label_->setVisible(isShown);
}

QRectF SymbolView::boundingRect() const {
  return {-item_.size.width / 2, -item_.size.height / 2, item_.size.width, item_.size.height};
}

void SymbolView::paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget*) {
  const QRectF box = boundingRect();
  const double zoom =
      QStyleOptionGraphicsItem::levelOfDetailFromTransform(painter->worldTransform()) *
      painter->device()->devicePixelRatioF();
  const QSizeF pixels = box.size() * zoom;
  const bool isLarge = std::max(pixels.width(), pixels.height()) > largestPixmap;
  if (isLarge || option == nullptr) {
    picture_->draw(*painter, box);
    return;
  }
  const QSize whole(std::max(1, static_cast<int>(std::ceil(pixels.width()))),
                    std::max(1, static_cast<int>(std::ceil(pixels.height()))));
  const QPixmap& pixmap = picture_->pixmap(whole);
  painter->drawPixmap(box, pixmap, QRectF(QPointF(), QSizeF(whole)));
}

}  // namespace korrin::editor
