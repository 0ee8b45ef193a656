#include "editor/program.h"

#include <QLocale>
#include <QTimer>

#include "editor/files/plot_files.h"
#include "editor/languages/language.h"
#include "editor/look/theme.h"
#include "editor/look/window_layout.h"
#include "editor/main_window.h"

namespace korrin::editor {

void prepare(QApplication& application) {
  QApplication::setApplicationName("korrin-editor");
  QApplication::setOrganizationName("Korrin");
  QApplication::setApplicationDisplayName("Korrin");
  QApplication::setDesktopFileName("korrin-editor");
  apply(desktopTheme(application), application);
  speak(QLocale::system(), application);
}

void begin(MainWindow& window, const QString& path) {
  rememberLayout(window);
  window.show();
  // Questions come up over a window that is there.
  QTimer::singleShot(0, &window, [&window, path] {
    if (auto* files = window.findChild<PlotFiles*>()) files->start(path);
  });
}

}  // namespace korrin::editor
