// What leaves the editor: sheets as PDF, and the stage as a picture.

#include "editor/output/sheets.h"

#include <QListWidget>
#include <QSvgRenderer>
#include <QTest>

#include "editor/dialogs/changes_dialog.h"
#include "editor/look/painted_svg.h"

namespace korrin::editor {
namespace {

class SheetsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void makesAPageOfEachSheet() {
    KorrinProject project = KorrinProject::example();
    const std::size_t sheets = sheetsOf(project).size();
    QVERIFY(sheets > 1);
    const QByteArray pdf = pdfOf(project);
    QVERIFY(pdf.startsWith("%PDF-"));
    QCOMPARE(static_cast<std::size_t>(pdf.count("/Type /Page\n")), sheets);
    QVERIFY(pdf.contains("842"));
    project.exportSettings.paperSize = PaperSize::letter;
    QVERIFY(pdfOf(project).contains("792"));
  }

  void drawsTheStageAsLargeAsAsked() {
    const QImage image = pictureOfStage(KorrinProject::example(), 900);
    QCOMPARE(std::max(image.width(), image.height()), 900);
    // There is ink on it, and not everywhere.
    int dark = 0;
    for (int y = 0; y < image.height(); y += 3)
      for (int x = 0; x < image.width(); x += 3) dark += qGray(image.pixel(x, y)) < 128;
    const int pixels = image.width() * image.height() / 9;
    QVERIFY(dark > pixels / 200 && dark < pixels / 2);
  }

  void leavesNothingThatQtWouldDrawWrongly() {
    for (const std::string& sheet : sheetsOf(KorrinProject::example())) {
      const QByteArray painted = paintedSvg(sheet);
      QVERIFY(!painted.contains("paint-order"));
      QCOMPARE(painted.count("<svg"), 1);
      QCOMPARE(painted.count("</svg>"), 1);
      QCOMPARE(painted.count("<g"), painted.count("</g>"));
      QVERIFY(QSvgRenderer(painted).isValid());
    }
  }

  void saysWhatChangedSinceAnotherState() {
    const KorrinProject before = KorrinProject::example();
    KorrinProject after = before;
    QVERIFY(changesBetween(before, after).isEmpty());
    after.items.edit(0).position.x += 400;
    const QStringList changes = changesBetween(before, after);
    QCOMPARE(changes.size(), 1);
    QVERIFY2(changes[0].contains("0.40 m"), qPrintable(changes[0]));
    ChangesDialog dialog("earlier.json", changes, nullptr);
    QCOMPARE(dialog.findChild<QListWidget*>()->count(), 1);
  }

  void keepsTextsThatLookLikeMarkup() {
    KorrinProject project = KorrinProject::example();
    project.stage.name = "</svg><svg x=1> paint-order=\"stroke\"";
    const QByteArray painted = paintedSvg(sheetsOf(project).front());
    QVERIFY(painted.contains("&lt;/svg&gt;&lt;svg x=1"));
  }
};

}  // namespace
}  // namespace korrin::editor

QTEST_MAIN(korrin::editor::SheetsTest)
#include "sheets_test.moc"
