#include "editor/panels/list_panel.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QToolBar>
#include <QVBoxLayout>
#include <set>

#include "editor/panels/item_chooser.h"
#include "editor/panels/row_drag.h"

namespace korrin::editor {

ListPanel::ListPanel(OpenPlot& plot, const PlotList& list, QWidget* parent)
    : QWidget(parent),
      plot_(plot),
      list_(list),
      model_(new ListModel(plot, list, this)),
      view_(new QTableView(this)) {
  view_->setModel(model_);
  view_->setAccessibleName(list.title);
  view_->setAlternatingRowColors(true);
  view_->setShowGrid(false);
  view_->setWordWrap(false);
  view_->setTabKeyNavigation(true);
  view_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                         QAbstractItemView::AnyKeyPressed);
  view_->setDragEnabled(true);
  view_->setAcceptDrops(true);
  view_->setDragDropMode(QAbstractItemView::DragDrop);
  view_->setDefaultDropAction(Qt::MoveAction);
  view_->setDragDropOverwriteMode(false);
  view_->installEventFilter(this);
  const int character = view_->fontMetrics().averageCharWidth();
  view_->verticalHeader()->setDefaultSectionSize(view_->fontMetrics().height() + 10);
  view_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  view_->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  view_->horizontalHeader()->setStretchLastSection(true);
  view_->horizontalHeader()->setHighlightSections(false);
  for (std::size_t i = 0; i < list.columns.size(); ++i)
    view_->setColumnWidth(int(i), list.columns[i].width * character + 12);

  auto* bar = new QToolBar(this);
  bar->setToolButtonStyle(Qt::ToolButtonTextOnly);
  makeActions(*bar);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(bar);
  layout->addWidget(view_);
  connect(model_, &ListModel::refused, this, &ListPanel::said);
  connect(view_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &ListPanel::updateActions);
  connect(&plot_, &OpenPlot::selectionChanged, this, &ListPanel::updateActions);
  connect(model_, &ListModel::dataChanged, this, &ListPanel::updateActions);
  updateActions();
}

QAction* ListPanel::addAction(QToolBar& bar, const QString& name, const QString& text,
                              const QString& help, const QKeySequence& key,
                              void (ListPanel::*act)()) {
  QAction* action = bar.addAction(text, this, act);
  action->setObjectName(name);
  action->setShortcut(key);
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  action->setToolTip(key.isEmpty() ? help
                                   : help + " (" + key.toString(QKeySequence::NativeText) + ")");
  QWidget::addAction(action);
  return action;
}

void ListPanel::makeActions(QToolBar& bar) {
  addAction(bar, "add", tr("Add"), tr("Adds a row below"), Qt::CTRL | Qt::Key_Return,
            &ListPanel::add);
  addAction(bar, "remove", tr("Remove"), tr("Takes the selected rows out"),
            Qt::CTRL | Qt::Key_Delete, &ListPanel::remove);
  bar.addSeparator();
  addAction(bar, "up", tr("Up"), tr("Moves the selected rows up"), Qt::ALT | Qt::Key_Up,
            &ListPanel::moveUp);
  addAction(bar, "down", tr("Down"), tr("Moves the selected rows down"), Qt::ALT | Qt::Key_Down,
            &ListPanel::moveDown);
  if (!list_.hasLinks()) return;
  bar.addSeparator();
  addAction(bar, "link", tr("Link"),
            tr("Links the selected rows to the symbol that is selected on the stage. Rows can be "
               "dragged onto a symbol as well."),
            Qt::CTRL | Qt::Key_K, &ListPanel::linkToSelected);
  addAction(bar, "linkTo", tr("Link To…"),
            tr("Links the selected rows to a symbol that is chosen from a list"),
            Qt::CTRL | Qt::ALT | Qt::Key_K, &ListPanel::linkToChosen);
  addAction(bar, "unlink", tr("Unlink"), tr("Takes the link to a symbol away"), {},
            &ListPanel::unlink);
  addAction(bar, "showLinked", tr("Show on Stage"), tr("Selects the symbol of the row"),
            Qt::CTRL | Qt::SHIFT | Qt::Key_K, &ListPanel::showLinked);
}

std::vector<UUID> ListPanel::selectedRows() const {
  std::set<int> rows;
  for (const QModelIndex& index : view_->selectionModel()->selectedIndexes())
    rows.insert(index.row());
  std::vector<UUID> ids;
  for (int row : rows) ids.push_back(model_->idOf(row));
  return ids;
}

