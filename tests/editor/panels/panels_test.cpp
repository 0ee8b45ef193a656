// The panels beside the canvas: fields of the selection and of the plot, layers, history, and how
// they play together in the window.

#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QMimeData>
#include <QSettings>
#include <QTest>
#include <QTreeWidget>

#include "korrin/templates/korrin_template.h"

#include "editor/main_window.h"
#include "editor/panels/details_panel.h"
#include "editor/panels/field_editors.h"
#include "editor/panels/findings_panel.h"
#include "editor/panels/history_panel.h"
#include "editor/panels/inspector.h"
#include "editor/panels/layers_panel.h"
#include "editor/panels/list_panel.h"
#include "editor/panels/row_drag.h"
#include "tests/editor/support/answers.h"
#include "tests/editor/support/settings.h"

namespace korrin::editor {
namespace {

KorrinProject trio() { return KorrinProject::template_(KorrinTemplateID::powerTrio); }

void type(QWidget* editor, const QString& text) {
  auto* line = qobject_cast<QLineEdit*>(editor);
  QVERIFY(line != nullptr);
  line->selectAll();
  QTest::keyClick(line, Qt::Key_Delete);
  QTest::keyClicks(line, text);
  QTest::keyClick(line, Qt::Key_Return);
}

class PanelsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    test::useOwnSettings("panels");
    QLocale::setDefault(QLocale::c());
  }

  void init() {
    window = std::make_unique<MainWindow>();
    plot = &window->plot();
    plot->begin(trio());
    window->show();
  }

  void cleanup() { window.reset(); }

  void beginsWithTheInputsInFront() {
    for (const char* panel : {"inputs", "selection", "layers"})
      QTRY_VERIFY2(!window->findChild<QDockWidget*>(panel)->visibleRegion().isEmpty(), panel);
    for (const char* panel : {"findings", "notes", "details", "changes"})
      QVERIFY2(window->findChild<QDockWidget*>(panel)->visibleRegion().isEmpty(), panel);
  }

  void inspectsOneItem() {
    const UUID id = plot->project().items[0].id;
    plot->select({id});
    type(inspector().editor("label"), "Mic 1");
    QCOMPARE(plot->item(id)->label, Text("Mic 1"));
    type(inspector().editor("x"), "250");
    QCOMPARE(plot->item(id)->position.x, 250.0);
    auto* lock = qobject_cast<QCheckBox*>(inspector().editor("isLocked"));
    lock->click();
    QVERIFY(plot->item(id)->isLocked);
    QVERIFY(!inspector().editor("label")->isEnabled());
    lock->click();
    QVERIFY(!plot->item(id)->isLocked);
    QCOMPARE(plot->history().undoCount(), std::size_t{4});
  }

  void inspectsManyItemsAndLeavesAloneWhatDiffers() {
    const IDSet ids{plot->project().items[0].id, plot->project().items[1].id};
    plot->select(ids);
    auto* x = qobject_cast<QLineEdit*>(inspector().editor("x"));
    QCOMPARE(x->text(), QString());
    type(inspector().editor("width"), "640");
    for (const UUID& id : ids) QCOMPARE(plot->item(id)->size.width, 640.0);
    QCOMPARE(plot->history().undoCount(), std::size_t{1});
    plot->undo();
    QCOMPARE(plot->project().items[0].size, trio().items[0].size);
  }

  void doesNotRoundWhatItOnlyShows() {
    List<PlotItem> items{plot->project().items[0]};
    items.edit(0).position.x = 100.0 / 3;
    plot->perform("Move", DocumentCommand::replaceItems(items));
    plot->select({items[0].id});
    auto* x = qobject_cast<QLineEdit*>(inspector().editor("x"));
    x->setFocus();
    QTest::keyClick(x, Qt::Key_Return);
    QCOMPARE(plot->history().undoCount(), std::size_t{1});
    QCOMPARE(plot->item(items[0].id)->position.x, 100.0 / 3);
  }

