#include "editor/panels/panels.h"

#include <QCoreApplication>

#include "editor/main_window.h"
#include "editor/panels/data_panels.h"
#include "editor/panels/symbol_palette.h"

namespace korrin::editor {
namespace {

QString tr(const char* text) { return QCoreApplication::translate("Panels", text); }

}  // namespace

void addPanels(MainWindow& window) {
  auto* palette = new SymbolPalette;
  QObject::connect(palette, &SymbolPalette::chosen, &window, [&window](const QString& assetID) {
    window.canvas().addSymbol(assetID.toStdString(), window.canvas().middle());
  });
  window.addPanel(tr("Symbols"), "symbols", palette, Qt::LeftDockWidgetArea);
  addDataPanels(window);
}

}  // namespace korrin::editor
