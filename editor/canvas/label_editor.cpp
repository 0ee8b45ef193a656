#include "editor/canvas/label_editor.h"

#include <QKeyEvent>
#include <utility>

#include "korrin/session/item_edits.h"

#include "editor/plot/qt_texts.h"

namespace korrin::editor {

LabelEditor::LabelEditor(OpenPlot& plot, QWidget* parent) : QLineEdit(parent), plot_(plot) {
  setAlignment(Qt::AlignCenter);
  setAccessibleName(tr("Label"));
  hide();
  connect(&plot_, &OpenPlot::replaced, this, [this] { finish(false); });
}

void LabelEditor::edit(const PlotItem& item, const QPoint& place) {
  finish(true);
  constexpr int width = 200;
  itemID_ = item.id;
  setText(toQString(item.label));
  selectAll();
  resize(width, sizeHint().height());
  move(place - QPoint(width / 2, 0));
  show();
  raise();
  setFocus();
}

void LabelEditor::finish(bool takesText) {
  const std::optional<UUID> id = std::exchange(itemID_, std::nullopt);
  if (!id) return;
  hide();
  parentWidget()->setFocus();
  if (!takesText) return;
  const Text label = toText(text());
  plot_.perform(tr("Label"), changingCommand(plot_.project(), {*id}, [&](PlotItem& item) {
                  if (label == item.label) return;
                  item.label = label;
                  item.style.labelVisible = true;
                }));
}

void LabelEditor::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    finish(false);
  } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    finish(true);
  } else {
    QLineEdit::keyPressEvent(event);
  }
}

void LabelEditor::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  // The menu that a right click opens in the field is not elsewhere.
  if (event->reason() != Qt::PopupFocusReason) finish(true);
}

}  // namespace korrin::editor
