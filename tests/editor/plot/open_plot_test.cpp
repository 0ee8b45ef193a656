// The plot behind the window: edits, gestures, what is selected, and what is refused.

#include "editor/plot/open_plot.h"

#include <QSignalSpy>
#include <QTest>

#include "korrin/drawing/symbol_catalogue.h"
#include "korrin/session/structural_edits.h"
#include "korrin/templates/korrin_template.h"

namespace korrin::editor {
namespace {

KorrinProject trio() { return KorrinProject::template_(KorrinTemplateID::powerTrio); }

// Projects are compared but for the instant that every edit sets.
KorrinProject timeless(KorrinProject project) {
  project.metadata.modifiedAt = {};
  return project;
}

IDSet everything(const KorrinProject& project) {
  IDSet ids;
  for (const PlotItem& item : project.items) ids.insert(item.id);
  return ids;
}

class OpenPlotTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { plot.begin(trio()); }

  void undoesADragAsOneStep() {
    const KorrinProject before = plot.project();
    plot.select(everything(before));
    plot.beginGesture("Move");
    for (int step = 0; step < 10; ++step)
      QVERIFY(plot.perform("", movingCommand(plot.project(), plot.selection(), {10, 0})));
    plot.endGesture();
    QCOMPARE(plot.history().undoCount(), std::size_t{1});
    QVERIFY(timeless(plot.project()) != timeless(before));
    plot.undo();
    QVERIFY(timeless(plot.project()) == timeless(before));
    QCOMPARE(plot.selection().size(), before.items.size());
  }

  void leavesNoTraceOfACancelledDrag() {
    const KorrinProject before = plot.project();
    plot.select(everything(before));
    plot.beginGesture("Move");
    plot.perform("", movingCommand(plot.project(), plot.selection(), {10, 0}));
    plot.cancelGesture();
    QVERIFY(plot.project() == before);
    QVERIFY(plot.history().isSaved());
  }

  void refusesAnEditThatWouldSpoilThePlot() {
    QSignalSpy refusals(&plot, &OpenPlot::refused);
    const KorrinProject before = plot.project();
    StageDefinition stage = before.stage;
    stage.size.width = -1;
    QVERIFY(!plot.perform("Stage", DocumentCommand::replaceStage(stage)));
    QCOMPARE(refusals.count(), 1);
    QVERIFY(plot.project() == before);
    QCOMPARE(plot.history().undoCount(), std::size_t{0});
  }

  void takesBackAGestureThatEndsInAnUnsafePlot() {
    QSignalSpy refusals(&plot, &OpenPlot::refused);
    const KorrinProject before = plot.project();
    plot.select(everything(before));
    plot.beginGesture("Move");
    plot.perform("", movingCommand(plot.project(), plot.selection(), {5e6, 0}));
    plot.endGesture();
    QCOMPARE(refusals.count(), 1);
    QVERIFY(plot.project() == before);
    QVERIFY(!plot.isInGesture());
  }

  void forgetsTheSelectionOfWhatIsGone() {
    plot.select(everything(plot.project()));
    plot.perform("Delete", deletingCommand(plot.project(), plot.selection()));
    QVERIFY(plot.selection().empty());
    plot.undo();
    QCOMPARE(plot.selection(), everything(plot.project()));
  }

  void selectsNothingOnAHiddenLayer() {
    List<PlotLayer> layers = plot.project().layers;
    layers.edit(0).isVisible = false;
    plot.select(everything(plot.project()));
    plot.perform("Hide", DocumentCommand::replaceLayers(layers));
    for (const PlotItem* item : plot.selectedItems()) QVERIFY(plot.project().canSelectItem(*item));
    QVERIFY(plot.selection().size() < plot.project().items.size());
  }

 private:
  OpenPlot plot;
};

}  // namespace
}  // namespace korrin::editor

QTEST_MAIN(korrin::editor::OpenPlotTest)
#include "open_plot_test.moc"
