#include "editor/panels/item_chooser.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "editor/panels/finding_names.h"

namespace korrin::editor {

ItemChooser::ItemChooser(const OpenPlot& plot, const std::optional<UUID>& present, QWidget* parent)
    : QDialog(parent), search_(new QLineEdit(this)), list_(new QListWidget(this)) {
  setObjectName("itemChooser");
  setWindowTitle(tr("Link to a Symbol"));
  resize(380, 420);
  search_->setPlaceholderText(tr("Search symbols"));
  search_->setAccessibleName(search_->placeholderText());
  search_->setClearButtonEnabled(true);
  search_->installEventFilter(this);
  list_->setAccessibleName(tr("Symbols"));
  list_->setAlternatingRowColors(true);
  for (const PlotItem& item : plot.project().items) {
    auto* row = new QListWidgetItem(nameOf(item), list_);
    row->setData(Qt::UserRole, QString::fromStdString(item.id.text()));
    if (present && item.id == *present) list_->setCurrentItem(row);
  }
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
  choose_ = buttons->addButton(tr("&Link"), QDialogButtonBox::AcceptRole);
  choose_->setDefault(true);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(search_);
  layout->addWidget(list_, 1);
  layout->addWidget(buttons);
  connect(search_, &QLineEdit::textChanged, this, &ItemChooser::filter);
  connect(list_, &QListWidget::itemActivated, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  if (list_->currentRow() < 0) list_->setCurrentRow(0);
  choose_->setEnabled(list_->currentRow() >= 0);
}

void ItemChooser::filter(const QString& words) {
  const QStringList wanted = words.split(' ', Qt::SkipEmptyParts);
  int first = -1;
  for (int i = 0; i < list_->count(); ++i) {
    bool fits = true;
    for (const QString& word : wanted)
      fits &= list_->item(i)->text().contains(word, Qt::CaseInsensitive);
    list_->item(i)->setHidden(!fits);
    if (fits && first < 0) first = i;
  }
  QListWidgetItem* current = list_->currentItem();
  if (current == nullptr || current->isHidden()) list_->setCurrentRow(first);
  choose_->setEnabled(first >= 0);
}

std::optional<UUID> ItemChooser::item() const {
  const QListWidgetItem* row = list_->currentItem();
  if (row == nullptr || row->isHidden()) return std::nullopt;
  return UUID::fromText(row->data(Qt::UserRole).toString().toStdString());
}

// Arrows go through the list while words are typed.
bool ItemChooser::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
        key == Qt::Key_PageDown) {
      QCoreApplication::sendEvent(list_, event);
      return true;
    }
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace korrin::editor
