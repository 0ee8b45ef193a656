#include "editor/main_window.h"

#include <QCloseEvent>
#include <QDockWidget>
#include <QFileInfo>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>
#include <QToolBar>
#include <cmath>

#include "editor/files/file_menu.h"
#include "editor/menus/live_actions.h"
#include "editor/menus/menus.h"
#include "editor/output/output_menu.h"
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
  toolBar_->setIconSize({20, 20});
  actions_ = new LiveActions(*plot_, this);
  addFileMenu(*this);
  addOutput(*this);
  fillEditMenu(*this, *actions_);
  fillArrangeMenu(*this, *actions_);
  fillViewMenu(*this, *actions_);
  addPanels(*this);
  addContextMenu();
  addStatus();

  connect(plot_, &OpenPlot::historyChanged, this, &MainWindow::showTitle);
  connect(plot_, &OpenPlot::replaced, this, &MainWindow::showTitle);
  connect(plot_, &OpenPlot::refused, this, &MainWindow::say);
  showTitle();
}

MainWindow::~MainWindow() {
  // These refer to the plot, which would go before them otherwise.
  qDeleteAll(findChildren<QDockWidget*>());
  delete takeCentralWidget();
}

void MainWindow::addContextMenu() {
  auto* menu = new QMenu(this);
  menu->addActions(editMenu_->actions());
  menu->addSeparator();
  menu->addActions(arrangeMenu_->actions());
  canvas_->setContextMenu(menu);
}

void MainWindow::addStatus() {
  auto* place = new QLabel;
  auto* zoom = new QLabel;
  for (QLabel* label : {place, zoom}) {
    label->setContentsMargins(8, 0, 8, 0);
    statusBar()->addPermanentWidget(label);
  }
  connect(canvas_, &Canvas::pointerMoved, place, [place](const QPointF& at) {
    const QLocale locale;
    place->setText(
        tr("%1 m, %2 m")
            .arg(locale.toString(at.x() / 1000, 'f', 2), locale.toString(at.y() / 1000, 'f', 2)));
  });
  const auto showZoom = [this, zoom] {
    // One to fifty on a screen of 96 dots an inch.
    constexpr double pixelsPerMillimetre = 96 / 25.4;
    zoom->setText(tr("1 : %1").arg(std::lround(pixelsPerMillimetre / canvas_->zoom())));
  };
  connect(canvas_, &Canvas::zoomChanged, zoom, showZoom);
  showZoom();
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
