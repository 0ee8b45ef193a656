// What leaves the editor: sheets as PDF, and the stage as a picture.

#include "editor/output/sheets.h"

#include <QSvgRenderer>
#include <QTest>

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

  void printsTheMarksOfWhatChanged() {
    KorrinProject project = KorrinProject::example();
    const std::size_t sheets = sheetsOf(project).size();
    PrintedWith with;
    with.marks.added = {project.items[0].id};
    with.marks.sentences = {"\"DRUMS\" is new"};
    const std::vector<std::string> marked = sheetsOf(project, with);
    QVERIFY(marked.size() >= sheets);
    QVERIFY(marked.front().find(">new</text>") != std::string::npos);
    QVERIFY(sheetsOf(project).front().find(">new</text>") == std::string::npos);
    QVERIFY(marked.back().find("is new") != std::string::npos);
    QVERIFY(pictureOfStage(project, 600, with) != pictureOfStage(project, 600));
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
