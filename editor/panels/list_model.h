#pragma once

// One list of the plot as a model for table views: cells are edited in place, rows are added, taken
// out, moved and dragged, and every such step is one edit of the plot.

#include <QAbstractTableModel>
#include <vector>

#include "editor/panels/plot_list.h"
#include "editor/plot/open_plot.h"

namespace korrin::editor {

class ListModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  /// The plot and the list must outlive it.
  ListModel(OpenPlot& plot, const PlotList& list, QObject* parent = nullptr);

  const PlotList& list() const { return list_; }
  UUID idOf(int row) const { return ids_[std::size_t(row)]; }
  /// The item that a row is linked to, where there is such an item.
  const PlotItem* itemOf(int row) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
  bool insertRows(int row, int count, const QModelIndex& parent = {}) override;
  bool removeRows(int row, int count, const QModelIndex& parent = {}) override;

  QStringList mimeTypes() const override;
  QMimeData* mimeData(const QModelIndexList& indexes) const override;
  Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
  Qt::DropActions supportedDragActions() const override { return Qt::MoveAction | Qt::CopyAction; }
  bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                    const QModelIndex& parent) override;

  /// Takes these rows out, in one edit.
  bool removeAll(const std::vector<UUID>& rows);
  /// Puts these rows, in their order, before row `to`.
  bool moveAll(const std::vector<UUID>& rows, int to);
  /// Empties these cells; numbers that must be there stay.
  bool clear(const QModelIndexList& cells);

  /// The cells of a block as a spreadsheet takes them.
  QString textOf(const QModelIndexList& cells) const;
  /// Writes the cells of a spreadsheet from a cell on, with new rows where the list ends. Returns
  /// the number of cells that meant nothing to their column and were left out.
  int paste(const QString& text, const QModelIndex& from);

 Q_SIGNALS:
  /// A cell was refused: why, in a sentence.
  void refused(const QString& sentence);

 private:
  void follow(const ChangeSet& changes);
  void refresh();
  std::vector<UUID> currentIDs() const;
  QString linkText(std::size_t row) const;
  bool perform(const KorrinProject& changed);

  OpenPlot& plot_;
  const PlotList& list_;
  std::vector<UUID> ids_;  // as the views know them
};

/// A block of cells from the text that spreadsheets put on the clipboard: cells parted by
/// tabulators, rows by line ends; a cell in quotation marks may hold both.
std::vector<QStringList> cellsOf(const QString& text);

}  // namespace korrin::editor
