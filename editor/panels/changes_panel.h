#pragma once

// What changed since another file, in words as a crew says them, and how to end the comparison.

#include <QWidget>

#include "editor/plot/open_plot.h"

class QLabel;
class QListWidget;
class QPushButton;

namespace korrin::editor {

class ChangesPanel : public QWidget {
  Q_OBJECT

 public:
  /// The plot must outlive it.
  explicit ChangesPanel(OpenPlot& plot, QWidget* parent = nullptr);

 Q_SIGNALS:
  /// The user asks for a file to compare with.
  void fileAskedFor();
  /// The user asks where on the stage an item is.
  void itemAskedFor(const korrin::UUID& id);

 private:
  void fill();
  void copy();
  void jump();

  OpenPlot& plot_;
  QLabel* heading_;
  QListWidget* list_;
  QPushButton* copy_;
  QPushButton* end_;
};

}  // namespace korrin::editor
