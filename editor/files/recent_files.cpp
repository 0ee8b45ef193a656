#include "editor/files/recent_files.h"

#include <QFileInfo>
#include <QSettings>

namespace korrin::editor {
namespace {

constexpr auto key = "recentFiles";

}  // namespace

QStringList recentFiles() { return QSettings().value(key).toStringList(); }

void addRecentFile(const QString& path) {
  const QString absolute = QFileInfo(path).absoluteFilePath();
  QStringList files = recentFiles();
  files.removeAll(absolute);
  files.prepend(absolute);
  QSettings().setValue(key, files.mid(0, maximumRecentFiles));
}

void removeRecentFile(const QString& path) {
  QStringList files = recentFiles();
  files.removeAll(QFileInfo(path).absoluteFilePath());
  QSettings().setValue(key, files);
}

}  // namespace korrin::editor
