// Lists of the plot as tables: cells edited by keyboard, rows added, moved, dragged and linked, and
// what spreadsheets put on the clipboard.

#include "editor/panels/list_panel.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMimeData>
#include <QSignalSpy>
#include <QTest>

#include "korrin/templates/korrin_template.h"

#include "editor/panels/row_drag.h"
#include "tests/editor/support/answers.h"

namespace korrin::editor {
namespace {

using test::Answer;

KorrinProject trio() { return KorrinProject::template_(KorrinTemplateID::powerTrio); }

int columnOf(const PlotList& list, std::string_view key) {
  for (std::size_t i = 0; i < list.columns.size(); ++i)
    if (list.columns[i].key == key) return int(i);
  return -1;
}

class ListPanelTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    plot = std::make_unique<OpenPlot>();
    plot->begin(trio());
    panel = std::make_unique<ListPanel>(*plot, *plotListNamed("inputs"));
    panel->resize(900, 300);
    panel->show();
    count = plot->project().inputs.size();
  }

  void cleanup() {
    panel.reset();
    plot.reset();
  }

  void showsEveryFieldOfEveryList() {
    for (const PlotList* list : plotLists()) {
      ListModel model(*plot, *list);
      QCOMPARE(std::size_t(model.rowCount()), list->size(plot->project()));
      for (int row = 0; row < model.rowCount(); ++row)
        for (int column = 0; column < model.columnCount(); ++column) {
          const QModelIndex cell = model.index(row, column);
          QVERIFY(cell.data().isValid() || cell.data(Qt::CheckStateRole).isValid());
        }
    }
  }

  void editsACellInPlaceAsOneStep() {
    edit(0, "source", "Kick out");
    QTRY_COMPARE(plot->project().inputs[0].source, Text("Kick out"));
    QCOMPARE(plot->history().undoCount(), std::size_t{1});
    plot->undo();
    QCOMPARE(cell(0, "source").data().toString(),
             QString::fromStdString(trio().inputs[0].source.str()));
  }

  void takesNoTextForANumber() {
    QSignalSpy sentences(panel.get(), &ListPanel::said);
    QVERIFY(!panel->model().setData(cell(0, "channel"), "seven"));
    QCOMPARE(sentences.size(), 1);
    QVERIFY(panel->model().setData(cell(0, "channel"), ""));
    QVERIFY(!plot->project().inputs[0].channel);
  }

