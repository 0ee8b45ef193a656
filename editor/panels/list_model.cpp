#include "editor/panels/list_model.h"

#include <QColor>
#include <QMimeData>
#include <algorithm>
#include <map>
#include <set>

#include "editor/panels/row_drag.h"
#include "editor/plot/qt_texts.h"

namespace korrin::editor {

ListModel::ListModel(OpenPlot& plot, const PlotList& list, QObject* parent)
    : QAbstractTableModel(parent), plot_(plot), list_(list), ids_(currentIDs()) {
  connect(&plot_, &OpenPlot::changed, this, &ListModel::follow);
  connect(&plot_, &OpenPlot::replaced, this, [this] {
    beginResetModel();
    ids_ = currentIDs();
    endResetModel();
  });
}

std::vector<UUID> ListModel::currentIDs() const {
  std::vector<UUID> ids;
  for (std::size_t row = 0; row < list_.size(plot_.project()); ++row)
    ids.push_back(list_.idOf(plot_.project(), row));
  return ids;
}

void ListModel::follow(const ChangeSet& changes) {
  if (changes.affectsTechnicalData || changes.affectsDocumentStructure) {
    refresh();
  } else if (!changes.changedItemIDs.empty() && list_.hasLinks() && !ids_.empty()) {
    // Links show the names of items.
    Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
  }
}

// Rows that stay keep their selection and their place in sight: what differs lies between the first
// and the last row that do.
void ListModel::refresh() {
  std::vector<UUID> now = currentIDs();
  const auto [first, firstNow] = std::mismatch(ids_.begin(), ids_.end(), now.begin(), now.end());
  const auto begin = first - ids_.begin();
  const auto [last, lastNow] = std::mismatch(ids_.rbegin(), std::make_reverse_iterator(first),
                                             now.rbegin(), std::make_reverse_iterator(firstNow));
  const auto end = last.base() - ids_.begin();
  const auto endNow = lastNow.base() - now.begin();
  if (begin < end) {
    beginRemoveRows({}, int(begin), int(end) - 1);
    ids_.erase(ids_.begin() + begin, ids_.begin() + end);
    endRemoveRows();
  }
  if (begin < endNow) {
    beginInsertRows({}, int(begin), int(endNow) - 1);
    ids_ = std::move(now);
    endInsertRows();
  }
  if (!ids_.empty()) Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

int ListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : int(ids_.size());
}

int ListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : int(list_.columns.size());
}

const PlotItem* ListModel::itemOf(int row) const {
  const ListColumn* column = list_.linkColumn();
  if (column == nullptr || std::size_t(row) >= list_.size(plot_.project())) return nullptr;
  const QString id = column->read(plot_.project(), std::size_t(row)).toString();
  const auto linked = UUID::fromText(id.toStdString());
  return linked ? plot_.item(*linked) : nullptr;
}

QString ListModel::linkText(std::size_t row) const {
  if (list_.linkColumn()->read(plot_.project(), row).isNull()) return {};
  const PlotItem* item = itemOf(int(row));
  if (item == nullptr) return tr("missing");
  const QString text = toQString(item->legendText());
  return text.isEmpty() ? tr("unnamed") : text;
}

QVariant ListModel::data(const QModelIndex& index, int role) const {
  const auto row = std::size_t(index.row());
  // Views ask between an edit of the plot and the news of it as well.
  if (!index.isValid() || row >= list_.size(plot_.project())) return {};
  const ListColumn& column = list_.columns[std::size_t(index.column())];
  const bool isCheck = column.kind == ListColumn::Kind::check;
  if (column.kind == ListColumn::Kind::link) {
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) return linkText(row);
    if (role == Qt::AccessibleTextRole) return linkText(row);
    return {};
  }
  switch (role) {
    case Qt::DisplayRole:
      // A note's text is many lines; a row shows the first.
      return isCheck ? QVariant()
                     : column.read(plot_.project(), row).toString().section('\n', 0, 0);
    case Qt::EditRole:
      return column.read(plot_.project(), row);
    case Qt::ToolTipRole:
      return isCheck ? QVariant() : column.read(plot_.project(), row).toString();
    case Qt::CheckStateRole:
      if (!isCheck) return {};
      return column.read(plot_.project(), row).toBool() ? Qt::Checked : Qt::Unchecked;
    case Qt::TextAlignmentRole:
      if (column.kind != ListColumn::Kind::number) return {};
      return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
    case Qt::AccessibleTextRole:
      return isCheck ? QVariant(column.title + ": " +
                                (column.read(plot_.project(), row).toBool() ? tr("yes") : tr("no")))
                     : QVariant(column.read(plot_.project(), row).toString());
    default:
      return {};
  }
}

