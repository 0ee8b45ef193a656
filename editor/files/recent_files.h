#pragma once

// The plots that were opened or saved last, the newest first, kept in the user's settings.

#include <QString>
#include <QStringList>

namespace korrin::editor {

/// The most that are kept.
inline constexpr qsizetype maximumRecentFiles = 10;

/// Absolute paths. Some may be gone by now.
QStringList recentFiles();

/// Puts a file first.
void addRecentFile(const QString& path);

/// Takes a file out, such as one that is gone.
void removeRecentFile(const QString& path);

}  // namespace korrin::editor
