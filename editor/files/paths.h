#pragma once

// Paths of files as texts of the window, and back. A file's name is bytes; what is no text in the
// user's encoding survives the way there and back as far as Qt can carry it.

#include <QFile>
#include <QString>
#include <filesystem>

namespace korrin::editor {

inline QString pathText(const std::filesystem::path& path) {
  return QFile::decodeName(QByteArray::fromStdString(path.string()));
}

inline std::filesystem::path toPath(const QString& path) {
  return QFile::encodeName(path).toStdString();
}

}  // namespace korrin::editor
