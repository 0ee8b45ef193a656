// What the pointer does on the canvas: select, drag, pan, drop.

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QRubberBand>
#include <QScrollBar>
#include <QTimer>
#include <QUrl>
#include <QWheelEvent>
#include <cmath>

#include "korrin/model/stacking.h"
#include "korrin/session/item_edits.h"

#include "editor/canvas/canvas.h"
#include "editor/canvas/ruler.h"

namespace korrin::editor {
namespace {

constexpr double reachPixels = 7;
constexpr std::size_t many = 300;  // items

// Of files on this computer.
QStringList pathsOf(const QMimeData& dragged) {
  QStringList paths;
  for (const QUrl& url : dragged.urls())
    if (url.isLocalFile()) paths += url.toLocalFile();
  return paths;
}

}  // namespace

void Canvas::mousePressEvent(QMouseEvent* event) {
  setFocus();
  const QPoint at = event->position().toPoint();
  const QPointF point = onStage(at);
  const bool pans =
      event->button() == Qt::MiddleButton || (event->button() == Qt::LeftButton && isSpaceDown_);
  if (!pans && event->button() != Qt::LeftButton) return;
  press_ = Press{.at = at, .handle = {}, .item = {}, .pans = pans, .before = plot_.selection()};
  if (pans) {
    viewport()->setCursor(Qt::ClosedHandCursor);
    return;
  }
  press_->handle = frame_->handleAt(point);
  if (press_->handle) return;
  press_->item = itemAt(point);
  const bool adds = event->modifiers().testFlag(Qt::ShiftModifier);
  if (!press_->item) {
    if (!adds) plot_.select({});
    return;
  }
  // With Alt a single member of a group.
  IDSet clicked = {*press_->item};
  if (!event->modifiers().testFlag(Qt::AltModifier))
    clicked = withGroupMembers(plot_.project(), clicked);
  const bool isSelected = plot_.selection().contains(*press_->item);
  if (adds) {
    IDSet selection = plot_.selection();
    for (const UUID& id : clicked)
      isSelected ? void(selection.erase(id)) : void(selection.insert(id));
    plot_.select(selection);
    if (isSelected) press_->item.reset();
  } else if (!isSelected) {
    plot_.select(clicked);
  }
}

void Canvas::beginDrag(const QPointF& point) {
  if (const PlotItem* item = press_->handle ? frame_->itemWithHandles() : nullptr) {
    if (press_->handle->turns)
      drag_ = std::make_unique<TurnDrag>(plot_, *item, point);
    else
      drag_ = std::make_unique<ResizeDrag>(plot_, *item, *press_->handle);
  } else if (press_->item) {
    // Of many items that move, adding up the places takes longer than painting all that is seen.
    if (plot_.selection().size() > many) setViewportUpdateMode(FullViewportUpdate);
    drag_ = std::make_unique<MoveDrag>(plot_, point);
  }
}

void Canvas::mouseMoveEvent(QMouseEvent* event) {
  const QPoint at = event->position().toPoint();
  levelRuler_->setPointer(at.x());
  uprightRuler_->setPointer(at.y());
  Q_EMIT pointerMoved(onStage(at));
  if (!press_) {
    showCursor(at);
    return;
  }
  if (press_->pans) {
    const QPoint by = at - press_->at;
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() - by.x());
    verticalScrollBar()->setValue(verticalScrollBar()->value() - by.y());
    press_->at = at;
    return;
  }
  const bool isFar = (at - press_->at).manhattanLength() >= QApplication::startDragDistance();
  if (!drag_ && isFar && !band_->isVisible()) beginDrag(onStage(press_->at));
  if (drag_) {
    drag_->moveTo(onStage(at), reachPixels / zoom(), event->modifiers());
    showGuides(drag_->guides());
  } else if (isFar || band_->isVisible()) {
    stretchBand(at);
  }
}

void Canvas::stretchBand(const QPoint& to) {
  const QRect box = QRect(press_->at, to).normalized();
  band_->setGeometry(box);
  band_->show();
  const QRectF onPlot = mapToScene(box).boundingRect();
  IDSet caught;
  for (const PlotItem* item : visibleItemsInStackingOrder(plot_.project()))
    if (onPlot.contains(boundsOf(*item))) caught.insert(item->id);
  caught = withGroupMembers(plot_.project(), caught);
  if (QApplication::keyboardModifiers().testFlag(Qt::ShiftModifier))
    caught.insert(press_->before.begin(), press_->before.end());
  plot_.select(caught);
}

void Canvas::mouseReleaseEvent(QMouseEvent* event) {
  if (!press_) return;
  const Press press = *press_;
  const bool wasClick = !drag_ && !band_->isVisible() && !press.pans && !press.handle;
  if (drag_) drag_->end();
  endPress();
  // A click on one of several selected items is about that one.
  if (wasClick && press.item && event->modifiers() == Qt::NoModifier)
    plot_.select(withGroupMembers(plot_.project(), {*press.item}));
  showCursor(event->position().toPoint());
}

