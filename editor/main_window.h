#pragma once

// The window: the canvas in the middle, panels around it, menus above.
//
// A panel is a widget that takes the plot, reads it, and refreshes on the signals `changed` (what
// the change set names), `selectionChanged` and `replaced` of `OpenPlot`. One line of
// panels/panels.cpp plugs it in:
//
//     window.addPanel(tr("Layers"), "layers", new LayersPanel(window.plot()),
//                     Qt::RightDockWidgetArea);
//
// which gives it a dock and an entry of the menu View. Dialogs and what needs the file stand behind
// the actions of files/file_menu.cpp.

#include <QMainWindow>
#include <functional>

#include "editor/canvas/canvas.h"
#include "editor/plot/open_plot.h"

class QDockWidget;
class QMenu;
class QToolBar;

namespace korrin::editor {

class LiveActions;

class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  /// A window with an empty plot.
  explicit MainWindow(Environment environment = Environment::system());
  ~MainWindow() override;

  OpenPlot& plot() { return *plot_; }
  Canvas& canvas() { return *canvas_; }

  /// @{
  /// The menus. Each is filled by a file of its own.
  QMenu& fileMenu() { return *fileMenu_; }
  QMenu& editMenu() { return *editMenu_; }
  QMenu& arrangeMenu() { return *arrangeMenu_; }
  QMenu& viewMenu() { return *viewMenu_; }
  /// @}
  QToolBar& toolBar() { return *toolBar_; }
  /// Actions that are enabled while they have something to work on.
  LiveActions& actions() { return *actions_; }

  /// Puts a widget, which the window then owns, into a dock. `name` is what the window's layout is
  /// remembered by; it never changes.
  QDockWidget* addPanel(const QString& title, const QString& name, QWidget* panel,
                        Qt::DockWidgetArea area);

  /// Shows a sentence in the status bar for a while.
  void say(const QString& sentence);

  /// Asks before the window closes: it stays open where the answer is false.
  void setCloseQuestion(std::function<bool()> mayClose) { mayClose_ = std::move(mayClose); }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void addContextMenu();
  void addStatus();
  void showTitle();

  OpenPlot* plot_;
  Canvas* canvas_;
  QMenu* fileMenu_;
  QMenu* editMenu_;
  QMenu* arrangeMenu_;
  QMenu* viewMenu_;
  QToolBar* toolBar_;
  LiveActions* actions_;
  std::function<bool()> mayClose_;
};

}  // namespace korrin::editor
