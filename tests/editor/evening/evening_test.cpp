// A whole evening in a window, by pointer and keys alone: a plot from a template is drawn on, its
// lists are filled, a finding is mended, everything is undone, redone, saved and opened again. At
// each turn the plot is compared with the one that it should be.

#include <QAbstractButton>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QSettings>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeWidget>
#include <algorithm>
#include <cmath>

#include "korrin/coding/json.h"
#include "korrin/model/document_coding.h"
#include "korrin/templates/korrin_template.h"

#include "editor/files/plot_files.h"
#include "editor/main_window.h"
#include "editor/panels/findings_panel.h"
#include "editor/panels/list_panel.h"
#include "editor/panels/symbol_palette.h"
#include "tests/editor/support/answers.h"
#include "tests/editor/support/hands.h"
#include "tests/editor/support/plots.h"
#include "tests/editor/support/settings.h"

namespace korrin::editor {
namespace {

using namespace test;

class EveningTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    test::useOwnSettings("evening");
    window = std::make_unique<MainWindow>(repeatable());
    window->show();
    QVERIFY(activate(*window));
  }

  void leadsToTheExpectedPlotAtEachTurn() {
    using Turn = void (EveningTest::*)();
    for (const Turn turn :
         {&EveningTest::beginWithATemplate, &EveningTest::dropASymbol, &EveningTest::dragIt,
          &EveningTest::alignItWithAnother, &EveningTest::addAnInput, &EveningTest::renameAMix,
          &EveningTest::mendAFinding, &EveningTest::undoAll, &EveningTest::redoAll,
          &EveningTest::save, &EveningTest::openAgain}) {
      (this->*turn)();
      if (QTest::currentTestFailed()) return;
    }
  }

  void cleanupTestCase() { window.reset(); }

 private:
  void beginWithATemplate() {
    Answer choosing("templateChooser", [](QWidget& dialog) {
      auto* list = dialog.findChild<QAbstractItemView*>();
      for (int row = 0; row < list->model()->rowCount(); ++row)
        if (list->model()->index(row, 0).data().toString() == "Power Trio")
          click(cellOf(*list, list->model()->index(row, 0)));
      click(middleOf(dialog.findChild<QAbstractButton*>("create")));
    });
    press(QKeySequence::New);
    QVERIFY(choosing.wasAsked() && activate(*window));
    states = {project()};
    QCOMPARE(withoutIdentifiers(project()), withoutIdentifiers(KorrinProject::template_(
                                                KorrinTemplateID::powerTrio, repeatable())));
  }

  void dropASymbol() {
    auto* palette = window->findChild<SymbolPalette*>();
    click(middleOf(palette->findChild<QLineEdit*>()));
    type("wedge");
    auto* list = palette->findChild<QListView*>();
    QTRY_COMPARE(list->model()->rowCount(), 1);
    const QPoint place = canvas().mapFromScene(QPointF(-3600, 1200));
    const QPointF at = canvas().mapToScene(place);
    const DragAndDrop dropping(cellOf(*list, list->model()->index(0, 0)), {view(), place});
    QVERIFY(dropping.wasDropped());
    QCOMPARE(canvas().mapToScene(place), at);  // The stage stays where it is.

    const PlotItem item = {
        .id = project().items.back().id,
        .kind = PlotItemKind::monitor,
        .assetID = "krn.audio.wedge.v1",
        .position = {.x = std::round(at.x()), .y = std::round(at.y())},
        .size = {.width = 650, .height = 500},
        .rotationDegrees = 0,
        .isFlippedHorizontally = false,
        .isFlippedVertically = false,
        .layerID = project().layers.front().id,
        .groupID = std::nullopt,
        .isLocked = false,
        .label = "Wedge monitor",
        .riserHeightMillimeters = std::nullopt,
        .style = {.tintHex = std::nullopt, .labelVisible = true, .labelScale = 1}};
    dropped = item.id;
    KorrinProject expected = states.back();
    expected.items.push_back(item);
    expectStep(expected);
    QCOMPARE(window->plot().selection(), IDSet{dropped});
  }

  void dragIt() {
    KorrinProject expected = states.back();
    PlotItem& item = expected.items.edit(expected.items.size() - 1);
    const QPoint from = placeOf(item);
    const QPoint to = from + QPoint(57, -23);
    const QPointF by = canvas().mapToScene(to) - canvas().mapToScene(from);
    item.position.x += std::round(by.x());
    item.position.y += std::round(by.y());
    drag(view(), from, to, Qt::ControlModifier);  // without snapping
    expectStep(expected);
  }

  void alignItWithAnother() {
    KorrinProject expected = states.back();
    const PlotItem other = itemLabelled("GUITAR AMP");
    PlotItem& item = expected.items.edit(expected.items.size() - 1);
    click({view(), placeOf(other)}, Qt::ShiftModifier);
    QCOMPARE(window->plot().selection(), (IDSet{dropped, other.id}));
    press(QKeySequence("Ctrl+Alt+L"));
    // The one farther to the right moves.
    const double left = other.position.x - other.size.width / 2;
    QVERIFY(left > item.position.x - item.size.width / 2);
    for (std::size_t i = 0; i < expected.items.size(); ++i)
      if (expected.items[i].id == other.id)
        expected.items.edit(i).position.x =
            item.position.x - item.size.width / 2 + other.size.width / 2;
    expectStep(expected);
  }

