#include "editor/panels/history_panel.h"

#include "editor/files/file_questions.h"
#include "editor/plot/qt_texts.h"

namespace korrin::editor {

HistoryPanel::HistoryPanel(OpenPlot& plot, QWidget* parent) : QListWidget(parent), plot_(plot) {
  setUniformItemSizes(true);
  connect(&plot_, &OpenPlot::historyChanged, this, &HistoryPanel::refresh);
  connect(this, &QListWidget::itemClicked, this,
          [this](QListWidgetItem* item) { goTo(row(item)); });
  connect(this, &QListWidget::itemActivated, this,
          [this](QListWidgetItem* item) { goTo(row(item)); });
  refresh();
}

// The first row is the plot before all edits; row n is the plot after the nth.
void HistoryPanel::refresh() {
  // A drag reports at each step and is one entry, at its end.
  if (plot_.isInGesture()) return;
  QStringList names{tr("Beginning")};
  const auto add = [&](const Text& name) {
    names.append(name.empty() ? tr("Edit") : plain(toQString(name)));
  };
  for (const Text& name : plot_.history().undoNames()) add(name);
  for (const Text& name : plot_.history().redoNames()) add(name);

  const QSignalBlocker quiet(this);
  while (count() > names.size()) delete takeItem(count() - 1);
  const int present = int(plot_.history().undoCount());
  for (int i = 0; i < names.size(); ++i) {
    if (i == count()) addItem(names[i]);
    QListWidgetItem* entry = item(i);
    entry->setText(names[i]);
    entry->setForeground(
        palette().brush(i > present ? QPalette::Disabled : QPalette::Active, QPalette::Text));
  }
  setCurrentRow(present);
  scrollToItem(item(present));
}

void HistoryPanel::goTo(int row) {
  while (int(plot_.history().undoCount()) > row) plot_.undo();
  while (int(plot_.history().undoCount()) < row && plot_.history().redoCount() > 0) plot_.redo();
}

}  // namespace korrin::editor
