#include "editor/files/file_menu.h"

#include <QAction>
#include <QCoreApplication>
#include <QMenu>

#include "editor/main_window.h"

namespace korrin::editor {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("FileMenu", text); }

}  // namespace

void addFileMenu(MainWindow& window) {
  QAction* close =
      window.fileMenu().addAction(tr("&Quit"), QKeySequence::Quit, &window, &QWidget::close);
  close->setMenuRole(QAction::QuitRole);
}

}  // namespace korrin::editor
