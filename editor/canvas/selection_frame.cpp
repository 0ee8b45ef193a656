#include "editor/canvas/selection_frame.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "korrin/drawing/outlines.h"

#include "editor/look/theme.h"

namespace korrin::editor {
namespace {

// In pixels.
constexpr double handleSize = 9;
constexpr double turnDistance = 24;
constexpr double reach = 8;
constexpr double room = turnDistance + handleSize;

constexpr std::array handles = {Handle{0, -1, true}, Handle{-1, -1}, Handle{1, -1},
                                Handle{1, 1},        Handle{-1, 1},  Handle{0, -1},
                                Handle{1, 0},        Handle{0, 1},   Handle{-1, 0}};

QPointF onCanvas(const StagePoint& point) { return {point.x, point.y}; }

}  // namespace

SelectionFrame::SelectionFrame(const OpenPlot& plot) : plot_(plot) {
  constexpr double aboveAll = 1e9;
  setZValue(aboveAll);
  setAcceptedMouseButtons(Qt::NoButton);
}

void SelectionFrame::refresh() {
  prepareGeometryChange();
  outlines_.clear();
  bounds_ = {};
  for (const PlotItem* item : plot_.selectedItems()) {
    Outline outline{.corners = {}, .isEditable = plot_.project().canEditItem(*item)};
    std::ranges::transform(outlineOf(*item), outline.corners.begin(), onCanvas);
    const auto [left, right] = std::ranges::minmax(outline.corners, {}, &QPointF::x);
    const auto [top, bottom] = std::ranges::minmax(outline.corners, {}, &QPointF::y);
    bounds_ |= QRectF(QPointF(left.x(), top.y()), QPointF(right.x(), bottom.y()));
    outlines_.push_back(outline);
  }
  const double margin = room / zoom_;
  if (!outlines_.empty()) bounds_.adjust(-margin, -margin, margin, margin);
  update();
}

void SelectionFrame::setZoom(double pixelsPerMillimetre) {
  zoom_ = pixelsPerMillimetre;
  refresh();
}

const PlotItem* SelectionFrame::itemWithHandles() const {
  const std::vector<const PlotItem*> items = plot_.selectedItems();
  return items.size() == 1 && plot_.project().canEditItem(*items[0]) ? items[0] : nullptr;
}

QPointF SelectionFrame::placeOf(const Handle& handle) const {
  const std::array<QPointF, 4>& corners = outlines_.at(0).corners;
  const QPointF centre = (corners[0] + corners[2]) / 2;
  const QPointF across = (corners[1] - corners[0]) / 2;
  const QPointF down = (corners[3] - corners[0]) / 2;
  const QPointF place = centre + handle.x * across + handle.y * down;
  if (!handle.turns) return place;
  const double length = std::hypot(down.x(), down.y());
  return length > 0 ? place - down / length * (turnDistance / zoom_) : place;
}

std::optional<Handle> SelectionFrame::handleAt(const QPointF& point) const {
  if (itemWithHandles() == nullptr) return std::nullopt;
  for (const Handle& handle : handles) {
    const QPointF away = placeOf(handle) - point;
    if (std::hypot(away.x(), away.y()) * zoom_ <= reach) return handle;
  }
  return std::nullopt;
}

void SelectionFrame::paint(QPainter* painter, const QStyleOptionGraphicsItem*, QWidget*) {
  QPen pen(accentColour(), 1.6);
  pen.setCosmetic(true);
  QPen locked(lockedColour(), 1.6, Qt::DashLine);
  locked.setCosmetic(true);
  painter->setBrush(Qt::NoBrush);
  for (const Outline& outline : outlines_) {
    painter->setPen(outline.isEditable ? pen : locked);
    painter->drawPolygon(outline.corners.data(), static_cast<int>(outline.corners.size()));
  }
  if (itemWithHandles() == nullptr) return;
  painter->setPen(pen);
  painter->drawLine(placeOf({0, -1}), placeOf({0, -1, true}));
  painter->setBrush(Qt::white);
  const double half = handleSize / 2 / zoom_;
  for (const Handle& handle : handles) {
    if (handle.turns)
      painter->drawEllipse(placeOf(handle), half, half);
    else
      painter->drawRect(QRectF(placeOf(handle) - QPointF(half, half), QSizeF(2 * half, 2 * half)));
  }
}

}  // namespace korrin::editor