void ListPanel::updateActions() {
  const bool hasRows = view_->selectionModel()->hasSelection();
  const bool hasSymbol = plot_.selection().size() == 1;
  const QModelIndex current = view_->currentIndex();
  for (QAction* action : actions()) {
    const QString name = action->objectName();
    if (name == "add") continue;
    action->setEnabled(
        hasRows && (name != "link" || hasSymbol) &&
        (name != "showLinked" || (current.isValid() && model_->itemOf(current.row()) != nullptr)));
  }
}

void ListPanel::add() {
  const int row =
      view_->currentIndex().isValid() ? view_->currentIndex().row() + 1 : model_->rowCount();
  if (!model_->insertRows(row, 1)) return;
  const QModelIndex first = model_->index(row, 0);
  view_->setCurrentIndex(first);
  view_->edit(first);
}

void ListPanel::remove() { model_->removeAll(selectedRows()); }

void ListPanel::moveUp() { moveBy(-1); }
void ListPanel::moveDown() { moveBy(1); }

void ListPanel::moveBy(int places) {
  const std::vector<UUID> rows = selectedRows();
  if (rows.empty()) return;
  const auto first = list_.rowOf(plot_.project(), rows.front());
  const auto last = list_.rowOf(plot_.project(), rows.back());
  if (!first || !last) return;
  const int column = view_->currentIndex().column();
  if (!model_->moveAll(rows, places < 0 ? int(*first) - 1 : int(*last) + 2)) return;
  // What has moved stays selected.
  view_->clearSelection();
  for (const UUID& id : rows)
    if (const auto row = list_.rowOf(plot_.project(), id)) {
      const QModelIndex cell = model_->index(int(*row), column);
      view_->selectionModel()->select(cell, QItemSelectionModel::Select);
      view_->selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    }
}

void ListPanel::linkToSelected() {
  if (plot_.selection().size() == 1)
    link(plot_, {.list = &list_, .ids = selectedRows()}, *plot_.selection().begin());
}

void ListPanel::linkToChosen() {
  const QModelIndex current = view_->currentIndex();
  const PlotItem* linked = current.isValid() ? model_->itemOf(current.row()) : nullptr;
  ItemChooser chooser(plot_, linked != nullptr ? std::optional(linked->id) : std::nullopt, this);
  const std::vector<UUID> rows = selectedRows();
  if (chooser.exec() != QDialog::Accepted) return;
  if (const std::optional<UUID> item = chooser.item())
    link(plot_, {.list = &list_, .ids = rows}, *item);
}

void ListPanel::unlink() { link(plot_, {.list = &list_, .ids = selectedRows()}, std::nullopt); }

void ListPanel::showLinked() {
  const QModelIndex current = view_->currentIndex();
  const PlotItem* item = current.isValid() ? model_->itemOf(current.row()) : nullptr;
  if (item != nullptr) Q_EMIT itemAskedFor(item->id);
}

void ListPanel::copy() {
  const QModelIndexList cells = view_->selectionModel()->selectedIndexes();
  if (!cells.empty()) QGuiApplication::clipboard()->setText(model_->textOf(cells));
}

void ListPanel::paste() {
  const int leftOut = model_->paste(QGuiApplication::clipboard()->text(), view_->currentIndex());
  if (leftOut > 0)
    Q_EMIT said(tr("Cells that do not fit their column were left out: %1.").arg(leftOut));
}

void ListPanel::showCell(std::size_t row, std::string_view field) {
  int column = 0;
  for (std::size_t i = 0; i < list_.columns.size(); ++i)
    if (list_.columns[i].key == field) column = int(i);
  const QModelIndex cell = model_->index(int(row), column);
  if (!cell.isValid()) return;
  view_->setCurrentIndex(cell);
  view_->scrollTo(cell);
  view_->setFocus();
}

bool ListPanel::eventFilter(QObject* watched, QEvent* event) {
  const bool isOverride = event->type() == QEvent::ShortcutOverride;
  if (!isOverride && event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  auto& key = static_cast<QKeyEvent&>(*event);
  const bool isCopy = key.matches(QKeySequence::Copy);
  const bool isPaste = key.matches(QKeySequence::Paste);
  const bool isClear = key.matches(QKeySequence::Delete);
  // The same keys work on the canvas; in a table they are the table's.
  const bool isOfTable = key.matches(QKeySequence::SelectAll) || key.key() == Qt::Key_F2;
  if (isOverride && (isCopy || isPaste || isClear || isOfTable)) {
    event->accept();
    return true;
  }
  if (isOverride || (!isCopy && !isPaste && !isClear)) return QWidget::eventFilter(watched, event);
  if (isCopy) copy();
  if (isPaste) paste();
  if (isClear) model_->clear(view_->selectionModel()->selectedIndexes());
  return true;
}

}  // namespace korrin::editor
