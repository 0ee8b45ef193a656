#include "editor/panels/details_panel.h"

#include <QGroupBox>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

#include "editor/panels/detail_fields.h"

namespace korrin::editor {

DetailsPanel::DetailsPanel(OpenPlot& plot, QWidget* parent) : QWidget(parent), plot_(plot) {
  auto* content = new QWidget;
  auto* column = new QVBoxLayout(content);
  column->setContentsMargins(6, 6, 6, 6);
  for (DetailSection& section : detailSections()) {
    std::vector<FormField> forms;
    for (const DetailField& field : section.fields) forms.push_back(field.form);
    auto* box = new QGroupBox(section.title, content);
    auto* form = new FieldForm(std::move(forms), box);
    auto* inside = new QVBoxLayout(box);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(form);
    column->addWidget(box);
    const std::size_t place = sections_.size();
    sections_.push_back({.fields = std::move(section.fields), .form = form});
    connect(form, &FieldForm::edited, this,
            [this, place](std::size_t field, const QVariant& value) {
              take(sections_[place].fields[field], value);
            });
  }
  column->addStretch(1);
  auto* area = new QScrollArea(this);
  area->setWidget(content);
  area->setWidgetResizable(true);
  area->setMinimumWidth(content->minimumSizeHint().width() +
                        style()->pixelMetric(QStyle::PM_ScrollBarExtent));
  area->setFrameShape(QFrame::NoFrame);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(area);
  // Metadata is named by no change set; to read these few fields again costs next to nothing.
  connect(&plot_, &OpenPlot::historyChanged, this, &DetailsPanel::refresh);
  connect(&plot_, &OpenPlot::replaced, this, &DetailsPanel::refresh);
  refresh();
}

DetailsPanel::~DetailsPanel() = default;

QWidget* DetailsPanel::editor(std::string_view key) const {
  for (const Section& section : sections_)
    for (std::size_t i = 0; i < section.fields.size(); ++i)
      if (section.fields[i].key == key) return section.form->editor(i);
  return nullptr;
}

void DetailsPanel::refresh() {
  if (plot_.isInGesture()) return;  // No gesture is about these.
  for (const Section& section : sections_)
    for (std::size_t i = 0; i < section.fields.size(); ++i)
      section.form->show(i, section.fields[i].read(plot_.project()));
}

void DetailsPanel::take(const DetailField& field, const QVariant& value) {
  plot_.perform(
      tr("Change %1").arg(field.form.label),
      field.write(plot_.project(), value, plot_.environment()),
      {.mergeKey =
           field.form.kind == FormField::Kind::number ? "details " + field.form.label : QString()});
  refresh();  // What was refused goes back to what it was.
}

}  // namespace korrin::editor
