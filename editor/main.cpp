// korrin-editor [PLOT]: draws a stage plot in a window.

#include "editor/main_window.h"
#include "editor/program.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  korrin::editor::prepare(application);
  korrin::editor::MainWindow window;
  korrin::editor::begin(window, QApplication::arguments().value(1));
  return QApplication::exec();
}
