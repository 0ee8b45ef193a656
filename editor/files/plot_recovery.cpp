// What the editor begins with: what a crash left behind, and what nobody needs any more.

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <utility>

#include "editor/files/file_questions.h"
#include "editor/files/paths.h"
#include "editor/files/plot_files.h"
#include "editor/plot/plot_artwork.h"
#include "editor/plot/qt_texts.h"

namespace korrin::editor {

void PlotFiles::start(const QString& path) {
  sweep();
  if (!path.isEmpty()) {
    open(path);
    return;
  }
  if (!recoverLeftBehind()) begin();
}

void PlotFiles::sweep() {
  if (!plot_.history().isSaved() || !safetyCopy_->isAlone()) return;
  const QDir shared(pathText(plot_.artwork().sharedFolder()));
  const QDateTime yesterday = QDateTime::currentDateTime().addDays(-1);
  const QFileInfoList images = shared.entryInfoList(QDir::Files);
  for (const QFileInfo& image : images)
    if (image.lastModified() < yesterday) QFile::remove(image.absoluteFilePath());
}

bool PlotFiles::recoverLeftBehind() {
  for (Recovery& found : safetyCopy_->leftBehind()) {
    const QString title = toQString(found.project.metadata.title);
    const RecoveryAnswer answer =
        askAboutRecovery(window_, title.isEmpty() ? tr("Untitled") : title, found.notedAt);
    if (answer == RecoveryAnswer::cancel) continue;
    if (answer == RecoveryAnswer::recover) {
      plot_.begin(KorrinProject::newDocument(plot_.environment()));
      recover(std::move(found.project));
      // Before the only other copy goes.
      if (!safetyCopy_->flush()) return true;
    }
    SafetyCopy::discard(found);
    if (answer == RecoveryAnswer::recover) return true;
  }
  return false;
}

// An edit, so that the plot counts as unsaved and the way back is open.
void PlotFiles::recover(KorrinProject project) {
  plot_.perform(tr("Recover Unsaved Changes"), DocumentCommand::replaceProject(std::move(project)));
}

}  // namespace korrin::editor
