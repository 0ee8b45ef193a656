// The editor, driven by lines on its standard input, so that a test can kill it:
//
//     edit        moves the next item by the arrow key, and prints the plot as it is then
//     undo        takes the last edit back, and prints the plot
//     document    prints the plot
//
// A plot is printed as one line. Templates and recoveries that are offered are taken; what comes
// before that waits until there is no question left.

#include <QMenu>
#include <QSocketNotifier>
#include <cstdio>
#include <iostream>
#include <string>

#include "korrin/coding/json.h"
#include "korrin/model/document_coding.h"

#include "editor/main_window.h"
#include "editor/program.h"
#include "tests/editor/support/answers.h"
#include "tests/editor/support/hands.h"

int main(int argc, char** argv) {
  using namespace korrin::editor;
  QApplication application(argc, argv);
  prepare(application);
  MainWindow window;
  const test::Answer recovering("recovery", "recover");
  const test::Answer choosing("templateChooser", [](QWidget& dialog) {
    auto* list = dialog.findChild<QAbstractItemView*>();
    list->setCurrentIndex(list->model()->index(1, 0));
    dialog.findChild<QAbstractButton*>("create")->click();
  });
  begin(window, QApplication::arguments().value(1));

  QSocketNotifier input(0, QSocketNotifier::Read);
  input.setEnabled(false);
  // After the plot was opened.
  QTimer::singleShot(0, &input, [&input] { input.setEnabled(true); });
  QObject::connect(&input, &QSocketNotifier::activated, &window, [&window] {
    if (QApplication::activeModalWidget() != nullptr) return;  // The line is still there later.
    std::string line;
    if (!std::getline(std::cin, line)) return QApplication::quit();
    if (line == "edit") {
      for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Right}) QTest::keyClick(&window.canvas(), key);
    } else if (line == "undo") {
      window.editMenu().actions().front()->trigger();
    }
    std::cout << korrin::encodeJSON(window.plot().project()) << std::endl;
  });
  return QApplication::exec();
}
