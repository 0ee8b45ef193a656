#include "editor/files/typed_text.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>

namespace korrin::editor {

void takeTypedText() {
  const QPointer<QWidget> field = QApplication::focusWidget();
  if (!field) return;
  field->clearFocus();
  // The field of a label or of a cell is closed by that; others go on.
  if (field && field->isVisible()) field->setFocus();
}

}  // namespace korrin::editor
