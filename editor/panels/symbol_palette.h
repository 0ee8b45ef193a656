#pragma once

// The palette: all built-in symbols with a field to search them, to be dragged onto the stage.

#include <QWidget>

class QLineEdit;
class QListView;
class QSortFilterProxyModel;

namespace korrin::editor {

class SymbolPalette : public QWidget {
  Q_OBJECT

 public:
  explicit SymbolPalette(QWidget* parent = nullptr);

 Q_SIGNALS:
  /// A symbol was chosen without dragging it, by Return or a double click.
  void chosen(const QString& assetID);

 private:
  QLineEdit* search_;
  QListView* list_;
  QSortFilterProxyModel* found_;
};

}  // namespace korrin::editor
