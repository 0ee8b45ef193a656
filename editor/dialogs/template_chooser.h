#pragma once

// What a new plot begins with: an empty stage or one of the templates, each shown as a picture.

#include <QDialog>

#include "korrin/templates/korrin_template.h"

class QListWidget;

namespace korrin::editor {

class TemplateChooser : public QDialog {
  Q_OBJECT

 public:
  explicit TemplateChooser(Environment environment, QWidget* parent = nullptr);

  /// A fresh plot as chosen.
  KorrinProject project() const;

 private:
  void add(const KorrinProject& project, const QString& title, const QString& summary, int id);

  Environment environment_;
  QListWidget* list_;
};

}  // namespace korrin::editor
