#pragma once

// Editors for single fields of a form, where Qt's own do not do: numbers that may be absent or
// differ, and texts of many lines.

#include <QLineEdit>
#include <QPlainTextEdit>
#include <optional>

namespace korrin::editor {

/// A number that can be empty. Arrow keys go up and down by a step.
class NumberEdit : public QLineEdit {
  Q_OBJECT

 public:
  struct Limits {
    double minimum;
    double maximum;
    double step;
    int decimals;     ///< The most that are shown.
    bool mayBeEmpty;  ///< Whether the user may leave it empty.
  };

  explicit NumberEdit(Limits limits, QWidget* parent = nullptr);

  /// Shows a number, or nothing.
  void showNumber(std::optional<double> number);

 Q_SIGNALS:
  /// The user is done with a number, which lies within the limits; none where it was left empty.
  void numberEdited(std::optional<double> number);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QString textOf(double number) const;
  void finish();

  Limits limits_;
  std::optional<double> shown_;
};

/// A text of many lines that is done when it is left.
class TextEdit : public QPlainTextEdit {
  Q_OBJECT

 public:
  using QPlainTextEdit::QPlainTextEdit;

 Q_SIGNALS:
  void editingFinished();

 protected:
  void focusOutEvent(QFocusEvent* event) override;
};

}  // namespace korrin::editor
