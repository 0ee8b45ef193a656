// What changed since another file: chosen, marked upon the canvas, listed, printed and given up.

#include "editor/plot/comparison.h"

#include <QDockWidget>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include "korrin/coding/json.h"
#include "korrin/model/document_coding.h"
#include "korrin/session/item_edits.h"
#include "korrin/session/structural_edits.h"

#include "editor/canvas/change_marks.h"
#include "editor/dialogs/compare_dialog.h"
#include "editor/main_window.h"
#include "editor/panels/changes_panel.h"
#include "tests/editor/support/answers.h"
#include "tests/editor/support/settings.h"

namespace korrin::editor {
namespace {

using test::Answer;

constexpr int patience = 60'000;  // milliseconds, on a machine that has other work

class ComparisonTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { test::useOwnSettings("comparison"); }

  void init() {
    window = std::make_unique<MainWindow>();
    earlier = KorrinProject::example();
    earlier.groups = {};
    plot().begin(earlier);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.get()));
  }

  void cleanup() { window.reset(); }

  void saysAndMarksWhatChanged() {
    QVERIFY(compare(earlier));
    QVERIFY(plot().comparison().isOn());
    QCOMPARE(list().count(), 0);
    QCOMPARE(marks().count(), std::size_t{0});
    const UUID moved = plot().project().items[0].id;
    const UUID gone = plot().project().items[1].id;
    plot().perform("Move", movingCommand(plot().project(), {moved}, {.x = 400, .y = 0}));
    plot().perform("Delete", deletingCommand(plot().project(), {gone}));
    // It follows the edits.
    QTRY_VERIFY_WITH_TIMEOUT(list().count() >= 2, patience);
    QCOMPARE(std::size_t(list().count()), plot().comparison().changes().size());
    QVERIFY2(list().item(0)->text().contains("0.40 m"), qPrintable(list().item(0)->text()));
    QCOMPARE(marks().count(), std::size_t{2});
    QVERIFY(marks().isVisible());
    QCOMPARE(plot().comparison().marks().moved.size(), std::size_t{1});
    QCOMPARE(plot().comparison().marks().gone[0].id, gone);
    QCOMPARE(plot().comparison().marks().sentences.size(), std::size_t(list().count()));

    plot().undo();
    plot().undo();
    QTRY_COMPARE_WITH_TIMEOUT(list().count(), 0, patience);
    QVERIFY(!marks().isVisible());
  }

  void showsThePanelAndLeadsToTheItem() {
    auto* dock = window->findChild<QDockWidget*>("changes");
    QVERIFY(dock->isHidden());
    KorrinProject other = earlier;
    const UUID moved = other.items[3].id;
    other.items.edit(3).position.x += 250;
    QVERIFY(compare(other));
    QVERIFY(!dock->isHidden());
    QVERIFY(dock->windowTitle().contains("(1)"));
    list().setCurrentRow(0);
    Q_EMIT list().itemActivated(list().item(0));
    QCOMPARE(plot().selection(), IDSet{moved});
  }

  void drawsTheMarksUponTheStage() {
    plot().select({});
    const QImage before = picture();
    KorrinProject other = earlier;
    other.items.erase(0);  // so that it is new
    QVERIFY(compare(other));
    QCOMPARE(marks().count(), std::size_t{1});
    QVERIFY(inked(picture()) > inked(before) + 100);
    plot().comparison().end();
    QCOMPARE(inked(picture()), inked(before));
  }

  void endsWithAnotherPlotOrOnDemand() {
    QVERIFY(compare(KorrinProject::newDocument()));
    QVERIFY(list().count() > 0);
    for (auto* button : window->findChild<ChangesPanel*>()->findChildren<QPushButton*>())
      if (button->text().contains("Stop")) button->click();
    QVERIFY(!plot().comparison().isOn());
    QCOMPARE(list().count(), 0);
    QVERIFY(compare(KorrinProject::newDocument()));
    plot().begin(earlier);
    QVERIFY(!plot().comparison().isOn());
    QVERIFY(plot().comparison().marks().sentences.empty());
  }

  void refusesWhatIsNoPlot() {
    QTemporaryDir folder;
    QFile file(folder.filePath("list.json"));
    QVERIFY(file.open(QFile::WriteOnly));
    file.write("[1, 2]");
    file.close();
    QString text;
    Answer answer("cannotCompare", [&text](QWidget& dialog) {
      text = static_cast<QMessageBox&>(dialog).text();
      static_cast<QMessageBox&>(dialog).accept();
    });
    QVERIFY(!compareWith(plot(), file.fileName(), window.get()));
    QVERIFY(answer.wasAsked());
    QVERIFY2(text.contains("list.json"), qPrintable(text));
    QVERIFY(!plot().comparison().isOn());
  }

 private:
  OpenPlot& plot() { return window->plot(); }
  QListWidget& list() { return *window->findChild<ChangesPanel*>()->findChild<QListWidget*>(); }
  ChangeMarks& marks() {
    for (QGraphicsItem* item : window->canvas().plotScene().items())
      if (auto* found = dynamic_cast<ChangeMarks*>(item)) return *found;
    qFatal("the canvas has no marks");
  }
  bool compare(const KorrinProject& other) {
    QTemporaryDir folder;
    QFile file(folder.filePath("earlier.json"));
    if (!file.open(QFile::WriteOnly)) return false;
    file.write(QByteArray::fromStdString(encodeJSON(other, prettyPrinted)));
    file.close();
    return compareWith(plot(), file.fileName(), window.get());
  }
  // What the canvas shows, in a size of its own: panels come and go beside it.
  QImage picture() {
    QImage image(900, 600, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    window->canvas().plotScene().render(&painter, image.rect(),
                                        window->canvas().plotScene().stageBounds());
    return image;
  }
  // Green ink, of which the example has none.
  static int inked(const QImage& image) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x) {
        const QColor colour(image.pixel(x, y));
        count += colour.green() > colour.red() + 50 && colour.green() > colour.blue() + 30;
      }
    return count;
  }

  KorrinProject earlier = KorrinProject::newDocument();
  std::unique_ptr<MainWindow> window;
};

}  // namespace
}  // namespace korrin::editor

QTEST_MAIN(korrin::editor::ComparisonTest)
#include "comparison_test.moc"
