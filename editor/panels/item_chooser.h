#pragma once

// Choosing a symbol of the plot by the keyboard, without looking for it on the stage.

#include <QDialog>
#include <optional>

#include "editor/plot/open_plot.h"

class QLineEdit;
class QListWidget;
class QPushButton;

namespace korrin::editor {

class ItemChooser : public QDialog {
  Q_OBJECT

 public:
  /// Lists all items of the plot, which must outlive it, in the plot's order. The present one, if
  /// any, is chosen to begin with.
  ItemChooser(const OpenPlot& plot, const std::optional<UUID>& present, QWidget* parent);

  /// The item that was chosen; nothing where none fits the words.
  std::optional<UUID> item() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void filter(const QString& words);

  QLineEdit* search_;
  QListWidget* list_;
  QPushButton* choose_;
};

}  // namespace korrin::editor
