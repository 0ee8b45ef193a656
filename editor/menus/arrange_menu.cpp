#include <QAction>
#include <QCoreApplication>
#include <QMenu>
#include <QToolBar>
#include <algorithm>
#include <cmath>

#include "korrin/session/item_edits.h"
#include "korrin/session/structural_edits.h"

#include "editor/main_window.h"
#include "editor/menus/live_actions.h"
#include "editor/menus/menus.h"
#include "editor/plot/qt_texts.h"

namespace korrin::editor {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("ArrangeMenu", text); }

// Adds an action whose command is made of the plot as it stands.
template <class MakeCommand>
QAction* addEdit(OpenPlot& plot, LiveActions& actions, QMenu& menu, const QString& text,
                 const QString& icon, const QKeySequence& keys, std::size_t leastSelected,
                 MakeCommand makeCommand) {
  const QString name = QString(text).remove('&');
  return actions.add(
      menu, text, icon, keys, [&plot, name, makeCommand] { plot.perform(name, makeCommand()); },
      actions.selected(leastSelected));
}

void addGroups(MainWindow& window, LiveActions& actions) {
  OpenPlot& plot = window.plot();
  QMenu& menu = window.arrangeMenu();
  addEdit(plot, actions, menu, tr("&Group"), "group", QKeySequence("Ctrl+G"), 2,
          [&plot] { return plot.project().groupingCommand(plot.selection(), plot.environment()); });
  addEdit(plot, actions, menu, tr("&Ungroup"), "ungroup", QKeySequence("Ctrl+Shift+G"), 1,
          [&plot] { return ungroupingCommand(plot.project(), plot.selection()); });
}

void addAlignments(MainWindow& window, LiveActions& actions) {
  struct Row {
    ItemAlignment alignment;
    QString text;
    const char* icon;
    const char* keys;
    std::size_t least = 2;
  };
  const Row rows[] = {
      {ItemAlignment::left, tr("Align &Left"), "align-left", "Ctrl+Alt+L"},
      {ItemAlignment::horizontalCenter, tr("Align &Centres"), "align-center", "Ctrl+Alt+C"},
      {ItemAlignment::right, tr("Align &Right"), "align-right", "Ctrl+Alt+R"},
      {ItemAlignment::top, tr("Align &Top"), "align-top", "Ctrl+Alt+T"},
      {ItemAlignment::verticalCenter, tr("Align &Middles"), "align-middle", "Ctrl+Alt+M"},
      {ItemAlignment::bottom, tr("Align &Bottom"), "align-bottom", "Ctrl+Alt+B"},
      {ItemAlignment::distributeHorizontally, tr("Distribute &Across"), "distribute-across",
       "Ctrl+Alt+H", 3},
      {ItemAlignment::distributeVertically, tr("Distribute &Down"), "distribute-down", "Ctrl+Alt+V",
       3},
  };
  OpenPlot& plot = window.plot();
  QMenu* menu = window.arrangeMenu().addMenu(tr("&Align"));
  for (const Row& row : rows) {
    if (row.alignment == ItemAlignment::distributeHorizontally) menu->addSeparator();
    QAction* action = addEdit(plot, actions, *menu, row.text, row.icon, QKeySequence(row.keys),
                              row.least, [&plot, alignment = row.alignment] {
                                return aligningCommand(plot.project(), plot.selection(), alignment);
                              });
    window.toolBar().addAction(action);
  }
  window.toolBar().addSeparator();
}

void addOrder(MainWindow& window, LiveActions& actions) {
  struct Row {
    StackingMove move;
    QString text;
    const char* icon;
    const char* keys;
  };
  const Row rows[] = {
      {StackingMove::toFront, tr("To &Front"), "to-front", "Ctrl+Shift+]"},
      {StackingMove::forward, tr("F&orward"), "forward", "Ctrl+]"},
      {StackingMove::backward, tr("Back&ward"), "backward", "Ctrl+["},
      {StackingMove::toBack, tr("To &Back"), "to-back", "Ctrl+Shift+["},
  };
  OpenPlot& plot = window.plot();
  QMenu* menu = window.arrangeMenu().addMenu(tr("&Order"));
  for (const Row& row : rows)
    addEdit(plot, actions, *menu, row.text, row.icon, QKeySequence(row.keys), 1,
            [&plot, move = row.move] {
              return stackingCommand(plot.project(), plot.selection(), move, plot.environment());
            });
}

