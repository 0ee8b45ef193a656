#pragma once

// What changed since another file: the differences in sentences, as a crew says them.

#include <QDialog>
#include <QStringList>

#include "korrin/model/project.h"

namespace korrin::editor {

/// A sentence for each difference between two states of a plot.
QStringList changesBetween(const KorrinProject& before, const KorrinProject& after);

class ChangesDialog : public QDialog {
  Q_OBJECT

 public:
  /// `name` is that of the file that holds the earlier state.
  ChangesDialog(const QString& name, const QStringList& changes, QWidget* parent);
};

/// Asks for the other file and shows what changed since. Why it cannot be read is said instead.
void showChangesSinceAnotherFile(const KorrinProject& now, QWidget* window);

}  // namespace korrin::editor
