#include "editor/panels/findings_panel.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QStyle>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "editor/files/file_questions.h"
#include "editor/languages/library_texts.h"
#include "editor/panels/finding_names.h"
#include "editor/plot/plot_artwork.h"
#include "editor/plot/qt_texts.h"

namespace korrin::editor {
namespace {

// Long enough that a drag does not inspect the plot at each step.
constexpr int delay = 200;

QStyle::StandardPixmap iconOf(PreflightSeverity severity) {
  switch (severity) {
    case PreflightSeverity::error:
      return QStyle::SP_MessageBoxCritical;
    case PreflightSeverity::warning:
      return QStyle::SP_MessageBoxWarning;
    case PreflightSeverity::information:
      return QStyle::SP_MessageBoxInformation;
  }
  return QStyle::SP_MessageBoxInformation;
}

QString nameOf(PreflightSeverity severity) {
  switch (severity) {
    case PreflightSeverity::error:
      return FindingsPanel::tr("Error");
    case PreflightSeverity::warning:
      return FindingsPanel::tr("Warning");
    case PreflightSeverity::information:
      return FindingsPanel::tr("Note");
  }
  return {};
}

}  // namespace

FindingsPanel::FindingsPanel(OpenPlot& plot, QWidget* parent)
    : QWidget(parent),
      plot_(plot),
      waivers_(new PlotWaivers(plot, this)),
      list_(new QTreeWidget(this)),
      summary_(new QLabel(this)),
      preview_(new QLabel(this)),
      jump_(new QPushButton(tr("&Show"), this)),
      fix_(new QPushButton(tr("&Fix"), this)),
      fixMenu_(new QMenu(this)),
      waive_(new QPushButton(this)),
      showsWaived_(new QCheckBox(tr("Accepted ones too"), this)) {
  build();
  timer_.setSingleShot(true);
  timer_.setInterval(delay);
  // A pause in the middle of a drag is no reason to hold it up.
  connect(&timer_, &QTimer::timeout, this, [this] { plot_.isInGesture() ? later() : refresh(); });
  connect(&plot_, &OpenPlot::changed, this, &FindingsPanel::later);
  connect(&plot_, &OpenPlot::replaced, this, &FindingsPanel::later);
  // A file has come or gone.
  connect(&plot_.artwork(), &PlotArtwork::arrived, this, &FindingsPanel::later);
  connect(waivers_, &PlotWaivers::changed, this, &FindingsPanel::later);
  connect(waivers_, &PlotWaivers::failed, this, &FindingsPanel::said);
  connect(list_, &QTreeWidget::itemActivated, this, &FindingsPanel::jump);
  connect(list_, &QTreeWidget::currentItemChanged, this, &FindingsPanel::updateButtons);
  connect(jump_, &QPushButton::clicked, this, &FindingsPanel::jump);
  connect(fixMenu_, &QMenu::aboutToShow, this, &FindingsPanel::listFixes);
  connect(fixMenu_, &QMenu::hovered, preview_,
          [this](QAction* action) { preview_->setText(action->toolTip()); });
  connect(fixMenu_, &QMenu::aboutToHide, this, &FindingsPanel::updateButtons);
  connect(waive_, &QPushButton::clicked, this, [this] {
    const Finding* finding = current();
    if (finding != nullptr) finding->waiver ? revoke() : waive();
  });
  connect(showsWaived_, &QCheckBox::toggled, this, &FindingsPanel::fill);
  refresh();
}

void FindingsPanel::build() {
  list_->setAccessibleName(tr("Findings"));
  list_->setHeaderLabels({tr("Weight"), tr("Finding"), tr("Where"), tr("What to do")});
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->setAlternatingRowColors(true);
  list_->setAllColumnsShowFocus(true);
  list_->setColumnWidth(0, 110);
  list_->setColumnWidth(1, 260);
  list_->setColumnWidth(2, 220);
  list_->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(list_, &QWidget::customContextMenuRequested, this, [this](QPoint place) {
    if (current() != nullptr) fixMenu_->popup(list_->viewport()->mapToGlobal(place));
  });
  fix_->setMenu(fixMenu_);
  fixMenu_->setToolTipsVisible(true);
  preview_->setTextFormat(Qt::PlainText);
  preview_->setWordWrap(true);
  preview_->setMinimumWidth(120);

  auto* top = new QHBoxLayout;
  top->addWidget(summary_, 1);
  top->addWidget(showsWaived_);
  auto* bottom = new QHBoxLayout;
  bottom->addWidget(preview_, 1);
  bottom->addWidget(jump_);
  bottom->addWidget(fix_);
  bottom->addWidget(waive_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(6, 6, 6, 6);
  layout->addLayout(top);
  layout->addWidget(list_, 1);
  layout->addLayout(bottom);
}

void FindingsPanel::later() { timer_.start(); }

void FindingsPanel::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (timer_.isActive()) refresh();
}

int FindingsPanel::openCount() const {
  int count = 0;
  for (const Finding& finding : findings_) count += finding.waiver ? 0 : 1;
  return count;
}

void FindingsPanel::refresh() {
  timer_.stop();
  findings_ = findingsOf(plot_.project(), waivers_->list(), plot_.artwork().missing());
  fill();
  Q_EMIT openCountChanged(openCount());
}

void FindingsPanel::fill() {
  const Finding* before = current();
  const QString id = before != nullptr ? toQString(before->id) : QString();
  const QSignalBlocker quiet(list_);
  list_->clear();
  for (std::size_t i = 0; i < findings_.size(); ++i) {
    const Finding& finding = findings_[i];
    if (finding.waiver && !showsWaived_->isChecked()) continue;
    const QString detail = finding.waiver
                               ? tr("Accepted: %1").arg(toQString(finding.waiver->reason))
                               : toQString(finding.detail);
    auto* row =
        new QTreeWidgetItem(list_, {nameOf(finding.severity), plain(toQString(finding.title)),
                                    subjectText(finding, plot_.project()), plain(detail)});
    row->setIcon(0, style()->standardIcon(iconOf(finding.severity)));
    row->setToolTip(2, row->text(2));
    row->setToolTip(3, plain(detail));
    row->setData(0, Qt::UserRole, qulonglong(i));
    if (finding.waiver)
      for (int column = 0; column < 4; ++column)
        row->setForeground(column, palette().brush(QPalette::Disabled, QPalette::Text));
    if (toQString(finding.id) == id) list_->setCurrentItem(row);
  }
  const int open = openCount();
  summary_->setText(open == 0 ? tr("Nothing to mend.") : tr("Open findings: %1").arg(open));
  updateButtons();
}

const Finding* FindingsPanel::current() const {
  const QTreeWidgetItem* row = list_->currentItem();
  if (row == nullptr) return nullptr;
  const qulonglong place = row->data(0, Qt::UserRole).toULongLong();
  return place < findings_.size() ? &findings_[place] : nullptr;
}

void FindingsPanel::updateButtons() {
  const Finding* finding = current();
  jump_->setEnabled(finding != nullptr && (!finding->items.empty() || finding->subject));
  fix_->setEnabled(finding != nullptr);
  waive_->setEnabled(finding != nullptr);
  waive_->setText(finding != nullptr && finding->waiver ? tr("&Open Again") : tr("&Accept…"));
  preview_->setText(finding != nullptr ? plain(toQString(finding->detail)) : QString());
}

void FindingsPanel::listFixes() {
  fixMenu_->clear();
  if (timer_.isActive()) refresh();  // A fix is meant for the plot as it stands.
  const Finding* finding = current();
  if (finding == nullptr) return;
  for (const Fix& fix : fixesOf(*finding, plot_.project(), plot_.environment())) {
    const QString title = inUsersLanguage(toQString(fix.title));
    QAction* action = fixMenu_->addAction(QString(title).replace('&', "&&"));
    action->setToolTip(title);
    const DocumentCommand command = fix.command;
    connect(action, &QAction::triggered, this, [this, title, command] {
      plot_.perform(title, command);
      refresh();
    });
  }
  if (fixMenu_->isEmpty())
    fixMenu_->addAction(tr("Only you can know what is right here"))->setEnabled(false);
}

void FindingsPanel::jump() {
  if (const Finding* finding = current()) Q_EMIT spotAskedFor(*finding);
}

void FindingsPanel::waive() {
  const Text id = current()->id;
  QInputDialog dialog(this);
  dialog.setObjectName("waiverReason");
  dialog.setWindowTitle(tr("Accept a Finding"));
  dialog.setLabelText(tr("Why may it stay? The reason is kept beside the plot."));
  if (dialog.exec() != QDialog::Accepted) return;
  const QString reason = dialog.textValue().trimmed();
  if (reason.isEmpty()) {
    Q_EMIT said(tr("A finding is accepted for a reason. Nothing was changed."));
    return;
  }
  waivers_->waive(id, reason);
  refresh();
}

void FindingsPanel::revoke() {
  const Text id = current()->id;
  waivers_->revoke(id);
  refresh();
}

}  // namespace korrin::editor