void Canvas::endPress() {
  setViewportUpdateMode(MinimalViewportUpdate);
  press_.reset();
  drag_.reset();
  band_->hide();
  showGuides({});
}

bool Canvas::cancelDrag() {
  if (!press_) return false;
  const IDSet before = press_->before;
  const bool wasBand = band_->isVisible();
  if (drag_) drag_->cancel();
  endPress();
  if (wasBand) plot_.select(before);
  return true;
}

void Canvas::mouseDoubleClickEvent(QMouseEvent* event) {
  const std::optional<UUID> id = itemAt(onStage(event->position().toPoint()));
  if (!id || event->button() != Qt::LeftButton) return;
  plot_.select({*id});
  editLabel();
}

void Canvas::showCursor(const QPoint& at) {
  if (isSpaceDown_) {
    viewport()->setCursor(Qt::OpenHandCursor);
    return;
  }
  const std::optional<Handle> handle = frame_->handleAt(onStage(at));
  if (!handle) {
    viewport()->setCursor(itemAt(onStage(at)) ? Qt::SizeAllCursor : Qt::ArrowCursor);
    return;
  }
  if (handle->turns) {
    viewport()->setCursor(Qt::CrossCursor);
    return;
  }
  // The arrow that lies along the way from the item's centre to the handle.
  const PlotItem& item = *frame_->itemWithHandles();
  const QPointF way = frame_->placeOf(*handle) - QPointF(item.position.x, item.position.y);
  constexpr double eighth = 0.785398;
  const int sector = (static_cast<int>(std::lround(std::atan2(way.y(), way.x()) / eighth)) + 8) % 4;
  constexpr Qt::CursorShape shapes[] = {Qt::SizeHorCursor, Qt::SizeFDiagCursor, Qt::SizeVerCursor,
                                        Qt::SizeBDiagCursor};
  viewport()->setCursor(shapes[sector]);
}

void Canvas::wheelEvent(QWheelEvent* event) {
  if (!event->modifiers().testFlag(Qt::ControlModifier)) {
    QGraphicsView::wheelEvent(event);
    return;
  }
  const double turns = event->angleDelta().y() / 120.0;
  setZoom(zoom() * std::pow(1.2, turns), event->position().toPoint());
  event->accept();
}

void Canvas::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() == QContextMenuEvent::Mouse) {
    const std::optional<UUID> id = itemAt(onStage(event->pos()));
    if (!id)
      plot_.select({});
    else if (!plot_.selection().contains(*id))
      plot_.select(withGroupMembers(plot_.project(), {*id}));
  }
  if (contextMenu_ != nullptr) contextMenu_->popup(event->globalPos());
}

const QString* Canvas::dropTypeOf(const QMimeData& dragged) const {
  for (const auto& [type, drop] : drops_)
    if (dragged.hasFormat(type)) return &type;
  return nullptr;
}

bool Canvas::takesFiles(const QMimeData& dragged) const {
  return fileDrop_ && dragged.hasUrls() && !pathsOf(dragged).isEmpty();
}

void Canvas::dragEnterEvent(QDragEnterEvent* event) {
  const QMimeData& dragged = *event->mimeData();
  if (dragged.hasFormat(symbolType) || dropTypeOf(dragged) != nullptr || takesFiles(dragged))
    event->acceptProposedAction();
}

void Canvas::dragMoveEvent(QDragMoveEvent* event) {
  // These find their place anywhere; all else is for an item.
  const bool isSymbol = event->mimeData()->hasFormat(symbolType) || takesFiles(*event->mimeData());
  const std::optional<UUID> under =
      isSymbol ? std::nullopt : itemAt(onStage(event->position().toPoint()));
  if (under) plot_.select({*under});
  event->setAccepted(isSymbol || under);
  if (event->isAccepted()) event->setDropAction(Qt::CopyAction);
}

void Canvas::dropEvent(QDropEvent* event) {
  const QPointF point = onStage(event->position().toPoint());
  if (event->mimeData()->hasFormat(symbolType)) {
    addSymbol(event->mimeData()->data(symbolType).toStdString(), point);
    setFocus();
  } else if (const QString* type = dropTypeOf(*event->mimeData())) {
    if (const std::optional<UUID> id = itemAt(point))
      drops_.at (*type)(event->mimeData()->data(*type), *id);
  } else if (takesFiles(*event->mimeData())) {
    // The program that files are dragged from waits until this event is over.
    QTimer::singleShot(
        0, this, [this, paths = pathsOf(*event->mimeData()), point] { fileDrop_(paths, point); });
    setFocus();
  }
  event->setDropAction(Qt::CopyAction);
  event->accept();
}

}  // namespace korrin::editor