  void addAnInput() {
    ListPanel* inputs = listPanel("inputs");
    click(tabOf(*window, "Inputs"));
    const int last = inputs->model().rowCount() - 1;
    click(cellOf(inputs->view(), inputs->model().index(last, 1)));
    press(QKeySequence("Ctrl+Return"));
    KorrinProject expected = states.back();
    InputChannel input{};
    input.id = project().inputs.back().id;
    expected.inputs.push_back(input);
    expectStep(expected);
    // The new row waits for its channel; the next cell follows with the tabulator.
    type("2");
    press(Qt::Key_Tab);
    expected.inputs.edit(expected.inputs.size() - 1).channel = 2;
    expectStep(expected);
    type("Talkback");
    press(Qt::Key_Return);
    expected.inputs.edit(expected.inputs.size() - 1).source = "Talkback";
    expectStep(expected);
  }

  void renameAMix() {
    ListPanel* mixes = listPanel("monitorMixes");
    click(tabOf(*window, "Monitor Mixes"));
    const QModelIndex name = mixes->model().index(0, 1);
    QCOMPARE(mixes->model().headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(),
             QString("Name"));
    click(cellOf(mixes->view(), name));
    press(Qt::Key_F2);
    press(QKeySequence::SelectAll);
    type("Anna");
    press(Qt::Key_Return);
    KorrinProject expected = states.back();
    expected.monitorMixes.edit(0).name = "Anna";
    expectStep(expected);
  }

  void mendAFinding() {
    click(tabOf(*window, "Findings"));
    auto* panel = window->findChild<FindingsPanel*>();
    auto* list = panel->findChild<QTreeWidget*>();
    QTRY_VERIFY_WITH_TIMEOUT(!panel->findings().empty() &&
                                 panel->findings().front().severity == PreflightSeverity::error,
                             60'000);
    click(cellOf(*list, list->model()->index(0, 1)));
    const auto buttons = panel->findChildren<QAbstractButton*>();
    const auto fix = std::find_if(buttons.begin(), buttons.end(),
                                  [](QAbstractButton* one) { return one->text() == "&Fix"; });
    QVERIFY(fix != buttons.end());
    const MenuKeys choosing(QKeySequence(Qt::Key_Down, Qt::Key_Return));
    click(middleOf(*fix));
    // The second of two inputs on channel 2 takes the first channel that is free.
    std::int64_t channel = 1;
    KorrinProject expected = states.back();
    while (std::any_of(expected.inputs.begin(), expected.inputs.end(),
                       [&](const InputChannel& input) { return input.channel == channel; }))
      ++channel;
    expected.inputs.edit(expected.inputs.size() - 1).channel = channel;
    expectStep(expected);
  }

  void undoAll() {
    click({view(), canvas().mapFromScene(QPointF(-5400, -3600))});
    for (std::size_t step = states.size() - 1; step-- > 0;) {
      press(QKeySequence::Undo);
      QVERIFY(areEqual(project(), states[step]));
    }
    QCOMPARE(window->plot().history().undoCount(), std::size_t{0});
    press(QKeySequence::Undo);
    QVERIFY(areEqual(project(), states.front()));
  }

  void redoAll() {
    for (std::size_t step = 1; step < states.size(); ++step) {
      press(QKeySequence::Redo);
      QVERIFY(areEqual(project(), states[step]));
    }
    QCOMPARE(window->plot().history().redoCount(), std::size_t{0});
  }

  void save() {
    QVERIFY(window->isWindowModified());
    Answer naming("saveAs", [this](QWidget& dialog) { giveName(dialog); });
    press(QKeySequence::Save);
    QVERIFY(naming.wasAsked() && activate(*window));
    QVERIFY(!window->isWindowModified());
    QFile file(path());
    QVERIFY(file.open(QFile::ReadOnly));
    QVERIFY(areEqual(decodeJSON<KorrinProject>(file.readAll().toStdString()), states.back()));
  }

  void openAgain() {
    Answer choosing("templateChooser",
                    [](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
    press(QKeySequence::New);
    QVERIFY(choosing.wasAsked() && activate(*window));
    QVERIFY(project().items.empty());
    Answer naming("QFileDialog", [this](QWidget& dialog) { giveName(dialog); });
    press(QKeySequence::Open);
    QVERIFY(naming.wasAsked() && activate(*window));
    QVERIFY(areEqual(project(), states.back()));
    QCOMPARE(window->plot().history().undoCount(), std::size_t{0});
    press(QKeySequence::Quit);
    QVERIFY(!window->isVisible());
  }

  const KorrinProject& project() { return window->plot().project(); }
  Canvas& canvas() { return window->canvas(); }
  QWidget* view() { return canvas().viewport(); }
  QString path() const { return folder.filePath("evening.korrin.json"); }

  QPoint placeOf(const PlotItem& item) {
    return canvas().mapFromScene(QPointF(item.position.x, item.position.y));
  }

  PlotItem itemLabelled(const char* label) {
    for (const PlotItem& item : project().items)
      if (item.label == label) return item;
    qFatal("the template has no such item");
  }

  ListPanel* listPanel(const char* key) {
    for (auto* panel : window->findChildren<ListPanel*>())
      if (panel->list().key == key) return panel;
    qFatal("there is no such list");
  }

  void giveName(QWidget& dialog) {
    auto* field = dialog.findChild<QLineEdit*>("fileNameEdit");
    field->setText(path());
    QTest::keyClick(field, Qt::Key_Return);
  }

  // One entry more to undo, and the plot is as expected.
  void expectStep(const KorrinProject& expected) {
    QVERIFY(areEqual(project(), expected));
    QCOMPARE(window->plot().history().undoCount(), states.size());
    states.push_back(expected);
  }

  QTemporaryDir folder;
  std::unique_ptr<MainWindow> window;
  std::vector<KorrinProject> states;
  UUID dropped;
};

}  // namespace
}  // namespace korrin::editor

QTEST_MAIN(korrin::editor::EveningTest)
#include "evening_test.moc"
