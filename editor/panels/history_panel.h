#pragma once

// All edits that can be undone and redone; a click goes back or forth to one.

#include <QListWidget>

#include "editor/plot/open_plot.h"

namespace korrin::editor {

class HistoryPanel : public QListWidget {
  Q_OBJECT

 public:
  /// The plot must outlive it.
  explicit HistoryPanel(OpenPlot& plot, QWidget* parent = nullptr);

 private:
  void refresh();
  void goTo(int row);

  OpenPlot& plot_;
};

}  // namespace korrin::editor
