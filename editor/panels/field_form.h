#pragma once

// A form of labelled fields, made from a table: it shows values and says which one the user
// changed. What the fields mean is the affair of whoever makes it.

#include <QStringList>
#include <QVariant>
#include <QWidget>
#include <optional>
#include <vector>

namespace korrin::editor {

/// One field of a form.
struct FormField {
  enum class Kind { line, text, number, check, choice, date, colour };

  QString label;
  Kind kind = Kind::line;
  QString unit = {};      ///< Of a number, such as "mm".
  double minimum = -1e9;  ///< Of a number.
  double maximum = 1e9;
  double step = 100;         ///< Of a number: what an arrow key adds.
  int decimals = 0;          ///< Of a number.
  QStringList choices = {};  ///< Of a choice; its value is the place in this list.
  bool mayBeAbsent = false;  ///< Whether a number, date or colour may be left empty.
};

class FieldForm : public QWidget {
  Q_OBJECT

 public:
  explicit FieldForm(std::vector<FormField> fields, QWidget* parent = nullptr);

  std::size_t size() const { return fields_.size(); }
  /// The widget behind a field.
  QWidget* editor(std::size_t field) const { return editors_[field]; }

  /// Shows a value: a text, a number, a truth value, a choice's place or a `QDateTime`; an invalid
  /// one where it is absent. No value at all: it differs among what is shown. A field in which the
  /// user writes is left alone.
  void show(std::size_t field, const std::optional<QVariant>& value);
  void setFieldVisible(std::size_t field, bool isVisible);
  void setChoices(std::size_t field, const QStringList& choices);

 Q_SIGNALS:
  /// The user gave a field another value; an invalid one where it was left empty.
  void edited(std::size_t field, const QVariant& value);

 private:
  QWidget* makeEditor(std::size_t place);
  void report(std::size_t field, const QVariant& value);

  std::vector<FormField> fields_;
  std::vector<QWidget*> editors_;
  std::vector<std::optional<QVariant>> shown_;
};

}  // namespace korrin::editor
