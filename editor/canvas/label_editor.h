#pragma once

// The label of an item, edited where it stands.

#include <QLineEdit>

#include "editor/plot/open_plot.h"

namespace korrin::editor {

class LabelEditor : public QLineEdit {
  Q_OBJECT

 public:
  /// The plot must outlive it.
  LabelEditor(OpenPlot& plot, QWidget* parent);

  /// Begins with the item's label; the field stands centred below `place` of its parent. Return and
  /// a click elsewhere take the text, Escape does not.
  void edit(const PlotItem& item, const QPoint& place);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void finish(bool takesText);

  OpenPlot& plot_;
  std::optional<UUID> itemID_;
};

}  // namespace korrin::editor
