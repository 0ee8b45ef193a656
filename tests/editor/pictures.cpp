// Pictures of the window for README and docs: korrin-editor-pictures FOLDER.

#include <QApplication>
#include <QDir>
#include <QTest>

#include <QtPrintSupport/QPrintPreviewDialog>
#include <QtPrintSupport/QPrinter>

#include "editor/look/theme.h"
#include "editor/main_window.h"
#include "editor/output/sheets.h"

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
    window.grab().save(
        folder.filePath(theme == Theme::light ? "editor-light.png" : "editor-dark.png"));
  }
  apply(Theme::light, application);
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
  preview.grab().save(folder.filePath("editor-print-preview.png"));
  return 0;
}
