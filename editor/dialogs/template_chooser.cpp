#include "editor/dialogs/template_chooser.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "editor/dialogs/plot_picture.h"
#include "editor/languages/library_texts.h"

namespace korrin::editor {
namespace {

constexpr int emptyStage = -1;
constexpr int idRole = Qt::UserRole;
constexpr int summaryRole = Qt::UserRole + 1;
constexpr QSize thumbnailSize(260, 180);

// The plot on paper, with labels that can be read at this size.
QPixmap thumbnailOf(const KorrinProject& project, qreal pixelRatio) {
  DrawingOptions options;
  options.labelScale = 1.6;
  options.patchNumbers = false;
  options.scaleBar = false;
  return pictureOf(project, thumbnailSize, pixelRatio, options);
}

}  // namespace

TemplateChooser::TemplateChooser(Environment environment, QWidget* parent)
    : QDialog(parent), environment_(std::move(environment)), list_(new QListWidget(this)) {
  setObjectName("templateChooser");
  setWindowTitle(tr("New Plot"));
  list_->setAccessibleName(tr("Templates"));
  list_->setViewMode(QListView::IconMode);
  list_->setIconSize(thumbnailSize);
  list_->setGridSize(thumbnailSize + QSize(28, 52));
  list_->setMovement(QListView::Static);
  list_->setResizeMode(QListView::Adjust);
  list_->setUniformItemSizes(true);

  auto* heading = new QLabel(tr("What does the new plot begin with?"), this);
  QFont font = heading->font();
  font.setPointSizeF(font.pointSizeF() * 1.3);
  heading->setFont(font);
  heading->setBuddy(list_);
  auto* summary = new QLabel(this);
  summary->setWordWrap(true);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
  QPushButton* create = buttons->addButton(tr("Create &Plot"), QDialogButtonBox::AcceptRole);
  create->setDefault(true);
  create->setObjectName("create");

  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(12);
  layout->setContentsMargins(18, 18, 18, 14);
  layout->addWidget(heading);
  layout->addWidget(list_, 1);
  layout->addWidget(summary);
  layout->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(list_, &QListWidget::itemActivated, this, &QDialog::accept);
  connect(list_, &QListWidget::currentItemChanged, summary, [summary](QListWidgetItem* item) {
    summary->setText(item != nullptr ? item->data(summaryRole).toString() : QString());
  });

  add(KorrinProject::newDocument(environment_), tr("Empty Stage"),
      tr("A stage of 12 m by 8 m with nothing on it."), emptyStage);
  for (const KorrinTemplate& one : KorrinTemplate::all())
    add(one.project, inUsersLanguage(title(one.id)), inUsersLanguage(korrin::summary(one.id)),
        int(one.id));
  list_->setCurrentRow(0);
  list_->setFocus();
  resize(3 * (thumbnailSize.width() + 28) + 80, 640);
}

void TemplateChooser::add(const KorrinProject& project, const QString& title,
                          const QString& summary, int id) {
  const QPixmap thumbnail = thumbnailOf(project, devicePixelRatioF());
  QIcon icon(thumbnail);
  icon.addPixmap(thumbnail, QIcon::Selected);  // Else the style would dye the paper.
  auto* item = new QListWidgetItem(icon, title, list_);
  item->setData(idRole, id);
  item->setData(summaryRole, summary);
  item->setToolTip(summary);
  item->setData(Qt::AccessibleDescriptionRole, summary);
}

KorrinProject TemplateChooser::project() const {
  const QListWidgetItem* item = list_->currentItem();
  const int id = item != nullptr ? item->data(idRole).toInt() : emptyStage;
  return id == emptyStage ? KorrinProject::newDocument(environment_)
                          : KorrinProject::template_(KorrinTemplateID(id), environment_);
}

}  // namespace korrin::editor
