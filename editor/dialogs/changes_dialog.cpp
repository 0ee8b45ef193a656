#include "editor/dialogs/changes_dialog.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "korrin/review/difference.h"
#include "korrin/session/document_file.h"

#include "editor/files/paths.h"

namespace korrin::editor {
namespace {

// Nobody reads more, and a hostile file may differ in a million places.
constexpr qsizetype mostChanges = 5'000;

struct Earlier {
  const KorrinProject* project;
  QString refusal;
};

Earlier earlierOf(const OpenOutcome& outcome) {
  if (const auto* opened = std::get_if<OpenedDocument>(&outcome)) return {&opened->project, {}};
  if (const auto* unsafe = std::get_if<UnsafeDocument>(&outcome))
    return {nullptr, QString::fromUtf8(unsafe->error.what())};
  if (const auto* unreadable = std::get_if<UnreadableDocument>(&outcome))
    return {nullptr, QString::fromUtf8(unreadable->error.what())};
  return {nullptr, ChangesDialog::tr("It was made by a newer version of this program.")};
}

}  // namespace

QStringList changesBetween(const KorrinProject& before, const KorrinProject& after) {
  QStringList sentences;
  const DifferenceSentences sentenceOf(before, after);
  for (const Difference& difference : differences(before, after)) {
    if (sentences.size() == mostChanges) {
      sentences += ChangesDialog::tr("and more");
      break;
    }
    sentences += QString::fromStdString(sentenceOf(difference));
  }
  return sentences;
}

ChangesDialog::ChangesDialog(const QString& name, const QStringList& changes, QWidget* parent)
    : QDialog(parent) {
  setWindowTitle(tr("Changes"));
  resize(680, 460);
  auto* heading = new QLabel(changes.isEmpty() ? tr("Nothing has changed since %1.").arg(name)
                                               : tr("What has changed since %1:").arg(name));
  heading->setTextFormat(Qt::PlainText);
  heading->setWordWrap(true);
  auto* list = new QListWidget;
  list->addItems(changes);
  list->setWordWrap(true);
  list->setAlternatingRowColors(true);
  list->setAccessibleName(windowTitle());
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  auto* copy = buttons->addButton(tr("&Copy"), QDialogButtonBox::ActionRole);
  copy->setEnabled(!changes.isEmpty());
  connect(copy, &QPushButton::clicked, this,
          [changes] { QGuiApplication::clipboard()->setText(changes.join('\n')); });
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(16, 16, 16, 16);
  layout->setSpacing(12);
  layout->addWidget(heading);
  layout->addWidget(list);
  layout->addWidget(buttons);
}

void showChangesSinceAnotherFile(const KorrinProject& now, QWidget* window) {
  const QString path = QFileDialog::getOpenFileName(window, ChangesDialog::tr("Compare With"), {},
                                                    ChangesDialog::tr("Plots (*.json);;All (*)"));
  if (path.isEmpty()) return;
  const QString name = QFileInfo(path).fileName();
  QString refusal;
  try {
    const OpenOutcome outcome = DocumentFile(toPath(path)).open();
    const Earlier earlier = earlierOf(outcome);
    refusal = earlier.refusal;
    if (earlier.project != nullptr)
      ChangesDialog(name, changesBetween(*earlier.project, now), window).exec();
  } catch (const FileError& error) {
    refusal = QString::fromUtf8(error.what());
  }
  if (refusal.isEmpty()) return;
  QMessageBox box(QMessageBox::Warning, ChangesDialog::tr("Compare With"),
                  ChangesDialog::tr("%1 cannot be compared. %2").arg(name, refusal),
                  QMessageBox::Ok, window);
  box.setTextFormat(Qt::PlainText);
  box.exec();
}

}  // namespace korrin::editor
