#include "editor/main_window.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QFileInfo>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>

#include "editor/files/file_menu.h"
#include "editor/panels/panels.h"
#include "editor/plot/qt_texts.h"

namespace korrin::editor {

MainWindow::MainWindow(Environment environment)
    : plot_(new OpenPlot(std::move(environment), this)), canvas_(new Canvas(*plot_)) {
  setCentralWidget(canvas_);
  setDockOptions(AnimatedDocks | AllowTabbedDocks | AllowNestedDocks);
  setUnifiedTitleAndToolBarOnMac(true);
  resize(1440, 900);

  fileMenu_ = menuBar()->addMenu(tr("&File"));
  editMenu_ = menuBar()->addMenu(tr("&Edit"));
  arrangeMenu_ = menuBar()->addMenu(tr("&Arrange"));
  viewMenu_ = menuBar()->addMenu(tr("&View"));
  toolBar_ = addToolBar(tr("Tools"));
  toolBar_->setObjectName("tools");
  toolBar_->setMovable(false);
  addFileMenu(*this);
  addPanels(*this);

  connect(plot_, &OpenPlot::historyChanged, this, &MainWindow::showTitle);
  connect(plot_, &OpenPlot::replaced, this, &MainWindow::showTitle);
  connect(plot_, &OpenPlot::refused, this, &MainWindow::say);
  showTitle();
}

QDockWidget* MainWindow::addPanel(const QString& title, const QString& name, QWidget* panel,
                                  Qt::DockWidgetArea area) {
  auto* dock = new QDockWidget(title, this);
  dock->setObjectName(name);
  dock->setWidget(panel);
  panel->setAccessibleName(title);
  addDockWidget(area, dock);
  viewMenu_->addAction(dock->toggleViewAction());
  return dock;
}

void MainWindow::say(const QString& sentence) {
  constexpr int milliseconds = 8000;
  statusBar()->showMessage(sentence, milliseconds);
}

void MainWindow::showTitle() {
  const DocumentFile* file = plot_->file();
  const QString title = toQString(plot_->project().metadata.title);
  const QString name = file != nullptr
                           ? QFileInfo(QString::fromStdString(file->path().string())).fileName()
                           : tr("not saved yet");
  setWindowTitle(title.isEmpty() ? tr("%1[*] - Korrin").arg(name)
                                 : tr("%1[*] (%2) - Korrin").arg(title, name));
  setWindowModified(!plot_->history().isSaved());
}

void MainWindow::closeEvent(QCloseEvent* event) { event->setAccepted(!mayClose_ || mayClose_()); }

}  // namespace korrin::editor
