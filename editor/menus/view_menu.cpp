#include <QAction>
#include <QApplication>
#include <QCoreApplication>
#include <QMenu>
#include <QToolBar>

#include "editor/look/theme.h"
#include "editor/look/window_layout.h"
#include "editor/main_window.h"
#include "editor/menus/live_actions.h"
#include "editor/menus/menus.h"

namespace korrin::editor {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("ViewMenu", text); }

// What the stage shows is part of the plot, so that changing it is an edit.
QAction* addStageSwitch(OpenPlot& plot, LiveActions& actions, QMenu& menu, const QString& text,
                        const QString& icon, const QKeySequence& keys,
                        bool StageDefinition::*field) {
  const QString name = QString(text).remove('&');
  QAction* action = actions.add(menu, text, icon, keys, [&plot, name, field] {
    StageDefinition stage = plot.project().stage;
    stage.*field = !(stage.*field);
    plot.perform(name, DocumentCommand::replaceStage(stage));
  });
  action->setCheckable(true);
  const auto refresh = [&plot, action, field] { action->setChecked(plot.project().stage.*field); };
  QObject::connect(&plot, &OpenPlot::historyChanged, action, refresh);
  refresh();
  return action;
}

}  // namespace

void fillViewMenu(MainWindow& window, LiveActions& actions) {
  QMenu& menu = window.viewMenu();
  Canvas& canvas = window.canvas();
  QAction* in = actions.add(menu, tr("Zoom &In"), "zoom-in", QKeySequence::ZoomIn,
                            [&canvas] { canvas.zoomIn(); });
  QAction* out = actions.add(menu, tr("Zoom &Out"), "zoom-out", QKeySequence::ZoomOut,
                             [&canvas] { canvas.zoomOut(); });
  QAction* fit = actions.add(menu, tr("Whole &Stage"), "zoom-fit", QKeySequence("Ctrl+0"),
                             [&canvas] { canvas.zoomToFit(); });
  menu.addSeparator();
  QAction* grid = addStageSwitch(window.plot(), actions, menu, tr("&Grid"), "grid",
                                 QKeySequence("Ctrl+'"), &StageDefinition::showGrid);
  addStageSwitch(window.plot(), actions, menu, tr("&Dimensions"), "", {},
                 &StageDefinition::showDimensions);
  QAction* dark = menu.addAction(tr("Dar&k Colours"));
  dark->setCheckable(true);
  dark->setChecked(isDark());
  QObject::connect(dark, &QAction::toggled, &actions, [&actions](bool isDarkWanted) {
    apply(isDarkWanted ? Theme::dark : Theme::light, *qApp);
    actions.refreshIcons();
  });
  menu.addAction(tr("Standard La&yout"), &window, [&window] { resetLayout(window); });
  menu.addSeparator();
  window.toolBar().addActions({out, fit, in, grid});
}

}  // namespace korrin::editor
