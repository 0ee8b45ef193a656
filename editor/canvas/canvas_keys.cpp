// What keys do on the canvas, without a pointer.

#include <QKeyEvent>
#include <algorithm>

#include "korrin/session/item_edits.h"
#include "korrin/session/structural_edits.h"

#include "editor/canvas/canvas.h"

namespace korrin::editor {

void Canvas::nudge(const QPointF& by) {
  plot_.perform(tr("Move"), movingCommand(plot_.project(), plot_.selection(), {by.x(), by.y()}),
                {.select = {}, .mergeKey = "nudge"});
}

// In the plot's order. Returns false at the end, where the keyboard goes on to the next panel.
bool Canvas::selectNext(int step) {
  std::vector<UUID> ids;
  for (const PlotItem& item : plot_.project().items)
    if (plot_.project().canSelectItem(item)) ids.push_back(item.id);
  const auto selected = std::find_if(
      ids.begin(), ids.end(), [&](const UUID& id) { return plot_.selection().contains(id); });
  const auto count = static_cast<int>(ids.size());
  int next = step > 0 ? 0 : count - 1;
  if (selected != ids.end()) next = static_cast<int>(selected - ids.begin()) + step;
  if (next < 0 || next >= count) return false;
  showItem(ids[static_cast<std::size_t>(next)]);
  return true;
}

bool Canvas::focusNextPrevChild(bool next) {
  return selectNext(next ? 1 : -1) || QGraphicsView::focusNextPrevChild(next);
}

void Canvas::keyPressEvent(QKeyEvent* event) {
  // A centimetre at a time; a decimetre with Shift, a millimetre with Alt.
  double by = 10;
  if (event->modifiers().testFlag(Qt::ShiftModifier)) by = 100;
  if (event->modifiers().testFlag(Qt::AltModifier)) by = 1;
  switch (event->key()) {
    case Qt::Key_Left:
      return nudge({-by, 0});
    case Qt::Key_Right:
      return nudge({by, 0});
    case Qt::Key_Up:
      return nudge({0, -by});
    case Qt::Key_Down:
      return nudge({0, by});
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return editLabel();
    case Qt::Key_Escape:
      if (!cancelDrag()) plot_.select({});
      return;
    case Qt::Key_Space:
      if (!event->isAutoRepeat() && !press_) {
        isSpaceDown_ = true;
        viewport()->setCursor(Qt::OpenHandCursor);
      }
      return;
    default:
      QGraphicsView::keyPressEvent(event);
  }
}

void Canvas::keyReleaseEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Space && !event->isAutoRepeat()) {
    isSpaceDown_ = false;
    viewport()->setCursor(Qt::ArrowCursor);
  }
  QGraphicsView::keyReleaseEvent(event);
}

}  // namespace korrin::editor
