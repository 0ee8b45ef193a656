// Pictures of the window for README and docs: korrin-editor-pictures FOLDER.

#include <QApplication>
#include <QDir>
#include <QDockWidget>
#include <QTest>
#include <QTreeWidget>

#include <QtPrintSupport/QPrintPreviewDialog>
#include <QtPrintSupport/QPrinter>

#include "editor/dialogs/template_chooser.h"
#include "editor/look/theme.h"
#include "editor/main_window.h"
#include "editor/output/sheets.h"
#include "editor/panels/findings_panel.h"
#include "editor/plot/comparison.h"

namespace {

// What a tour's plot has become since the last one.
bool takePictureOfChanges(const QString& path) {
  using namespace korrin;
  using namespace korrin::editor;
  const KorrinProject now = KorrinProject::example();
  KorrinProject earlier = now;
  earlier.items.edit(0).position.x -= 900;
  earlier.items.edit(0).position.y -= 600;
  earlier.items.edit(2).label = "GUITAR";
  PlotItem gone = now.items[4];
  gone.id = Environment::system().makeUUID();
  gone.position = {.x = 2'500, .y = 1'500};
  gone.label = "Bongos";
  earlier.items.push_back(gone);
  earlier.items.erase(5);
  earlier.inputs.edit(2).stand = "Tall boom";
  MainWindow window;
  window.plot().begin(now);
  window.show();
  if (!QTest::qWaitForWindowExposed(&window)) return false;
  window.plot().comparison().begin("spring-tour.json", earlier);
  window.resizeDocks({window.findChild<QDockWidget*>("changes")}, {260}, Qt::Vertical);
  QTest::qWait(200);
  window.canvas().zoomToFit();
  QTest::qWait(200);
  return window.grab().save(path);
}

}  // namespace

int main(int argc, char** argv) {
  using namespace korrin;
  using namespace korrin::editor;
  QApplication application(argc, argv);
  if (argc != 2) return 64;
  const QDir folder(argv[1]);
  for (const Theme theme : {Theme::light, Theme::dark}) {
    apply(theme, application);
    MainWindow window;
    window.plot().begin(KorrinProject::example());
    window.show();
    if (!QTest::qWaitForWindowExposed(&window)) return 1;
    window.canvas().zoomToFit();
    window.plot().select({window.plot().project().items[3].id});
    QTest::qWait(200);
    if (!window.grab().save(
            folder.filePath(theme == Theme::light ? "editor-light.png" : "editor-dark.png")))
      return 1;
  }
  apply(Theme::light, application);
  if (!takePictureOfChanges(folder.filePath("editor-changes.png"))) return 1;
  const KorrinProject example = KorrinProject::example();
  QPrinter printer(QPrinter::HighResolution);
  setPaper(printer, example);
  QPrintPreviewDialog preview(&printer);
  preview.resize(1100, 800);
  QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &preview,
                   [&example](QPrinter* onto) { printSheets(*onto, example); });
  preview.show();
  if (!QTest::qWaitForWindowExposed(&preview)) return 1;
  QTest::qWait(300);
  if (!preview.grab().save(folder.filePath("editor-print-preview.png"))) return 1;
  TemplateChooser chooser(Environment::system());
  chooser.show();
  QTest::qWait(200);
  if (!chooser.grab().save(folder.filePath("editor-new.png"))) return 1;

  // A plot with something to mend.
  KorrinProject flawed = KorrinProject::example();
  flawed.inputs.edit(3).channel = flawed.inputs[2].channel;
  flawed.inputs.edit(4).source = "";
  flawed.monitorMixes.edit(1).outputPatch = "";
  flawed.items.edit(0).position.x = 7'000;
  flawed.equipmentRequirements.edit(0).quantity = 0;
  MainWindow window;
  window.plot().begin(flawed);
  window.show();
  if (!QTest::qWaitForWindowExposed(&window)) return 1;
  auto* findings = window.findChild<FindingsPanel*>();
  findings->refresh();
  auto* dock = window.findChild<QDockWidget*>("findings");
  dock->raise();
  window.resizeDocks({dock}, {320}, Qt::Vertical);
  window.findChild<QDockWidget*>("details")->raise();
  auto* list = findings->findChild<QTreeWidget*>();
  list->setCurrentItem(list->topLevelItem(0));
  QTest::qWait(200);
  window.canvas().zoomToFit();
  QTest::qWait(200);
  return window.grab().save(folder.filePath("editor-findings.png")) ? 0 : 1;
}
