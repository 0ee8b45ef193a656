#include "editor/panels/inspector.h"

#include <QLabel>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>

#include "korrin/session/item_edits.h"

#include "editor/files/file_questions.h"
#include "editor/panels/item_fields.h"
#include "editor/plot/qt_texts.h"

namespace korrin::editor {
namespace {

const std::vector<ItemField>& fields() {
  static const std::vector<ItemField> all = itemFields();
  return all;
}

std::size_t placeOf(std::string_view key) {
  const auto found = std::find_if(fields().begin(), fields().end(),
                                  [&](const ItemField& field) { return field.key == key; });
  return std::size_t(found - fields().begin());
}

std::vector<FormField> forms() {
  std::vector<FormField> all;
  for (const ItemField& field : fields()) all.push_back(field.form);
  return all;
}

}  // namespace

Inspector::Inspector(OpenPlot& plot, QWidget* parent)
    : QWidget(parent),
      plot_(plot),
      heading_(new QLabel(this)),
      hint_(new QLabel(tr("Select something on the stage to see its fields here."), this)),
      area_(new QScrollArea(this)),
      form_(new FieldForm(forms())) {
  heading_->setTextFormat(Qt::PlainText);
  QFont bold = heading_->font();
  bold.setBold(true);
  heading_->setFont(bold);
  heading_->setContentsMargins(10, 8, 10, 0);
  heading_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  hint_->setWordWrap(true);
  hint_->setAlignment(Qt::AlignTop);
  hint_->setContentsMargins(10, 12, 10, 0);
  hint_->setEnabled(false);
  area_->setWidget(form_);
  area_->setWidgetResizable(true);
  area_->setMinimumWidth(form_->minimumSizeHint().width() +
                         style()->pixelMetric(QStyle::PM_ScrollBarExtent));
  // The stage must not jump when a selection brings the fields up.
  setMinimumWidth(area_->minimumWidth());
  area_->setFrameShape(QFrame::NoFrame);
  area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(heading_);
  layout->addWidget(hint_, 1);
  layout->addWidget(area_, 1);
  connect(form_, &FieldForm::edited, this, &Inspector::take);
  connect(&plot_, &OpenPlot::selectionChanged, this, &Inspector::refresh);
  connect(&plot_, &OpenPlot::replaced, this, &Inspector::refresh);
  connect(&plot_, &OpenPlot::changed, this, [this](const ChangeSet& changes) {
    const bool concernsIt =
        changes.affectsDocumentStructure ||
        std::any_of(plot_.selection().begin(), plot_.selection().end(),
                    [&](const UUID& id) { return changes.changedItemIDs.contains(id); });
    if (concernsIt) refreshInTime();
  });
  connect(&plot_, &OpenPlot::historyChanged, this, [this] {
    if (isStale_ && !plot_.isInGesture()) refresh();
  });
  refresh();
}

QWidget* Inspector::editor(std::string_view key) const {
  const std::size_t place = placeOf(key);
  return place < fields().size() ? form_->editor(place) : nullptr;
}

// A drag of very many items is not held up by what nobody can read meanwhile.
void Inspector::refreshInTime() {
  constexpr std::size_t few = 20;
  isStale_ = plot_.isInGesture() && plot_.selection().size() > few;
  if (!isStale_) refresh();
}

void Inspector::refresh() {
  isStale_ = false;
  const std::vector<const PlotItem*> items = plot_.selectedItems();
  const KorrinProject& project = plot_.project();
  hint_->setVisible(items.empty());
  area_->setVisible(!items.empty());
  heading_->setVisible(!items.empty());
  if (items.empty()) return;
  const QString name = plain(toQString(items.front()->legendText()));
  heading_->setText(items.size() > 1 ? tr("%1 symbols").arg(items.size())
                    : name.isEmpty() ? tr("Symbol without a label")
                                     : name);
  QStringList layers;
  for (const PlotLayer& layer : project.layers) layers.append(plain(toQString(layer.name)));
  form_->setChoices(placeOf("layerID"), layers);

  const bool mayEdit = std::any_of(
      items.begin(), items.end(), [&](const PlotItem* item) { return project.canEditItem(*item); });
  for (std::size_t i = 0; i < fields().size(); ++i) {
    std::optional<QVariant> common = fields()[i].read(*items.front(), project);
    for (const PlotItem* item : items)
      if (common && fields()[i].read(*item, project) != *common) common.reset();
    form_->show(i, common);
    form_->editor(i)->setEnabled(mayEdit || fields()[i].key == "isLocked");
  }
  const bool hasRiser = std::any_of(items.begin(), items.end(), [](const PlotItem* item) {
    return item->kind == PlotItemKind::riser || item->riserHeightMillimeters;
  });
  form_->setFieldVisible(placeOf("riserHeightMillimeters"), hasRiser);
}

void Inspector::take(std::size_t place, const QVariant& value) {
  const ItemField& field = fields()[place];
  const KorrinProject& project = plot_.project();
  const auto command = field.key == "isLocked"
                           ? lockingCommand(project, plot_.selection(), value.toBool())
                           : changingCommand(project, plot_.selection(), [&](PlotItem& item) {
                               field.write(item, value, project);
                             });
  plot_.perform(tr("Change %1").arg(field.form.label), command,
                {.mergeKey = field.form.kind == FormField::Kind::number
                                 ? QStringLiteral("inspector %1").arg(place)
                                 : QString()});
  refresh();  // What was refused goes back to what it was.
}

}  // namespace korrin::editor
