#include "editor/panels/row_drag.h"

namespace korrin::editor {

QByteArray DraggedRows::bytes() const {
  QByteArray lines(list->key.data(), qsizetype(list->key.size()));
  for (const UUID& id : ids) lines += '\n' + QByteArray::fromStdString(id.text());
  return lines;
}

std::optional<DraggedRows> draggedRows(const QByteArray& bytes) {
  const QList<QByteArray> lines = bytes.split('\n');
  const PlotList* list = plotListNamed(lines.front().toStdString());
  if (list == nullptr) return std::nullopt;
  DraggedRows rows{.list = list, .ids = {}};
  for (qsizetype i = 1; i < lines.size(); ++i)
    if (const auto id = UUID::fromText(lines[i].toStdString())) rows.ids.push_back(*id);
  return rows;
}

bool link(OpenPlot& plot, const DraggedRows& rows, std::optional<UUID> item) {
  const ListColumn* column = rows.list->linkColumn();
  if (column == nullptr) return false;
  const QVariant value = item ? QVariant(QString::fromStdString(item->text())) : QVariant();
  KorrinProject trial = plot.project();
  bool isChanged = false;
  for (const UUID& id : rows.ids) {
    const auto row = rows.list->rowOf(trial, id);
    if (!row || column->read(trial, *row) == value) continue;
    isChanged |= column->write(trial, *row, value);
  }
  return isChanged && plot.perform(item ? QCoreApplication::translate("PlotList", "Link to Symbol")
                                        : QCoreApplication::translate("PlotList", "Unlink"),
                                   rows.list->replacing(trial));
}

}  // namespace korrin::editor
