// korrin-editor [PLOT]: draws a stage plot in a window.

#include <QApplication>
#include <QLocale>
#include <QTimer>

#include "editor/files/plot_files.h"
#include "editor/languages/language.h"
#include "editor/look/theme.h"
#include "editor/main_window.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("korrin-editor");
  QApplication::setOrganizationName("Korrin");
  QApplication::setApplicationDisplayName("Korrin");
  QApplication::setDesktopFileName("korrin-editor");
  korrin::editor::apply(korrin::editor::desktopTheme(application), application);
  korrin::editor::speak(QLocale::system(), application);
  korrin::editor::MainWindow window;
  window.show();
  // Questions come up over a window that is there.
  QTimer::singleShot(0, &window, [&window] {
    const QString path = QApplication::arguments().value(1);
    if (auto* files = window.findChild<korrin::editor::PlotFiles*>()) files->start(path);
  });
  return QApplication::exec();
}
