#include "editor/panels/field_form.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDateTime>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPainter>
#include <QToolButton>

#include "editor/panels/field_editors.h"

namespace korrin::editor {
namespace {

constexpr auto dateFormat = "yyyy-MM-dd HH:mm";

void setText(QLineEdit& line, const std::optional<QVariant>& value) {
  const QString text = value ? value->toString() : QString();
  if (line.text() == text) return;
  line.setText(text);
  line.setCursorPosition(0);
}

// The colour, or a frame where there is none.
QIcon swatchOf(const QColor& colour) {
  QPixmap pixmap(32, 32);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setPen(QPen(Qt::gray, 2));
  if (colour.isValid()) painter.setBrush(colour);
  painter.drawRoundedRect(4, 4, 24, 24, 4, 4);
  return pixmap;
}

}  // namespace

FieldForm::FieldForm(std::vector<FormField> fields, QWidget* parent)
    : QWidget(parent), fields_(std::move(fields)), shown_(fields_.size()) {
  auto* layout = new QFormLayout(this);
  layout->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  layout->setContentsMargins(10, 8, 10, 8);
  for (std::size_t place = 0; place < fields_.size(); ++place) {
    QWidget* editor = makeEditor(place);
    editor->setAccessibleName(fields_[place].label);
    editors_.push_back(editor);
    if (fields_[place].kind == FormField::Kind::check)
      layout->addRow(QString(), editor);
    else
      layout->addRow(fields_[place].unit.isEmpty()
                         ? fields_[place].label
                         : tr("%1 (%2)").arg(fields_[place].label, fields_[place].unit),
                     editor);
  }
}

QWidget* FieldForm::makeEditor(std::size_t place) {
  const FormField& field = fields_[place];
  switch (field.kind) {
    case FormField::Kind::text: {
      auto* text = new TextEdit(this);
      text->setTabChangesFocus(true);
      text->setMaximumHeight(90);
      connect(text, &TextEdit::editingFinished, this,
              [=, this] { report(place, text->toPlainText()); });
      return text;
    }
    case FormField::Kind::number: {
      auto* number = new NumberEdit({.minimum = field.minimum,
                                     .maximum = field.maximum,
                                     .step = field.step,
                                     .decimals = field.decimals,
                                     .mayBeEmpty = field.mayBeAbsent},
                                    this);
      connect(number, &NumberEdit::numberEdited, this, [=, this](std::optional<double> value) {
        report(place, value ? QVariant(*value) : QVariant());
      });
      return number;
    }
    case FormField::Kind::check: {
      auto* check = new QCheckBox(field.label, this);
      connect(check, &QCheckBox::clicked, this, [=, this](bool isChecked) {
        check->setTristate(false);
        report(place, isChecked);
      });
      return check;
    }
    case FormField::Kind::choice: {
      auto* choice = new QComboBox(this);
      choice->addItems(field.choices);
      connect(choice, &QComboBox::activated, this, [=, this](int index) { report(place, index); });
      return choice;
    }
    case FormField::Kind::colour: {
      auto* line = new QLineEdit(this);
      QAction* pick = line->addAction(swatchOf({}), QLineEdit::TrailingPosition);
      pick->setToolTip(tr("Choose a colour"));
      connect(line, &QLineEdit::textChanged, pick,
              [pick](const QString& text) { pick->setIcon(swatchOf(QColor(text))); });
      connect(pick, &QAction::triggered, this, [=, this] {
        const QColor colour = QColorDialog::getColor(QColor(line->text()), this, field.label);
        if (colour.isValid()) report(place, colour.name());
      });
      connect(line, &QLineEdit::editingFinished, this, [=, this] {
        report(place, line->text().isEmpty() ? QVariant() : QVariant(line->text()));
      });
      return line;
    }
    case FormField::Kind::date:
    case FormField::Kind::line:
      break;
  }
  auto* line = new QLineEdit(this);
  const bool isDate = field.kind == FormField::Kind::date;
  connect(line, &QLineEdit::editingFinished, this, [=, this] {
    if (!isDate || line->text().isEmpty()) {
      report(place, isDate ? QVariant() : QVariant(line->text()));
      return;
    }
    QDateTime date = QDateTime::fromString(line->text().trimmed(), dateFormat);
    if (!date.isValid())
      date = QDate::fromString(line->text().trimmed(), "yyyy-MM-dd").startOfDay();
    if (date.isValid())
      report(place, date);
    else if (shown_[place])  // What is no date goes back to what it was.
      show(place, shown_[place]);
  });
  return line;
}

void FieldForm::report(std::size_t field, const QVariant& value) {
  if (shown_[field] ? *shown_[field] == value : !value.isValid() || value.toString().isEmpty())
    return;
  shown_[field] = value;
  Q_EMIT edited(field, value);
}

void FieldForm::show(std::size_t field, const std::optional<QVariant>& value) {
  QWidget* editor = editors_[field];
  const bool isSame = shown_[field] == value;
  shown_[field] = value;
  if (isSame && editor->hasFocus()) return;  // The user is about to change it.
  if (auto* text = qobject_cast<TextEdit*>(editor)) {
    text->setPlaceholderText(value ? QString() : tr("different"));
    text->setPlainText(value ? value->toString() : QString());
  } else if (auto* number = qobject_cast<NumberEdit*>(editor)) {
    number->setPlaceholderText(value ? QString() : tr("different"));
    number->showNumber(value && value->isValid() ? std::optional(value->toDouble()) : std::nullopt);
  } else if (auto* check = qobject_cast<QCheckBox*>(editor)) {
    check->setTristate(!value);
    check->setCheckState(!value            ? Qt::PartiallyChecked
                         : value->toBool() ? Qt::Checked
                                           : Qt::Unchecked);
  } else if (auto* choice = qobject_cast<QComboBox*>(editor)) {
    choice->setCurrentIndex(value ? value->toInt() : -1);
    choice->setPlaceholderText(value ? QString() : tr("different"));
  } else if (auto* line = qobject_cast<QLineEdit*>(editor)) {
    line->setPlaceholderText(!value                                         ? tr("different")
                             : fields_[field].kind == FormField::Kind::date ? tr("YYYY-MM-DD hh:mm")
                                                                            : QString());
    if (fields_[field].kind == FormField::Kind::date && value && value->isValid())
      setText(*line, value->toDateTime().toString(dateFormat));
    else
      setText(*line, value);
  }
}

void FieldForm::setFieldVisible(std::size_t field, bool isVisible) {
  static_cast<QFormLayout*>(layout())->setRowVisible(int(field), isVisible);
}

void FieldForm::setChoices(std::size_t field, const QStringList& choices) {
  auto* choice = qobject_cast<QComboBox*>(editors_[field]);
  if (choice == nullptr || fields_[field].choices == choices) return;
  fields_[field].choices = choices;
  choice->clear();
  choice->addItems(choices);
  shown_[field].reset();
}

}  // namespace korrin::editor
