// korrin-editor [PLOT]: draws a stage plot in a window.

#include <QApplication>

#include "editor/main_window.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setApplicationName("korrin-editor");
  QApplication::setOrganizationName("Korrin");
  QApplication::setApplicationDisplayName("Korrin");
  korrin::editor::MainWindow window;
  window.show();
  return QApplication::exec();
}
