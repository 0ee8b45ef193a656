// Cells from spreadsheets and for them.

#include <algorithm>
#include <utility>

#include "editor/panels/list_model.h"

namespace korrin::editor {
namespace {

// More than any list of a show; a clipboard may hold anything.
constexpr int maximumRows = 2'000;

QString cellText(const QVariant& value) {
  QString text = value.typeId() == QMetaType::Bool ? (value.toBool() ? "x" : "") : value.toString();
  if (!text.contains('\t') && !text.contains('\n') && !text.contains('"')) return text;
  return '"' + text.replace('"', "\"\"") + '"';
}

}  // namespace

std::vector<QStringList> cellsOf(const QString& text) {
  std::vector<QStringList> rows;
  QStringList row;
  QString cell;
  bool isQuoted = false;
  const auto endCell = [&] { row.append(std::exchange(cell, {})); };
  const auto endRow = [&] {
    endCell();
    rows.push_back(std::exchange(row, {}));
  };
  for (qsizetype i = 0; i < text.size() && rows.size() < maximumRows; ++i) {
    const QChar c = text[i];
    if (isQuoted) {
      if (c != '"')
        cell += c;
      else if (i + 1 < text.size() && text[i + 1] == '"')
        cell += text[++i];
      else
        isQuoted = false;
    } else if (c == '"' && cell.isEmpty()) {
      isQuoted = true;
    } else if (c == '\t') {
      endCell();
    } else if (c == '\n') {
      endRow();
    } else if (c != '\r') {
      cell += c;
    }
  }
  if (!cell.isEmpty() || !row.isEmpty()) endRow();
  return rows;
}

QString ListModel::textOf(const QModelIndexList& cells) const {
  QModelIndexList sorted = cells;
  std::sort(sorted.begin(), sorted.end());
  QString text;
  for (qsizetype i = 0; i < sorted.size(); ++i) {
    if (i > 0) text += sorted[i].row() == sorted[i - 1].row() ? '\t' : '\n';
    const ListColumn& column = list_.columns[std::size_t(sorted[i].column())];
    text += cellText(column.kind == ListColumn::Kind::link
                         ? sorted[i].data()
                         : column.read(plot_.project(), std::size_t(sorted[i].row())));
  }
  return text;
}

int ListModel::paste(const QString& text, const QModelIndex& from) {
  KorrinProject changed = plot_.project();
  auto row = std::size_t(from.isValid() ? from.row() : rowCount());
  const int firstColumn = from.isValid() ? from.column() : 0;
  int leftOut = 0;
  bool isChanged = false;
  for (const QStringList& cells : cellsOf(text)) {
    if (row == list_.size(changed)) {
      list_.insert(changed, row, plot_.environment().makeUUID());
      isChanged = true;
    }
    for (qsizetype i = 0; i < cells.size(); ++i) {
      const auto place = std::size_t(firstColumn) + std::size_t(i);
      // Identifiers of symbols mean nothing in a spreadsheet; the column takes no text.
      const bool isTaken = place < list_.columns.size() &&
                           list_.columns[place].kind != ListColumn::Kind::link &&
                           list_.columns[place].write(changed, row, cells[i]);
      isChanged |= isTaken;
      if (!isTaken && !cells[i].isEmpty()) ++leftOut;
    }
    ++row;
  }
  if (isChanged) perform(changed);
  return leftOut;
}

}  // namespace korrin::editor