void addTurns(MainWindow& window, LiveActions& actions) {
  OpenPlot& plot = window.plot();
  QMenu& menu = window.arrangeMenu();
  const auto changing = [&plot](auto change) {
    return [&plot, change] { return changingCommand(plot.project(), plot.selection(), change); };
  };
  const auto turning = [changing](double degrees) {
    return changing([degrees](PlotItem& item) {
      item.rotationDegrees = std::fmod(item.rotationDegrees + degrees, 360);
    });
  };
  QAction* left = addEdit(plot, actions, menu, tr("Turn &Left"), "turn-left",
                          QKeySequence("Ctrl+Left"), 1, turning(-45));
  QAction* right = addEdit(plot, actions, menu, tr("Turn &Right"), "turn-right",
                           QKeySequence("Ctrl+Right"), 1, turning(45));
  QAction* across = addEdit(
      plot, actions, menu, tr("Flip &Horizontally"), "flip-across", QKeySequence("Ctrl+H"), 1,
      changing([](PlotItem& item) { item.isFlippedHorizontally = !item.isFlippedHorizontally; }));
  addEdit(plot, actions, menu, tr("Flip &Vertically"), "flip-down", QKeySequence("Ctrl+J"), 1,
          changing([](PlotItem& item) { item.isFlippedVertically = !item.isFlippedVertically; }));
  window.toolBar().addActions({left, right, across});
  window.toolBar().addSeparator();
}

void addLocks(MainWindow& window, LiveActions& actions) {
  OpenPlot& plot = window.plot();
  QMenu& menu = window.arrangeMenu();
  addEdit(plot, actions, menu, tr("Loc&k"), "lock", QKeySequence("Ctrl+L"), 1,
          [&plot] { return lockingCommand(plot.project(), plot.selection(), true); });
  addEdit(plot, actions, menu, tr("U&nlock"), "unlock", QKeySequence("Ctrl+Shift+L"), 1,
          [&plot] { return lockingCommand(plot.project(), plot.selection(), false); });
}

// The layers are looked up when the menu opens.
void addLayers(MainWindow& window) {
  OpenPlot& plot = window.plot();
  QMenu* menu = window.arrangeMenu().addMenu(tr("Move to La&yer"));
  const auto refresh = [&plot, menu] { menu->setEnabled(!plot.selection().empty()); };
  QObject::connect(&plot, &OpenPlot::selectionChanged, menu, refresh);
  refresh();
  QObject::connect(menu, &QMenu::aboutToShow, menu, [&plot, menu] {
    menu->clear();
    for (const PlotLayer& layer : plot.project().layers) {
      // What is an ampersand in a name is no mnemonic.
      QAction* action = menu->addAction(toQString(layer.name).replace('&', "&&").left(80));
      action->setEnabled(!layer.isLocked);
      QObject::connect(action, &QAction::triggered, menu, [&plot, id = layer.id] {
        plot.perform(tr("Move to Layer"),
                     layerAssigningCommand(plot.project(), plot.selection(), id));
      });
    }
  });
}

}  // namespace

void fillArrangeMenu(MainWindow& window, LiveActions& actions) {
  addGroups(window, actions);
  window.arrangeMenu().addSeparator();
  addAlignments(window, actions);
  addOrder(window, actions);
  addLayers(window);
  window.arrangeMenu().addSeparator();
  addTurns(window, actions);
  window.arrangeMenu().addSeparator();
  addLocks(window, actions);
}

}  // namespace korrin::editor
