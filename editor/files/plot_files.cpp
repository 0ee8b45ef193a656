#include "editor/files/plot_files.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>
#include <QWidget>
#include <utility>

#include "korrin/coding/json.h"
#include "korrin/validation/document_validation_error.h"

#include "editor/dialogs/template_chooser.h"
#include "editor/files/file_questions.h"
#include "editor/files/paths.h"
#include "editor/files/recent_files.h"
#include "editor/files/typed_text.h"
#include "editor/plot/plot_artwork.h"
#include "editor/plot/qt_texts.h"

namespace korrin::editor {
namespace {

constexpr auto suffix = "korrin.json";

// Whether the file holds a plot that this program must not replace, whoever says so.
std::optional<DocumentVersions> newerVersionsIn(const std::filesystem::path& path) {
  try {
    DocumentFile file(path);
    const OpenOutcome present = file.open();
    if (const auto* newer = std::get_if<NewerDocument>(&present)) return newer->versions;
  } catch (const FileError&) {
    // What cannot be read is no newer plot that anybody knows of.
  }
  return std::nullopt;
}

}  // namespace

PlotFiles::PlotFiles(OpenPlot& plot, QWidget* window, const QString& folder)
    : QObject(window),
      plot_(plot),
      window_(window),
      safetyCopy_(new SafetyCopy(plot, folder, this)) {
  plot_.artwork().setSharedFolder(toPath(folder + "/assets"));
  connect(safetyCopy_, &SafetyCopy::failed, this, [this](const QString& reason) {
    Q_EMIT said(
        tr("A crash would lose what is not saved, as no copy can be kept (%1). Save the plot, "
           "in another folder if need be.")
            .arg(plain(reason)));
  });
}

QString PlotFiles::defaultFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + "/unsaved";
}

QString PlotFiles::name() const {
  if (plot_.file() != nullptr) return QFileInfo(pathText(plot_.file()->path())).fileName();
  const QString title = toQString(plot_.project().metadata.title);
  return title.isEmpty() ? tr("Untitled") : title;
}

bool PlotFiles::begin() {
  if (!mayForget()) return false;
  TemplateChooser chooser(plot_.environment(), window_);
  if (chooser.exec() != QDialog::Accepted) return false;
  dropped_ = {};
  plot_.begin(chooser.project());
  return true;
}

bool PlotFiles::openAnother() {
  const QString folder = plot_.file() != nullptr
                             ? QFileInfo(pathText(plot_.file()->path())).absolutePath()
                             : QString();
  const QString path = QFileDialog::getOpenFileName(window_, tr("Open a Plot"), folder,
                                                    tr("Stage plots (*.json);;All files (*)"));
  return !path.isEmpty() && open(path);
}

bool PlotFiles::open(const QString& path) {
  if (!mayForget()) return false;
  const std::filesystem::path place = toPath(QFileInfo(path).absoluteFilePath());
  const bool isElsewhere = safetyCopy_->isOpenElsewhere(place);
  if (isElsewhere && !askToOpenTwice(window_, path)) return false;

  DocumentFile file(place);
  std::optional<OpenOutcome> outcome;
  QString failure;
  try {
    outcome = file.open();
  } catch (const FileError& error) {
    failure = sentenceOf(error.what());
  }
  if (outcome)
    if (const auto* newer = std::get_if<NewerDocument>(&*outcome)) {
      tellNewer(window_, path, newer->versions);
      return false;
    }

  auto* opened = outcome ? std::get_if<OpenedDocument>(&*outcome) : nullptr;
  std::optional<Recovery> recovery;
  if (!isElsewhere) recovery = recoveryOf(place);
  if (recovery) {
    const RecoveryAnswer answer =
        askAboutRecovery(window_, QFileInfo(path).fileName(), recovery->notedAt);
    if (answer == RecoveryAnswer::cancel) return false;
    if (answer == RecoveryAnswer::discard) {
      recovery.reset();
      try {
        discardRecovery(place);
      } catch (const FileError& error) {
        Q_EMIT said(sentenceOf(error.what()));
      }
    }
  }
  if (opened != nullptr) {
    dropped_ = std::move(opened->unknownKeys);
    plot_.begin(std::move(opened->project), std::move(file));
    addRecentFile(path);
    if (dropped_.count > 0)
      Q_EMIT said(
          tr("The file holds entries that this program does not know. They are named "
             "before the first save."));
  } else if (recovery) {
    // The file cannot be read; what was recovered is saved wherever the user says.
    dropped_ = {};
    plot_.begin(KorrinProject::newDocument(plot_.environment()));
  } else {
    if (!outcome) {
      removeRecentFile(path);
      tellFailure(window_, tr("“%1” cannot be opened").arg(plain(QFileInfo(path).fileName())),
                  failure);
    } else if (const auto* unreadable = std::get_if<UnreadableDocument>(&*outcome)) {
      tellUnreadable(window_, path, unreadable->error);
    } else {
      tellUnsafe(window_, path, std::get<UnsafeDocument>(*outcome));
    }
    Q_EMIT recentFilesChanged();
    return false;
  }
  if (recovery) recover(std::move(recovery->project));
  Q_EMIT recentFilesChanged();
  return true;
}

