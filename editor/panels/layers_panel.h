#pragma once

// The layers of the plot, the uppermost first: which are shown and locked, their names, their
// order, and the one that new symbols go on.

#include <QWidget>

#include "editor/plot/open_plot.h"

class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;

namespace korrin::editor {

class LayersPanel : public QWidget {
  Q_OBJECT

 public:
  /// The plot must outlive it.
  explicit LayersPanel(OpenPlot& plot, QWidget* parent = nullptr);

  QTreeWidget& list() { return *list_; }

 Q_SIGNALS:
  void said(const QString& sentence);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void makeActions(QToolBar& bar);
  void refresh();
  void take(QTreeWidgetItem* row, int column);
  void add();
  void remove();
  void moveBy(int places);
  std::optional<UUID> current() const;

  OpenPlot& plot_;
  QTreeWidget* list_;
};

}  // namespace korrin::editor
