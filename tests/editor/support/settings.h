#pragma once

// Settings of a test's own, apart from those of the person whose machine it runs on.

#include <QCoreApplication>
#include <QSettings>
#include <QStandardPaths>

namespace korrin::editor::test {

/// Settings and data of this program, which starts with none.
inline void useOwnSettings(const char* program) {
  QStandardPaths::setTestModeEnabled(true);
  QCoreApplication::setOrganizationName("KorrinTests");
  QCoreApplication::setApplicationName(program);
  QSettings().clear();
}

}  // namespace korrin::editor::test