bool PlotFiles::save() {
  takeTypedText();
  if (plot_.file() == nullptr) return saveAs();
  if (dropped_.count > 0 && !askToDrop(window_, pathText(plot_.file()->path()), dropped_))
    return false;
  return write(*plot_.file(), true) != Written::nowhere;
}

bool PlotFiles::saveAs() {
  QFileDialog dialog(window_, tr("Save the Plot"));
  dialog.setObjectName("saveAs");
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setNameFilter(tr("Stage plots (*.json)"));
  dialog.setDefaultSuffix(suffix);
  if (plot_.file() != nullptr)
    dialog.selectFile(pathText(plot_.file()->path()));
  else
    dialog.selectFile(name().replace('/', '-') + '.' + suffix);
  return dialog.exec() == QDialog::Accepted && saveTo(dialog.selectedFiles().value(0));
}

bool PlotFiles::saveTo(const QString& path) {
  takeTypedText();
  const std::filesystem::path place = toPath(QFileInfo(path).absoluteFilePath());
  if (plot_.file() != nullptr && plot_.file()->path() == place) return save();
  if (safetyCopy_->isOpenElsewhere(place)) {
    tellFailure(window_, tr("“%1” is open in another window").arg(QFileInfo(path).fileName()),
                tr("Save under another name, or close the other window first."));
    return false;
  }
  DocumentFile file(place);
  if (QFileInfo::exists(path)) {
    // The user said that the file may go. A plot for a newer program may not: nobody who can only
    // see its name can know what it holds.
    try {
      const OpenOutcome present = file.open();
      if (const auto* newer = std::get_if<NewerDocument>(&present)) {
        tellNewer(window_, path, newer->versions);
        return false;
      }
    } catch (const FileError& error) {
      return askToSaveElsewhere(window_, sentenceOf(error.what())) && saveAs();
    }
  }
  const Written written = write(file, true);
  if (written != Written::here) return written == Written::elsewhere;
  plot_.setFile(std::move(file));
  plot_.markSaved();
  return true;
}

PlotFiles::Written PlotFiles::saveElsewhere() {
  return saveAs() ? Written::elsewhere : Written::nowhere;
}

PlotFiles::Written PlotFiles::write(DocumentFile& file, bool asks) {
  const QString path = pathText(file.path());
  // First, so that no saved plot lacks an image that was there.
  const std::vector<std::string> leftOut = plot_.artwork().bringTo(file.path());
  try {
    if (asks)
      file.save(plot_.project());
    else
      file.saveAnyway(plot_.project());
  } catch (const ChangedElsewhere&) {
    if (const auto versions = newerVersionsIn(file.path())) {
      tellNewer(window_, path, *versions);
      return saveElsewhere();
    }
    switch (askAboutChanged(window_, path)) {
      case ChangedAnswer::overwrite:
        return write(file, false);
      case ChangedAnswer::saveElsewhere:
        return saveElsewhere();
      case ChangedAnswer::cancel:
        return Written::nowhere;
    }
  } catch (const FileError& error) {
    return askToSaveElsewhere(window_, sentenceOf(error.what())) ? saveElsewhere()
                                                                 : Written::nowhere;
  } catch (const EncodingError& error) {
    tellFailure(window_, tr("The plot was not saved"), sentenceOf(error.what()));
    return Written::nowhere;
  } catch (const DocumentValidationError& error) {
    tellFailure(window_, tr("The plot was not saved"), sentenceOf(error.what()));
    return Written::nowhere;
  }
  dropped_ = {};
  plot_.markSaved();
  addRecentFile(path);
  Q_EMIT recentFilesChanged();
  QString sentence = tr("Saved.");
  for (const std::string& remark : file.notKept())
    sentence += ' ' + plain(QString::fromStdString(remark));
  Q_EMIT said(sentence);
  if (!leftOut.empty())
    tellFailure(window_, tr("The plot is saved, but not all of its images"),
                sentenceOf(leftOut.front()) + ' ' +
                    tr("Make room in the plot's folder, or save the plot in another one."));
  return Written::here;
}

bool PlotFiles::mayForget() {
  takeTypedText();
  if (plot_.history().isSaved()) return true;
  switch (askAboutUnsaved(window_, name())) {
    case UnsavedAnswer::save:
      return save();
    case UnsavedAnswer::discard:
      return true;
    case UnsavedAnswer::cancel:
      return false;
  }
  return false;
}

}  // namespace korrin::editor
