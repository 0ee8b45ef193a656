#include "editor/dialogs/compare_dialog.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

#include "korrin/session/document_file.h"

#include "editor/files/file_questions.h"
#include "editor/files/paths.h"
#include "editor/plot/comparison.h"
#include "editor/plot/open_plot.h"

namespace korrin::editor {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("CompareDialog", text); }

// Why what the file holds cannot be compared.
QString refusalOf(const OpenOutcome& outcome) {
  if (const auto* unsafe = std::get_if<UnsafeDocument>(&outcome))
    return QString::fromUtf8(unsafe->error.what());
  if (const auto* unreadable = std::get_if<UnreadableDocument>(&outcome))
    return QString::fromUtf8(unreadable->error.what());
  return tr("It was made by a newer version of this program.");
}

}  // namespace

bool compareWith(OpenPlot& plot, const QString& path, QWidget* window) {
  const QString name = plain(QFileInfo(path).fileName());
  QString refusal;
  try {
    OpenOutcome outcome = DocumentFile(toPath(path)).open();
    if (auto* opened = std::get_if<OpenedDocument>(&outcome)) {
      plot.comparison().begin(name, std::move(opened->project));
      return true;
    }
    refusal = refusalOf(outcome);
  } catch (const FileError& error) {
    refusal = QString::fromUtf8(error.what());
  }
  QMessageBox box(QMessageBox::Warning, tr("Compare With"),
                  tr("%1 cannot be compared. %2").arg(name, plain(refusal)), QMessageBox::Ok,
                  window);
  box.setObjectName("cannotCompare");
  box.setTextFormat(Qt::PlainText);
  box.exec();
  return false;
}

bool askToCompare(OpenPlot& plot, QWidget* window) {
  const QString folder =
      plot.file() != nullptr ? QFileInfo(pathText(plot.file()->path())).absolutePath() : QString();
  const QString path = QFileDialog::getOpenFileName(window, tr("Compare With"), folder,
                                                    tr("Plots (*.json);;All (*)"));
  return !path.isEmpty() && compareWith(plot, path, window);
}

}  // namespace korrin::editor
