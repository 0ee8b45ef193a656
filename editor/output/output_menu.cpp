#include "editor/output/output_menu.h"

#include <QAction>
#include <QBuffer>
#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>

#include <QtPrintSupport/QPrintDialog>
#include <QtPrintSupport/QPrintPreviewDialog>
#include <QtPrintSupport/QPrinter>

#include "editor/dialogs/compare_dialog.h"
#include "editor/files/file_questions.h"
#include "editor/files/paths.h"
#include "editor/files/typed_text.h"
#include "editor/main_window.h"
#include "editor/menus/live_actions.h"
#include "editor/output/sheets.h"
#include "editor/plot/comparison.h"
#include "editor/plot/plot_artwork.h"
#include "editor/plot/qt_texts.h"

namespace korrin::editor {
namespace {

constexpr int pictureWidth = 3200;  // pixels: sharp on any screen

QString tr(const char* text) { return QCoreApplication::translate("Output", text); }

// Qt's painter draws fewer kinds of images than those who look at SVG.
enum class Drawn { byOthers, byPainter };

PrintedWith printedWith(const OpenPlot& plot, Drawn drawn) {
  const PlotArtwork& artwork = plot.artwork();
  return {
      .artwork = drawn == Drawn::byPainter ? artwork.bytesForPainting() : artwork.bytesForFiles(),
      .marks = plot.comparison().marks()};
}

// Beside the plot, under its name.
QString suggestion(const OpenPlot& plot, const QString& ending) {
  const DocumentFile* file = plot.file();
  if (file == nullptr) return tr("plot") + ending;
  const QFileInfo info(pathText(file->path()));
  return info.path() + '/' + info.completeBaseName() + ending;
}

// The dialog has asked before a file is replaced; the file is replaced in one step.
void write(MainWindow& window, const QString& name, const QByteArray& bytes) {
  DocumentFile file(toPath(name));
  file.saveBytesAnyway(std::string_view(bytes.data(), static_cast<std::size_t>(bytes.size())));
  window.say(tr("Written: %1").arg(QFileInfo(name).fileName()));
}

// Asks for a name and hands it on. What fails is said.
template <class Save>
void askAndSave(MainWindow& window, const QString& title, const QString& filter,
                const QString& ending, Save save) {
  takeTypedText();
  QFileDialog dialog(&window, title);
  dialog.setObjectName("exportAs");
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setNameFilter(filter);
  // The dialog asks about a file of the whole name, its ending included.
  dialog.setDefaultSuffix(ending.mid(1));
  dialog.selectFile(suggestion(window.plot(), ending));
  if (dialog.exec() != QDialog::Accepted) return;
  try {
    save(dialog.selectedFiles().value(0));
  } catch (const FileError& error) {
    tellFailure(&window, tr("The export is not complete"),
                sentenceOf(error.what()) + ' ' + tr("Make room, or export to another folder."));
  }
}

void savePdf(MainWindow& window) {
  askAndSave(window, tr("Export Sheets as PDF"), tr("PDF (*.pdf)"), ".pdf",
             [&window](const QString& name) {
               write(window, name,
                     pdfOf(window.plot().project(), printedWith(window.plot(), Drawn::byPainter)));
             });
}

// A file for each sheet, numbered where there are several.
void saveSvg(MainWindow& window) {
  askAndSave(window, tr("Export Sheets as SVG"), tr("SVG (*.svg)"), ".svg",
             [&window](const QString& name) {
               const QFileInfo info(name);
               const std::vector<std::string> sheets =
                   sheetsOf(window.plot().project(), printedWith(window.plot(), Drawn::byOthers));
               QStringList names;
               QStringList present;  // of which the dialog knew nothing
               for (std::size_t i = 1; i <= sheets.size(); ++i) {
                 const QString numbered = QString("%1-%2.svg").arg(info.completeBaseName()).arg(i);
                 names += sheets.size() == 1 ? name : info.path() + '/' + numbered;
                 if (sheets.size() > 1 && QFileInfo::exists(names.last())) present += numbered;
               }
               if (!present.isEmpty() && !askToReplace(&window, present)) return;
               for (qsizetype i = 0; i < names.size(); ++i)
                 write(window, names[i], QByteArray::fromStdString(sheets[std::size_t(i)]));
             });
}

void savePicture(MainWindow& window) {
  askAndSave(window, tr("Export Stage as Picture"), tr("PNG (*.png)"), ".png",
             [&window](const QString& name) {
               QByteArray bytes;
               QBuffer buffer(&bytes);
               buffer.open(QIODevice::WriteOnly);
               pictureOfStage(window.plot().project(), pictureWidth,
                              printedWith(window.plot(), Drawn::byPainter))
                   .save(&buffer, "PNG");
               write(window, name, bytes);
             });
}

void preview(MainWindow& window) {
  takeTypedText();
  QPrinter printer(QPrinter::HighResolution);
  setPaper(printer, window.plot().project());
  QPrintPreviewDialog dialog(&printer, &window);
  dialog.resize(1100, 800);
  QObject::connect(
      &dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&window](QPrinter* onto) {
        printSheets(*onto, window.plot().project(), printedWith(window.plot(), Drawn::byPainter));
      });
  dialog.exec();
}

void print(MainWindow& window) {
  takeTypedText();
  QPrinter printer(QPrinter::HighResolution);
  setPaper(printer, window.plot().project());
  QPrintDialog dialog(&printer, &window);
  if (dialog.exec() == QDialog::Accepted)
    printSheets(printer, window.plot().project(), printedWith(window.plot(), Drawn::byPainter));
}

}  // namespace

void addOutput(MainWindow& window) {
  QMenu& menu = window.fileMenu();
  LiveActions& actions = window.actions();
  QAction* last = menu.actions().isEmpty() ? nullptr : menu.actions().last();
  auto* exports = new QMenu(tr("&Export"), &menu);
  actions.add(*exports, tr("Sheets as &PDF…"), "export", QKeySequence("Ctrl+E"),
              [&window] { savePdf(window); });
  actions.add(*exports, tr("Sheets as &SVG…"), "", {}, [&window] { saveSvg(window); });
  actions.add(*exports, tr("Stage as Pi&cture…"), "picture", {},
              [&window] { savePicture(window); });
  menu.insertMenu(last, exports);
  menu.insertAction(last, actions.add(menu, tr("&Changes Since…"), "search", {},
                                      [&window] { askToCompare(window.plot(), &window); }));
  // The actions are made at the menu's end, and moved in front of its last entry.
  for (QAction* action : {actions.add(menu, tr("Print Pre&view…"), "print-preview",
                                      QKeySequence("Ctrl+Shift+P"), [&window] { preview(window); }),
                          actions.add(menu, tr("&Print…"), "print", QKeySequence::Print,
                                      [&window] { print(window); })})
    menu.insertAction(last, action);
  menu.insertSeparator(last);
}

}  // namespace korrin::editor
