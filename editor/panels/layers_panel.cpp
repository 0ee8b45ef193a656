#include "editor/panels/layers_panel.h"

#include <QAction>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "korrin/session/structural_edits.h"

#include "editor/files/file_questions.h"
#include "editor/plot/qt_texts.h"

namespace korrin::editor {
namespace {

enum Column { nameColumn, shownColumn, lockedColumn };

// Places in `layers`, the uppermost first; of equally high ones the later lies above.
std::vector<std::size_t> fromTheTop(const List<PlotLayer>& layers) {
  std::vector<std::size_t> places;
  for (std::size_t place = layers.size(); place-- > 0;) places.push_back(place);
  std::stable_sort(places.begin(), places.end(), [&](std::size_t a, std::size_t b) {
    return layers[a].zIndex > layers[b].zIndex;
  });
  return places;
}

}  // namespace

LayersPanel::LayersPanel(OpenPlot& plot, QWidget* parent)
    : QWidget(parent), plot_(plot), list_(new QTreeWidget(this)) {
  list_->setAccessibleName(tr("Layers"));
  list_->setHeaderLabels({tr("Layer"), tr("Shown"), tr("Locked")});
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->header()->setStretchLastSection(false);
  list_->header()->setSectionResizeMode(nameColumn, QHeaderView::Stretch);
  list_->header()->setSectionResizeMode(shownColumn, QHeaderView::ResizeToContents);
  list_->header()->setSectionResizeMode(lockedColumn, QHeaderView::ResizeToContents);
  list_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed);
  list_->installEventFilter(this);
  auto* bar = new QToolBar(this);
  makeActions(*bar);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(bar);
  layout->addWidget(list_);
  connect(list_, &QTreeWidget::itemChanged, this, &LayersPanel::take);
  connect(list_, &QTreeWidget::currentItemChanged, this, [this] {
    if (const auto layer = current()) plot_.setActiveLayer(*layer);
  });
  connect(&plot_, &OpenPlot::replaced, this, &LayersPanel::refresh);
  connect(&plot_, &OpenPlot::activeLayerChanged, this, &LayersPanel::refresh);
  connect(&plot_, &OpenPlot::changed, this, [this](const ChangeSet& changes) {
    if (changes.affectsDocumentStructure) refresh();
  });
  refresh();
}

// F2 renames the layer here, not the symbol on the canvas.
bool LayersPanel::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ShortcutOverride ||
      static_cast<QKeyEvent*>(event)->key() != Qt::Key_F2)
    return QWidget::eventFilter(watched, event);
  event->accept();
  return true;
}

void LayersPanel::makeActions(QToolBar& bar) {
  const auto action = [&](const char* name, const QString& text, const QString& help,
                          const QKeySequence& key, auto act) {
    QAction* made = bar.addAction(text, this, act);
    made->setObjectName(name);
    made->setToolTip(help);
    made->setShortcut(key);
    made->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    addAction(made);
  };
  action("add", tr("Add"), tr("Adds a layer above all others"), Qt::CTRL | Qt::Key_Return,
         [this] { add(); });
  action("remove", tr("Remove"), tr("Takes the layer out"), Qt::CTRL | Qt::Key_Delete,
         [this] { remove(); });
  bar.addSeparator();
  action("up", tr("Up"), tr("Moves the layer up"), Qt::ALT | Qt::Key_Up, [this] { moveBy(-1); });
  action("down", tr("Down"), tr("Moves the layer down"), Qt::ALT | Qt::Key_Down,
         [this] { moveBy(1); });
}

std::optional<UUID> LayersPanel::current() const {
  const QTreeWidgetItem* row = list_->currentItem();
  if (row == nullptr) return std::nullopt;
  return UUID::fromText(row->data(nameColumn, Qt::UserRole).toString().toStdString());
}

void LayersPanel::refresh() {
  const List<PlotLayer>& layers = plot_.project().layers;
  const std::optional<UUID> active = plot_.activeLayer();
  const QSignalBlocker quiet(list_);
  const std::vector<std::size_t> places = fromTheTop(layers);
  // Rows are kept, as this may be the answer to an edit of one of them.
  while (list_->topLevelItemCount() > int(places.size()))
    delete list_->takeTopLevelItem(list_->topLevelItemCount() - 1);
  for (std::size_t i = 0; i < places.size(); ++i) {
    const PlotLayer& layer = layers[places[i]];
    QTreeWidgetItem* row = list_->topLevelItem(int(i));
    if (row == nullptr) row = new QTreeWidgetItem(list_);
    const QString name = toQString(layer.name);
    row->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable |
                  Qt::ItemIsUserCheckable);
    row->setText(nameColumn, name);
    row->setData(nameColumn, Qt::UserRole, QString::fromStdString(layer.id.text()));
    row->setCheckState(shownColumn, layer.isVisible ? Qt::Checked : Qt::Unchecked);
    row->setCheckState(lockedColumn, layer.isLocked ? Qt::Checked : Qt::Unchecked);
    row->setData(shownColumn, Qt::AccessibleTextRole, tr("%1 is shown").arg(name));
    row->setData(lockedColumn, Qt::AccessibleTextRole, tr("%1 is locked").arg(name));
    const bool isActive = active == layer.id;
    QFont font = list_->font();
    font.setBold(isActive);
    row->setFont(nameColumn, font);
    row->setToolTip(nameColumn, isActive ? tr("New symbols go on this layer") : QString());
    if (isActive) list_->setCurrentItem(row);
  }
}

