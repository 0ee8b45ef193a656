#include "editor/panels/field_editors.h"

#include <QKeyEvent>
#include <QLocale>
#include <algorithm>

namespace korrin::editor {

NumberEdit::NumberEdit(Limits limits, QWidget* parent) : QLineEdit(parent), limits_(limits) {
  connect(this, &QLineEdit::editingFinished, this, &NumberEdit::finish);
}

void NumberEdit::showNumber(std::optional<double> number) {
  shown_ = number;
  setText(number ? textOf(*number) : QString());
}

// As many decimals as the number has, not as many as it may have.
QString NumberEdit::textOf(double number) const {
  QLocale plain = locale();
  plain.setNumberOptions(QLocale::OmitGroupSeparator);
  QString text = plain.toString(number, 'f', limits_.decimals);
  if (!text.contains(plain.decimalPoint())) return text;
  while (text.endsWith('0')) text.chop(1);
  if (text.endsWith(plain.decimalPoint())) text.chop(plain.decimalPoint().size());
  return text == "-0" ? "0" : text;
}

void NumberEdit::keyPressEvent(QKeyEvent* event) {
  const bool isUp = event->key() == Qt::Key_Up;
  if ((!isUp && event->key() != Qt::Key_Down) || !shown_) {
    QLineEdit::keyPressEvent(event);
    return;
  }
  const double next = *shown_ + (isUp ? limits_.step : -limits_.step);
  setText(textOf(std::clamp(next, limits_.minimum, limits_.maximum)));
  finish();
}

void NumberEdit::finish() {
  const QString typed = text().trimmed();
  // What was shown may have more decimals than its text, which is no edit.
  if (typed == (shown_ ? textOf(*shown_) : QString())) return;
  if (typed.isEmpty() && limits_.mayBeEmpty) {
    shown_.reset();
    Q_EMIT numberEdited(shown_);
    return;
  }
  bool isNumber = false;
  double number = locale().toDouble(typed, &isNumber);
  if (!isNumber) number = QLocale::c().toDouble(typed, &isNumber);
  if (!isNumber) {
    showNumber(shown_);
    return;
  }
  showNumber(std::clamp(number, limits_.minimum, limits_.maximum));
  Q_EMIT numberEdited(shown_);
}

void TextEdit::focusOutEvent(QFocusEvent* event) {
  QPlainTextEdit::focusOutEvent(event);
  Q_EMIT editingFinished();
}

}  // namespace korrin::editor