QVariant ListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole) return QAbstractTableModel::headerData(section, orientation, role);
  if (orientation == Qt::Vertical) return section + 1;
  return list_.columns[std::size_t(section)].title;
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const {
  if (!index.isValid()) return Qt::ItemIsDropEnabled;
  const Qt::ItemFlags common = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled;
  switch (list_.columns[std::size_t(index.column())].kind) {
    case ListColumn::Kind::check:
      return common | Qt::ItemIsUserCheckable;
    case ListColumn::Kind::link:
      return common;
    default:
      return common | Qt::ItemIsEditable;
  }
}

bool ListModel::perform(const KorrinProject& changed) {
  return plot_.perform(list_.editName, list_.replacing(changed));
}

bool ListModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  const bool isCheck = role == Qt::CheckStateRole;
  const auto row = std::size_t(index.row());
  if (!index.isValid() || row >= ids_.size() || (role != Qt::EditRole && !isCheck)) return false;
  const ListColumn& column = list_.columns[std::size_t(index.column())];
  const QVariant wanted = isCheck ? QVariant(value.toInt() == Qt::Checked) : value;
  KorrinProject changed = plot_.project();
  if (!column.write(changed, row, wanted)) {
    Q_EMIT refused(
        tr("“%1” is no number for the column “%2”.").arg(value.toString(), column.title));
    return false;
  }
  // An editor that is left as it was is no edit.
  if (column.read(changed, row) == column.read(plot_.project(), row)) return true;
  return perform(changed);
}

bool ListModel::insertRows(int row, int count, const QModelIndex& parent) {
  if (parent.isValid() || row < 0 || row > rowCount() || count < 1) return false;
  KorrinProject changed = plot_.project();
  for (int i = 0; i < count; ++i)
    list_.insert(changed, std::size_t(row + i), plot_.environment().makeUUID());
  return perform(changed);
}

bool ListModel::removeRows(int row, int count, const QModelIndex& parent) {
  if (parent.isValid() || row < 0 || count < 1 || row + count > rowCount()) return false;
  return removeAll({ids_.begin() + row, ids_.begin() + row + count});
}

bool ListModel::removeAll(const std::vector<UUID>& rows) {
  const std::set<UUID> doomed(rows.begin(), rows.end());
  KorrinProject changed = plot_.project();
  for (std::size_t row = list_.size(changed); row-- > 0;)
    if (doomed.contains(list_.idOf(changed, row))) list_.remove(changed, row);
  return list_.size(changed) != list_.size(plot_.project()) && perform(changed);
}

bool ListModel::moveAll(const std::vector<UUID>& rows, int to) {
  const std::set<UUID> moved(rows.begin(), rows.end());
  std::vector<UUID> order;
  for (int row = 0; row <= rowCount(); ++row) {
    if (row == to)
      std::copy_if(ids_.begin(), ids_.end(), std::back_inserter(order),
                   [&](const UUID& id) { return moved.contains(id); });
    if (row < rowCount() && !moved.contains(idOf(row))) order.push_back(idOf(row));
  }
  if (order == ids_ || order.size() != ids_.size()) return false;
  KorrinProject changed = plot_.project();
  for (std::size_t place = 0; place < order.size(); ++place) {
    std::size_t from = place;
    while (list_.idOf(changed, from) != order[place]) ++from;
    if (from != place) list_.move(changed, from, place);
  }
  return perform(changed);
}

bool ListModel::clear(const QModelIndexList& cells) {
  KorrinProject changed = plot_.project();
  bool isChanged = false;
  for (const QModelIndex& cell : cells) {
    const ListColumn& column = list_.columns[std::size_t(cell.column())];
    const auto row = std::size_t(cell.row());
    const QVariant before = column.read(changed, row);
    if (column.write(changed, row, QString())) isChanged |= column.read(changed, row) != before;
  }
  return isChanged && perform(changed);
}

QStringList ListModel::mimeTypes() const { return {DraggedRows::mimeType}; }

QMimeData* ListModel::mimeData(const QModelIndexList& indexes) const {
  std::set<int> rows;
  for (const QModelIndex& index : indexes) rows.insert(index.row());
  DraggedRows dragged{.list = &list_, .ids = {}};
  for (int row : rows) dragged.ids.push_back(idOf(row));
  auto* data = new QMimeData;
  data->setData(DraggedRows::mimeType, dragged.bytes());
  return data;
}

bool ListModel::dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int,
                             const QModelIndex& parent) {
  const auto rows = draggedRows(data->data(DraggedRows::mimeType));
  if (!rows || rows->list != &list_ || action != Qt::MoveAction) return false;
  const int to = row >= 0 ? row : parent.isValid() ? parent.row() : rowCount();
  moveAll(rows->ids, to);
  // The view would take the dragged rows out after a success; they have moved already.
  return false;
}

}  // namespace korrin::editor