void LayersPanel::take(QTreeWidgetItem* row, int column) {
  const auto id = UUID::fromText(row->data(nameColumn, Qt::UserRole).toString().toStdString());
  List<PlotLayer> layers = plot_.project().layers;
  for (std::size_t place = 0; id && place < layers.size(); ++place) {
    if (layers[place].id != *id) continue;
    PlotLayer& layer = layers.edit(place);
    const bool isChecked = row->checkState(column) == Qt::Checked;
    if (column == shownColumn)
      layer.isVisible = isChecked;
    else if (column == lockedColumn)
      layer.isLocked = isChecked;
    else
      layer.name = toText(row->text(nameColumn));
    break;
  }
  if (layers == plot_.project().layers) return;
  const QString name = column == shownColumn    ? tr("Show or Hide Layer")
                       : column == lockedColumn ? tr("Lock or Unlock Layer")
                                                : tr("Rename Layer");
  if (!plot_.perform(name, DocumentCommand::replaceLayers(layers))) refresh();
}

void LayersPanel::add() {
  List<PlotLayer> layers = plot_.project().layers;
  std::int64_t top = -1;
  for (const PlotLayer& layer : layers) top = std::max(top, layer.zIndex);
  const UUID id = plot_.environment().makeUUID();
  layers.push_back({.id = id,
                    .name = toText(tr("Layer %1").arg(layers.size() + 1)),
                    .isVisible = true,
                    .isLocked = false,
                    .zIndex = top + 1});
  if (plot_.perform(tr("Add Layer"), DocumentCommand::replaceLayers(layers)))
    plot_.setActiveLayer(id);
}

void LayersPanel::remove() {
  const std::optional<UUID> doomed = current();
  const KorrinProject& project = plot_.project();
  if (!doomed) return;
  const auto used = std::count_if(project.items.begin(), project.items.end(),
                                  [&](const PlotItem& item) { return item.layerID == *doomed; });
  std::optional<UUID> heir;
  for (const PlotLayer& layer : project.layers)
    if (layer.id != *doomed && !layer.isLocked && !heir) heir = layer.id;
  if (!layerDeletingCommand(project, *doomed, heir) &&
      !layerDeletingCommand(project, *doomed, std::nullopt)) {
    Q_EMIT said(
        tr("The last layer, a locked one and one with locked symbols stay. Unlock them "
           "first."));
    return;
  }
  bool keepsItems = true;
  if (used > 0) {
    QMessageBox box(QMessageBox::Question, tr("Remove Layer"),
                    tr("Symbols stand on this layer: %1. What becomes of them?").arg(used),
                    QMessageBox::NoButton, this);
    box.setObjectName("removeLayer");
    QPushButton* keep = box.addButton(tr("&Move to Another Layer"), QMessageBox::AcceptRole);
    keep->setObjectName("keep");
    keep->setEnabled(heir.has_value());
    QPushButton* drop = box.addButton(tr("&Delete Them"), QMessageBox::DestructiveRole);
    drop->setObjectName("delete");
    box.setEscapeButton(box.addButton(QMessageBox::Cancel));
    box.exec();
    if (box.clickedButton() != keep && box.clickedButton() != drop) return;
    keepsItems = box.clickedButton() == keep;
  }
  plot_.perform(tr("Remove Layer"),
                layerDeletingCommand(project, *doomed, keepsItems ? heir : std::nullopt));
}

void LayersPanel::moveBy(int places) {
  const std::optional<UUID> moved = current();
  List<PlotLayer> layers = plot_.project().layers;
  std::vector<std::size_t> order = fromTheTop(layers);
  const auto at = std::find_if(order.begin(), order.end(),
                               [&](std::size_t place) { return moved == layers[place].id; });
  if (at == order.end()) return;
  const auto to = at - order.begin() + places;
  if (to < 0 || to >= std::ptrdiff_t(order.size())) return;
  std::swap(*at, order[std::size_t(to)]);
  // Heights are given anew from the bottom up, so that equal ones are told apart.
  for (std::size_t i = 0; i < order.size(); ++i)
    layers.edit(order[i]).zIndex = std::int64_t(order.size() - 1 - i);
  plot_.perform(places < 0 ? tr("Move Layer Up") : tr("Move Layer Down"),
                DocumentCommand::replaceLayers(layers));
}

}  // namespace korrin::editor
