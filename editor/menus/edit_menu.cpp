#include <QAction>
#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QMenu>
#include <QToolBar>

#include "korrin/session/structural_edits.h"

#include "editor/dialogs/insert_images.h"
#include "editor/main_window.h"
#include "editor/menus/clipboard.h"
#include "editor/menus/live_actions.h"
#include "editor/menus/menus.h"
#include "editor/plot/plot_artwork.h"
#include "editor/plot/qt_texts.h"

namespace korrin::editor {
namespace {

constexpr double besides = 200;  // millimetres between an item and its copy

QString tr(const char* text) { return QCoreApplication::translate("EditMenu", text); }

// "Undo Move", or the verb alone.
void nameAfter(QAction& action, const QString& verb, const QString& named,
               const std::optional<Text>& name) {
  // An ampersand in a name is no mnemonic.
  action.setText(name && !name->empty() ? named.arg(toQString(*name).replace('&', "&&")) : verb);
  action.setToolTip(action.text());
}

void addHistory(MainWindow& window, LiveActions& actions) {
  OpenPlot& plot = window.plot();
  QMenu& menu = window.editMenu();
  QAction* undo = actions.add(
      menu, tr("&Undo"), "undo", QKeySequence::Undo, [&plot] { plot.undo(); },
      [&plot] { return plot.history().undoCount() > 0; });
  QAction* redo = actions.add(
      menu, tr("&Redo"), "redo", QKeySequence::Redo, [&plot] { plot.redo(); },
      [&plot] { return plot.history().redoCount() > 0; });
  QObject::connect(&plot, &OpenPlot::historyChanged, undo, [&plot, undo, redo] {
    nameAfter(*undo, tr("&Undo"), tr("&Undo %1"), plot.history().undoName());
    nameAfter(*redo, tr("&Redo"), tr("&Redo %1"), plot.history().redoName());
  });
  window.toolBar().addActions({undo, redo});
  window.toolBar().addSeparator();
}

void addClipboard(MainWindow& window, LiveActions& actions) {
  OpenPlot& plot = window.plot();
  QMenu& menu = window.editMenu();
  const auto erase = [&plot](const QString& name) {
    plot.perform(name, deletingCommand(plot.project(), plot.selection()));
  };
  actions.add(
      menu, tr("Cu&t"), "cut", QKeySequence::Cut,
      [&plot, erase] {
        if (copySelection(plot)) erase(tr("Cut"));
      },
      actions.selected(1));
  actions.add(
      menu, tr("&Copy"), "copy", QKeySequence::Copy, [&plot] { copySelection(plot); },
      actions.selected(1));
  QAction* paste = actions.add(menu, tr("&Paste"), "paste", QKeySequence::Paste, [&plot] {
    pasteInto(plot, {besides, besides});
  });
  QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, paste,
                   [paste] { paste->setEnabled(canPaste()); });
  paste->setEnabled(canPaste());
  QAction* duplicate = actions.add(
      menu, tr("D&uplicate"), "duplicate", QKeySequence("Ctrl+D"),
      [&plot] {
        const auto copy = duplicatingCommand(plot.project(), plot.selection(), {besides, besides},
                                             plot.environment());
        if (copy)
          plot.perform(tr("Duplicate"), copy->command,
                       {.select = IDSet(copy->itemIDs.begin(), copy->itemIDs.end())});
      },
      actions.selected(1));
  QAction* remove = actions.add(
      menu, tr("&Delete"), "delete", QKeySequence::Delete, [erase] { erase(tr("Delete")); },
      actions.selected(1));
  window.toolBar().addActions({duplicate, remove});
  window.toolBar().addSeparator();
}

void addImages(MainWindow& window, LiveActions& actions) {
  OpenPlot& plot = window.plot();
  actions.add(window.editMenu(), tr("Insert &Image…"), "picture", QKeySequence("Ctrl+Shift+I"),
              [&window, &plot] { askForImages(plot, window.canvas().middle(), &window); });
  QObject::connect(
      &plot.artwork(), &PlotArtwork::arrived, &window, [&window, &plot](const Text& sha256) {
        if (plot.artwork().isMissing(sha256))
          window.say(tr(
              "An image is not there, or is not safe to show, and will not be printed. The panel "
              "Findings says what to do."));
      });
  window.canvas().acceptFiles([&window, &plot](const QStringList& paths, const QPointF& place) {
    insertImages(plot, paths, place, &window);
  });
}

}  // namespace

void fillEditMenu(MainWindow& window, LiveActions& actions) {
  OpenPlot& plot = window.plot();
  QMenu& menu = window.editMenu();
  addHistory(window, actions);
  menu.addSeparator();
  addClipboard(window, actions);
  menu.addSeparator();
  addImages(window, actions);
  actions.add(
      menu, tr("Edit &Label"), "label", QKeySequence("F2"),
      [&window] { window.canvas().editLabel(); }, [&plot] { return plot.selection().size() == 1; });
  menu.addSeparator();
  actions.add(menu, tr("Select &All"), "", QKeySequence::SelectAll, [&plot] {
    IDSet all;
    for (const PlotItem& item : plot.project().items) all.insert(item.id);
    plot.select(all);
  });
  actions.add(
      menu, tr("Select &Nothing"), "", QKeySequence("Ctrl+Shift+A"), [&plot] { plot.select({}); },
      actions.selected(1));
}

}  // namespace korrin::editor
