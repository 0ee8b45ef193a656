#include "editor/files/file_menu.h"

#include <QAction>
#include <QCoreApplication>
#include <QFileInfo>
#include <QMenu>
#include <QToolBar>

#include "editor/files/file_questions.h"
#include "editor/files/plot_files.h"
#include "editor/files/recent_files.h"
#include "editor/main_window.h"
#include "editor/menus/live_actions.h"

namespace korrin::editor {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("FileMenu", text); }

void listRecentFiles(QMenu& menu, PlotFiles* files) {
  menu.clear();
  const QStringList paths = recentFiles();
  for (qsizetype i = 0; i < paths.size(); ++i) {
    const QString path = paths[i];
    // A name may hold the sign that marks a key in menus.
    const QString name = plain(QFileInfo(path).fileName()).replace('&', "&&");
    QAction* action = menu.addAction(QString("&%1  %2").arg((i + 1) % 10).arg(name), files,
                                     [files, path] { files->open(path); });
    action->setStatusTip(plain(path));
  }
  menu.setEnabled(!paths.isEmpty());
}

}  // namespace

void addFileMenu(MainWindow& window) {
  auto* files = new PlotFiles(window.plot(), &window);
  QMenu& menu = window.fileMenu();
  LiveActions& actions = window.actions();
  QAction* begin =
      actions.add(menu, tr("&New…"), "new", QKeySequence::New, [files] { files->begin(); });
  QAction* open = actions.add(menu, tr("&Open…"), "open", QKeySequence::Open,
                              [files] { files->openAnother(); });
  QMenu* recent = menu.addMenu(tr("Open &Recent"));
  QObject::connect(files, &PlotFiles::recentFilesChanged, recent,
                   [recent, files] { listRecentFiles(*recent, files); });
  listRecentFiles(*recent, files);
  menu.addSeparator();
  QAction* save =
      actions.add(menu, tr("&Save"), "save", QKeySequence::Save, [files] { files->save(); });
  actions.add(menu, tr("Save &As…"), "", QKeySequence::SaveAs, [files] { files->saveAs(); });
  menu.addSeparator();
  QAction* close =
      actions.add(menu, tr("&Quit"), "", QKeySequence::Quit, [&window] { window.close(); });
  close->setMenuRole(QAction::QuitRole);
  window.toolBar().addActions({begin, open, save});
  window.toolBar().addSeparator();

  QObject::connect(files, &PlotFiles::said, &window, &MainWindow::say);
  window.setCloseQuestion([files] {
    if (!files->mayForget()) return false;
    files->safetyCopy().forget();
    return true;
  });
}

}  // namespace korrin::editor