  void leavesNoTraceOfAnEditorThatWasOnlyOpened() {
    panel->view().setCurrentIndex(cell(0, "source"));
    QTest::keyClick(&panel->view(), Qt::Key_F2);
    QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : &panel->view(),
                    Qt::Key_Return);
    QVERIFY(panel->model().setData(cell(0, "source"), cell(0, "source").data(Qt::EditRole)));
    QCOMPARE(plot->history().undoCount(), std::size_t{0});
  }

  void switchesPhantomPower() {
    const bool before = plot->project().inputs[1].phantomPower;
    QVERIFY(panel->model().setData(cell(1, "phantomPower"), before ? Qt::Unchecked : Qt::Checked,
                                   Qt::CheckStateRole));
    QCOMPARE(plot->project().inputs[1].phantomPower, !before);
  }

  void addsAndRemovesRows() {
    panel->view().setCurrentIndex(cell(0, "source"));
    trigger("add");
    QCOMPARE(plot->project().inputs.size(), count + 1);
    QCOMPARE(panel->view().currentIndex().row(), 1);
    panel->view().setCurrentIndex(cell(1, "source"));
    trigger("remove");
    QVERIFY(plot->project().inputs == trio().inputs || plot->project().inputs.size() == count);
    QCOMPARE(plot->history().undoCount(), std::size_t{2});
  }

  void movesRowsAndKeepsThemSelected() {
    const UUID first = plot->project().inputs[0].id;
    panel->view().setCurrentIndex(cell(0, "source"));
    trigger("down");
    QCOMPARE(plot->project().inputs[1].id, first);
    QCOMPARE(panel->view().currentIndex().row(), 1);
    trigger("up");
    QCOMPARE(plot->project().inputs[0].id, first);
    trigger("up");  // There is nothing above.
    QCOMPARE(plot->history().undoCount(), std::size_t{2});
  }

  void reordersByDragging() {
    const UUID moved = plot->project().inputs[0].id;
    std::unique_ptr<QMimeData> data(panel->model().mimeData({cell(0, "source")}));
    panel->model().dropMimeData(data.get(), Qt::MoveAction, 3, 0, {});
    QCOMPARE(plot->project().inputs[2].id, moved);
    QCOMPARE(plot->project().inputs.size(), count);
  }

  void takesRowsOfItsOwnListOnly() {
    ListModel mixes(*plot, *plotListNamed("monitorMixes"));
    std::unique_ptr<QMimeData> data(mixes.mimeData({mixes.index(0, 0)}));
    panel->model().dropMimeData(data.get(), Qt::MoveAction, 0, 0, {});
    QCOMPARE(plot->history().undoCount(), std::size_t{0});
  }

  void linksTheSelectedSymbol() {
    const UUID item = plot->project().items[2].id;
    plot->select({item});
    panel->view().setCurrentIndex(cell(0, "source"));
    trigger("link");
    QCOMPARE(plot->project().inputs[0].plotItemID, std::optional(item));
    QVERIFY(!cell(0, "plotItemID").data().toString().isEmpty());
    trigger("unlink");
    QVERIFY(!plot->project().inputs[0].plotItemID);
    QCOMPARE(cell(0, "plotItemID").data().toString(), QString());
  }

  void linksASymbolThatIsChosenByTyping() {
    plot->select({});
    PlotItem bass = plot->project().items[1];
    bass.label = "Bongos of the guest";
    plot->perform("Rename", DocumentCommand::replaceItems({bass}));
    panel->view().setCurrentIndex(cell(0, "source"));
    Answer answer("itemChooser", [](QWidget& dialog) {
      auto* search = dialog.findChild<QLineEdit*>();
      QTest::keyClicks(search, "guest bong");
      QTest::keyClick(search, Qt::Key_Return);
    });
    trigger("linkTo");
    QVERIFY(answer.wasAsked());
    QCOMPARE(plot->project().inputs[0].plotItemID, std::optional(bass.id));
    QVERIFY(plot->selection().empty());

    // What fits no word can't be chosen, and Escape leaves everything as it is.
    const std::size_t edits = plot->history().undoCount();
    Answer none("itemChooser", [](QWidget& dialog) {
      auto* search = dialog.findChild<QLineEdit*>();
      QTest::keyClicks(search, "xylophone of nobody");
      QTest::keyClick(search, Qt::Key_Return);
      QVERIFY(dialog.isVisible());
      QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    trigger("linkTo");
    QVERIFY(none.wasAsked());
    QCOMPARE(plot->history().undoCount(), edits);
  }

  void keepsWhatIsDraggedThroughMimeData() {
    std::unique_ptr<QMimeData> data(
        panel->model().mimeData({cell(2, "source"), cell(0, "notes"), cell(0, "source")}));
    const auto rows = draggedRows(data->data(DraggedRows::mimeType));
    QVERIFY(rows);
    QCOMPARE(rows->list, plotListNamed("inputs"));
    QCOMPARE(rows->ids, (std::vector{plot->project().inputs[0].id, plot->project().inputs[2].id}));
    const UUID item = plot->project().items.back().id;
    QVERIFY(link(*plot, *rows, item));
    QCOMPARE(plot->project().inputs[2].plotItemID, std::optional(item));
    QVERIFY(!link(*plot, *rows, item));
    QVERIFY(!draggedRows("nothing\nof this"));
  }

  void pastesFromASpreadsheet() {
    QApplication::clipboard()->setText("7\tBass\tDI\t\tyes\n8\t\"Keys\tleft\"\tDI\t\tno\n");
    panel->view().setCurrentIndex(cell(int(count) - 1, "channel"));
    QTest::keySequence(&panel->view(), QKeySequence(QKeySequence::Paste));
    QCOMPARE(plot->project().inputs.size(), count + 1);
    QCOMPARE(plot->project().inputs[count - 1].channel, std::optional<std::int64_t>(7));
    QVERIFY(plot->project().inputs[count - 1].phantomPower);
    QCOMPARE(plot->project().inputs[count].source, Text("Keys\tleft"));
    QCOMPARE(plot->history().undoCount(), std::size_t{1});
  }

  void saysHowManyPastedCellsDoNotFit() {
    QSignalSpy sentences(panel.get(), &ListPanel::said);
    QApplication::clipboard()->setText("one\tBass");
    panel->view().setCurrentIndex(cell(0, "channel"));
    QTest::keySequence(&panel->view(), QKeySequence(QKeySequence::Paste));
    QCOMPARE(sentences.size(), 1);
    QCOMPARE(plot->project().inputs[0].source, Text("Bass"));
    QCOMPARE(plot->project().inputs[0].channel, trio().inputs[0].channel);
  }

  void readsWhatItCopies() {
    panel->view().selectAll();
    const QString text = panel->model().textOf(panel->view().selectionModel()->selectedIndexes());
    OpenPlot other;
    ListModel model(other, *plotListNamed("inputs"));
    model.paste(text, {});
    QCOMPARE(other.project().inputs.size(), count);
    for (std::size_t row = 0; row < count; ++row) {
      QCOMPARE(other.project().inputs[row].source, plot->project().inputs[row].source);
      QCOMPARE(other.project().inputs[row].phantomPower, plot->project().inputs[row].phantomPower);
      QCOMPARE(other.project().inputs[row].channel, plot->project().inputs[row].channel);
    }
  }

  void readsCellsInQuotationMarks() {
    const auto cells = cellsOf("a\t\"b\n\"\"c\"\"\"\r\n\td\n");
    QCOMPARE(cells.size(), std::size_t{2});
    QCOMPARE(cells[0], (QStringList{"a", "b\n\"c\""}));
    QCOMPARE(cells[1], (QStringList{"", "d"}));
    QVERIFY(cellsOf("").empty());
  }

  void emptiesTheSelectedCells() {
    panel->view().setCurrentIndex(cell(0, "source"));
    QTest::keyClick(&panel->view(), Qt::Key_Delete);
    QCOMPARE(plot->project().inputs[0].source, Text());
    QCOMPARE(plot->project().inputs.size(), count);
  }

  void keepsTheSelectionWhereOtherRowsGo() {
    panel->view().setCurrentIndex(cell(2, "source"));
    KorrinProject fewer = plot->project();
    fewer.inputs.erase(0);
    plot->perform("Remove", DocumentCommand::replaceInputs(fewer.inputs));
    QCOMPARE(panel->view().currentIndex().row(), 1);
  }

 private:
  QModelIndex cell(int row, std::string_view key) const {
    return panel->model().index(row, columnOf(panel->list(), key));
  }

  void edit(int row, std::string_view key, const QString& text) {
    panel->view().setCurrentIndex(cell(row, key));
    panel->view().edit(cell(row, key));
    auto* editor = panel->view().findChild<QLineEdit*>();
    QVERIFY(editor != nullptr);
    editor->selectAll();
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
  }

  void trigger(const QString& action) {
    QAction* found = nullptr;
    for (QAction* one : panel->actions())
      if (one->objectName() == action) found = one;
    QVERIFY(found != nullptr);
    QVERIFY2(found->isEnabled(), qPrintable(action));
    found->trigger();
  }

  std::unique_ptr<OpenPlot> plot;
  std::unique_ptr<ListPanel> panel;
  std::size_t count = 0;
};

}  // namespace
}  // namespace korrin::editor

QTEST_MAIN(korrin::editor::ListPanelTest)
#include "list_panel_test.moc"
