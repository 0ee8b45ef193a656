#include "editor/panels/changes_panel.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "editor/plot/comparison.h"

namespace korrin::editor {

ChangesPanel::ChangesPanel(OpenPlot& plot, QWidget* parent)
    : QWidget(parent),
      plot_(plot),
      heading_(new QLabel(this)),
      list_(new QListWidget(this)),
      copy_(new QPushButton(tr("&Copy"), this)),
      end_(new QPushButton(tr("&Stop Comparing"), this)) {
  heading_->setTextFormat(Qt::PlainText);
  heading_->setWordWrap(true);
  list_->setAlternatingRowColors(true);
  list_->setUniformItemSizes(true);
  list_->setAccessibleName(tr("Changes"));
  auto* begin = new QPushButton(tr("Compare &With…"), this);
  auto* top = new QHBoxLayout;
  top->addWidget(heading_, 1);
  for (QPushButton* button : {begin, copy_, end_}) top->addWidget(button);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(6, 6, 6, 6);
  layout->addLayout(top);
  layout->addWidget(list_, 1);
  connect(begin, &QPushButton::clicked, this, &ChangesPanel::fileAskedFor);
  connect(copy_, &QPushButton::clicked, this, &ChangesPanel::copy);
  connect(end_, &QPushButton::clicked, &plot_.comparison(), &Comparison::end);
  connect(list_, &QListWidget::itemActivated, this, &ChangesPanel::jump);
  connect(&plot_.comparison(), &Comparison::changed, this, &ChangesPanel::fill);
  fill();
}

void ChangesPanel::fill() {
  Comparison& comparison = plot_.comparison();
  const int row = list_->currentRow();
  list_->clear();
  for (const Comparison::Change& change : comparison.changes()) list_->addItem(change.sentence);
  if (row < list_->count()) list_->setCurrentRow(row);
  if (!comparison.isOn())
    heading_->setText(tr("Nothing is compared. Choose an earlier state of this plot."));
  else if (list_->count() == 0)
    heading_->setText(tr("Nothing has changed since %1.").arg(comparison.name()));
  else
    heading_->setText(tr("What has changed since %1:").arg(comparison.name()));
  copy_->setEnabled(list_->count() > 0);
  end_->setEnabled(comparison.isOn());
}

void ChangesPanel::copy() {
  QStringList sentences;
  for (const Comparison::Change& change : plot_.comparison().changes())
    sentences += change.sentence;
  QGuiApplication::clipboard()->setText(sentences.join('\n'));
}

void ChangesPanel::jump() {
  const auto& changes = plot_.comparison().changes();
  const auto row = std::size_t(list_->currentRow());
  if (row < changes.size() && changes[row].item) Q_EMIT itemAskedFor(*changes[row].item);
}

}  // namespace korrin::editor