  void refusesWhatWouldSpoilThePlot() {
    plot->select({plot->project().items[0].id});
    type(inspector().editor("x"), "99999999");
    QCOMPARE(plot->history().undoCount(), std::size_t{0});
    QVERIFY(!qobject_cast<QLineEdit*>(inspector().editor("x"))->text().contains("99999999"));
  }

  void fillsInWhoThePlotIsFor() {
    type(details().editor("title"), "Tonight");
    type(details().editor("eventDate"), "2026-06-12 20:00");
    QCOMPARE(plot->project().metadata.title, Text("Tonight"));
    QVERIFY(plot->project().metadata.eventDate);
    type(details().editor("eventDate"), "soon");
    QVERIFY(plot->project().metadata.eventDate);
    type(details().editor("eventDate"), "");
    QVERIFY(!plot->project().metadata.eventDate);
    QVERIFY(window->windowTitle().contains("Tonight"));
  }

  void changesStageAndSheets() {
    type(details().editor("width"), "9000");
    QCOMPARE(plot->project().stage.size.width, 9000.0);
    qobject_cast<QCheckBox*>(details().editor("includeNotes"))->click();
    QCOMPARE(plot->project().exportSettings.includeNotes, !trio().exportSettings.includeNotes);
    auto* paper = qobject_cast<QComboBox*>(details().editor("paperSize"));
    QTest::keyClick(paper, Qt::Key_Down);
    QCOMPARE(plot->project().exportSettings.paperSize, PaperSize::letter);
    while (plot->history().undoCount() > 0) plot->undo();
    QCOMPARE(plot->project().stage, trio().stage);
    QCOMPARE(paper->currentIndex(), 0);
  }

  void managesLayers() {
    auto* layers = window->findChild<LayersPanel*>();
    const UUID bottom = plot->project().layers[0].id;
    trigger(*layers, "add");
    QCOMPARE(plot->project().layers.size(), std::size_t{2});
    const UUID top = plot->project().layers[1].id;
    QCOMPARE(plot->activeLayer(), std::optional(top));
    QVERIFY(plot->project().layers[1].zIndex > plot->project().layers[0].zIndex);
    trigger(*layers, "down");
    QVERIFY(plot->project().layers[1].zIndex < plot->project().layers[0].zIndex);
    layers->list().topLevelItem(0)->setCheckState(1, Qt::Unchecked);
    QVERIFY(!plot->project().layers[0].isVisible);
    layers->list().topLevelItem(0)->setText(0, "Front");
    QCOMPARE(plot->project().layers[0].name, Text("Front"));
    plot->setActiveLayer(bottom);
    test::Answer answer("removeLayer", "keep");
    trigger(*layers, "remove");
    QVERIFY(answer.wasAsked());
    QCOMPARE(plot->project().layers.size(), std::size_t{1});
    QCOMPARE(plot->project().items.size(), trio().items.size());
    trigger(*layers, "remove");  // The last one stays.
    QCOMPARE(plot->project().layers.size(), std::size_t{1});
  }

  void goesBackAndForthInTheHistory() {
    type(details().editor("title"), "One");
    type(details().editor("artist"), "Two");
    type(details().editor("venue"), "Three");
    auto* history = window->findChild<HistoryPanel*>();
    QCOMPARE(history->count(), 4);
    QCOMPARE(history->currentRow(), 3);
    Q_EMIT history->itemActivated(history->item(1));
    QCOMPARE(plot->project().metadata.title, Text("One"));
    QCOMPARE(plot->project().metadata.artist, trio().metadata.artist);
    QCOMPARE(history->count(), 4);
    Q_EMIT history->itemActivated(history->item(3));
    QCOMPARE(plot->project().metadata.venue, Text("Three"));
  }

