#pragma once

// A list of the plot as a table with the buttons for its rows.

#include <QTableView>
#include <QWidget>

#include "editor/panels/list_model.h"

class QAction;
class QToolBar;

namespace korrin::editor {

class ListPanel : public QWidget {
  Q_OBJECT

 public:
  /// The plot and the list must outlive it.
  ListPanel(OpenPlot& plot, const PlotList& list, QWidget* parent = nullptr);

  const PlotList& list() const { return list_; }
  ListModel& model() { return *model_; }
  QTableView& view() { return *view_; }

  /// Puts the cursor on a field of a row.
  void showCell(std::size_t row, std::string_view field);

 Q_SIGNALS:
  void said(const QString& sentence);
  /// The user asks where on the stage an item is.
  void itemAskedFor(const korrin::UUID& id);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void makeActions(QToolBar& bar);
  QAction* addAction(QToolBar& bar, const QString& name, const QString& text, const QString& help,
                     const QKeySequence& key, void (ListPanel::*act)());
  void add();
  void remove();
  void moveUp();
  void moveDown();
  void moveBy(int places);
  void linkToSelected();
  void linkToChosen();
  void unlink();
  void showLinked();
  void copy();
  void paste();
  void updateActions();
  std::vector<UUID> selectedRows() const;

  OpenPlot& plot_;
  const PlotList& list_;
  ListModel* model_;
  QTableView* view_;
};

}  // namespace korrin::editor