  void leadsFromAFindingToTheFieldInQuestion() {
    KorrinProject flawed = trio();
    flawed.monitorMixes.edit(1).outputPatch = "";
    plot->begin(flawed);
    auto* findings = window->findChild<FindingsPanel*>();
    findings->refresh();
    auto* list = findings->findChild<QTreeWidget*>();
    list->setCurrentItem(list->topLevelItem(0));
    Q_EMIT list->itemActivated(list->topLevelItem(0), 0);
    auto* mixes = window->findChild<QDockWidget*>("monitorMixes");
    QVERIFY(!mixes->visibleRegion().isEmpty());
    auto* panel = qobject_cast<ListPanel*>(mixes->widget());
    QCOMPARE(panel->view().currentIndex().row(), 1);
    QCOMPARE(panel->list().columns[std::size_t(panel->view().currentIndex().column())].key,
             std::string_view("outputPatch"));
  }

  void linksARowThatIsDroppedOnASymbol() {
    const PlotItem item = plot->project().items.back();
    const DraggedRows rows{.list = plotListNamed("inputs"), .ids = {plot->project().inputs[0].id}};
    QMimeData data;
    data.setData(DraggedRows::mimeType, rows.bytes());
    Canvas& canvas = window->canvas();
    canvas.zoomToFit();
    const QPoint at = canvas.mapFromScene(item.position.x, item.position.y);
    const auto actions = Qt::MoveAction | Qt::CopyAction;
    QDragEnterEvent enter(at, actions, &data, Qt::LeftButton, {});
    QApplication::sendEvent(canvas.viewport(), &enter);
    QVERIFY(enter.isAccepted());
    QDragMoveEvent move(at, actions, &data, Qt::LeftButton, {});
    QApplication::sendEvent(canvas.viewport(), &move);
    QVERIFY(move.isAccepted());
    QDropEvent drop(at, actions, &data, Qt::LeftButton, {});
    QApplication::sendEvent(canvas.viewport(), &drop);
    QCOMPARE(plot->project().inputs[0].plotItemID, std::optional(item.id));
  }

  void keepsKeysOfATableFromTheCanvas() {
    plot->select({plot->project().items[0].id});
    auto* dock = window->findChild<QDockWidget*>("inputs");
    dock->raise();
    QTableView& table = qobject_cast<ListPanel*>(dock->widget())->view();
    table.setCurrentIndex(table.model()->index(0, 1));
    window->activateWindow();
    table.setFocus();
    QTRY_VERIFY(table.hasFocus());
    QTest::keyClick(&table, Qt::Key_Delete);
    QCOMPARE(plot->project().items.size(), trio().items.size());
    QCOMPARE(plot->project().inputs[0].source, Text());
  }

  void namesEveryWidgetThatTakesTheKeyboard() {
    for (const QWidget* widget : window->findChildren<QWidget*>()) {
      const bool isField = qobject_cast<const QLineEdit*>(widget) != nullptr ||
                           qobject_cast<const QComboBox*>(widget) != nullptr ||
                           qobject_cast<const QAbstractItemView*>(widget) != nullptr;
      // Parts of other widgets have the name of the whole.
      if (!isField || qobject_cast<const QAbstractSpinBox*>(widget->parentWidget()) != nullptr ||
          qobject_cast<const QHeaderView*>(widget) != nullptr)
        continue;
      QVERIFY2(!widget->accessibleName().isEmpty(),
               qPrintable(QString(widget->metaObject()->className()) + " in " +
                          widget->parentWidget()->metaObject()->className()));
    }
  }

 private:
  Inspector& inspector() { return *window->findChild<Inspector*>(); }
  DetailsPanel& details() { return *window->findChild<DetailsPanel*>(); }

  void trigger(QWidget& panel, const QString& action) {
    for (QAction* one : panel.actions())
      if (one->objectName() == action) one->trigger();
  }

  std::unique_ptr<MainWindow> window;
  OpenPlot* plot = nullptr;
};

}  // namespace
}  // namespace korrin::editor

QTEST_MAIN(korrin::editor::PanelsTest)
#include "panels_test.moc"
