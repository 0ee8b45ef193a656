// The canvas in a window, driven by pointer and keys; after each, the plot is compared with what it
// should be.

#include "editor/canvas/canvas.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>

#include "korrin/drawing/outlines.h"
#include "korrin/drawing/symbol_catalogue.h"
#include "korrin/session/item_edits.h"
#include "korrin/session/structural_edits.h"

#include "editor/main_window.h"
#include "editor/menus/clipboard.h"

namespace korrin::editor {
namespace {

// Projects are compared but for the instant that every edit sets.
KorrinProject timeless(KorrinProject project) {
  project.metadata.modifiedAt = {};
  return project;
}

QAction* actionIn(QMenu& menu, const QString& text) {
  for (QAction* action : menu.actions()) {
    if (action->menu() != nullptr) {
      if (QAction* found = actionIn(*action->menu(), text)) return found;
    } else if (QString(action->text()).remove('&') == text) {
      return action;
    }
  }
  return nullptr;
}

class CanvasTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
  }

  void init() {
    // Without groups, so that a click is about one item, and upright, so that handles lie plain.
    KorrinProject project = KorrinProject::example();
    project.groups = {};
    for (std::size_t i = 0; i < project.items.size(); ++i) {
      project.items.edit(i).groupID.reset();
      project.items.edit(i).rotationDegrees = 0;
    }
    plot().begin(std::move(project));
    canvas().zoomToFit();
  }

  void selectsWhatIsClicked() {
    const PlotItem item = freeItem();
    click(placeOf(item));
    QCOMPARE(plot().selection(), IDSet{item.id});
    click(corner());
    QVERIFY(plot().selection().empty());
  }

  void addsToTheSelectionWithShift() {
    const PlotItem first = freeItem();
    const PlotItem second = freeItem(1);
    click(placeOf(first));
    click(placeOf(second), Qt::ShiftModifier);
    QCOMPARE(plot().selection(), (IDSet{first.id, second.id}));
    click(placeOf(first), Qt::ShiftModifier);
    QCOMPARE(plot().selection(), IDSet{second.id});
  }

  void selectsNothingOnALockedLayer() {
    List<PlotLayer> layers = plot().project().layers;
    for (std::size_t i = 0; i < layers.size(); ++i) layers.edit(i).isLocked = true;
    const PlotItem item = freeItem();
    plot().perform("Lock", DocumentCommand::replaceLayers(layers));
    click(placeOf(item));
    QVERIFY(plot().selection().empty());
  }

  void catchesWithARubberBandWhatItEncloses() {
    const QRectF stage = canvas().plotScene().stageBounds().adjusted(-900, -900, 900, 900);
    dragPointer(canvas().mapFromScene(stage.topLeft()), canvas().mapFromScene(stage.bottomRight()));
    QCOMPARE(plot().selection().size(), plot().project().items.size());
    QCOMPARE(plot().history().undoCount(), std::size_t{0});
  }

  void dragsInOneStepThatUndoes() {
    const KorrinProject before = plot().project();
    const PlotItem item = freeItem();
    dragPointer(placeOf(item), placeOf(item) + QPoint(60, 40));
    QCOMPARE(plot().history().undoCount(), std::size_t{1});
    const PlotItem moved = *plot().item(item.id);
    QVERIFY(moved.position.x > item.position.x && moved.position.y > item.position.y);
    PlotItem expected = item;
    expected.position = moved.position;
    QVERIFY(moved == expected);
    plot().undo();
    QVERIFY(timeless(plot().project()) == timeless(before));
  }

  void cancelsADragWithEscape() {
    const KorrinProject before = plot().project();
    const PlotItem item = freeItem();
    QTest::mousePress(view(), Qt::LeftButton, {}, placeOf(item));
    QTest::mouseMove(view(), placeOf(item) + QPoint(50, 50));
    QVERIFY(plot().isInGesture());
    QTest::keyClick(&canvas(), Qt::Key_Escape);
    QTest::mouseRelease(view(), Qt::LeftButton, {}, placeOf(item) + QPoint(50, 50));
    QVERIFY(plot().project() == before);
    QCOMPARE(plot().history().undoCount(), std::size_t{0});
  }

  void snapsToAnotherItem() {
    const Symbol& symbol = builtInSymbols().front();
    const UUID layer = *plot().activeLayer();
    KorrinProject project = KorrinProject::newDocument();
    project.layers = plot().project().layers;
    const PlotItem fixed = makeItem(symbol, {.x = 1234, .y = -2000}, layer);
    const PlotItem item = makeItem(symbol, {.x = -3000, .y = 1777}, layer);
    project.items = {fixed, item};
    plot().begin(std::move(project));
    dragPointer(placeOf(item), {placeOf(fixed).x() + 3, placeOf(item).y()});
    QCOMPARE(plot().item(item.id)->position.x, fixed.position.x);
    plot().undo();
    // Not with Ctrl.
    dragPointer(placeOf(item), {placeOf(fixed).x() + 3, placeOf(item).y()}, Qt::ControlModifier);
    QVERIFY(plot().item(item.id)->position.x > fixed.position.x);
  }

  void nudgesByArrowKeysInOneStep() {
    const PlotItem item = freeItem();
    click(placeOf(item));
    QTest::keyClick(&canvas(), Qt::Key_Right);
    QTest::keyClick(&canvas(), Qt::Key_Right);
    QTest::keyClick(&canvas(), Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(plot().item(item.id)->position.x, item.position.x + 20);
    QCOMPARE(plot().item(item.id)->position.y, item.position.y - 100);
    QCOMPARE(plot().history().undoCount(), std::size_t{1});
  }

  void resizesAndTurnsByHandles() {
    const PlotItem item = freeItem();
    click(placeOf(item));
    const QPoint right =
        canvas().mapFromScene(QPointF(item.position.x + item.size.width / 2, item.position.y));
    dragPointer(right, right + QPoint(40, 0));
    const PlotItem wider = *plot().item(item.id);
    QVERIFY(wider.size.width > item.size.width);
    QCOMPARE(wider.size.height, item.size.height);
    // The left edge stays where it is.
    QCOMPARE(wider.position.x - wider.size.width / 2, item.position.x - item.size.width / 2);
    const QPoint above =
        canvas().mapFromScene(QPointF(wider.position.x, wider.position.y - wider.size.height / 2)) -
        QPoint(0, 24);
    dragPointer(above, placeOf(wider) + QPoint(200, 0));
    QCOMPARE(plot().item(item.id)->rotationDegrees, 90.0);
    QCOMPARE(plot().history().undoCount(), std::size_t{2});
  }

  void editsALabelInPlace() {
    const PlotItem item = freeItem();
    QTest::mouseDClick(view(), Qt::LeftButton, {}, placeOf(item));
    auto* field = view()->findChild<QLineEdit*>();
    QVERIFY(field != nullptr && field->isVisible());
    QTest::keyClicks(field, "Anna");
    QTest::keyClick(field, Qt::Key_Return);
    QVERIFY(!field->isVisible());
    QVERIFY(plot().item(item.id)->label == "Anna");
    QVERIFY(*plot().history().undoName() == "Label");
  }

  void addsWhatIsDroppedWhereItIsDropped() {
    const std::size_t count = plot().project().items.size();
    const Symbol& symbol = builtInSymbols().front();
    QMimeData data;
    data.setData(Canvas::symbolType,
                 QByteArray(symbol.assetID.data(), static_cast<qsizetype>(symbol.assetID.size())));
    const QPoint at = corner();
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(view(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(view(), &drop);
    QCOMPARE(plot().project().items.size(), count + 1);
    const PlotItem& item = plot().project().items[count];
    QVERIFY(item.assetID == symbol.assetID);
    const QPointF place = canvas().mapToScene(at);
    QVERIFY(std::abs(item.position.x - place.x()) <= 0.5);
    QVERIFY(std::abs(item.position.y - place.y()) <= 0.5);
    QCOMPARE(plot().selection(), IDSet{item.id});
  }

  void copiesAndPastesThroughTheSystemsClipboard() {
    const PlotItem item = freeItem();
    click(placeOf(item));
    trigger(window.editMenu(), "Copy");
    const std::size_t count = plot().project().items.size();
    trigger(window.editMenu(), "Paste");
    QCOMPARE(plot().project().items.size(), count + 1);
    PlotItem expected = item;
    const PlotItem& copy = plot().project().items[count];
    expected.id = copy.id;
    expected.position = {.x = item.position.x + 200, .y = item.position.y + 200};
    expected.groupID = std::nullopt;
    QVERIFY(copy == expected);
  }

  void refusesAClipboardThatIsNoPartOfAPlot() {
    auto* data = new QMimeData;
    data->setData("application/x-korrin-fragment", "{\"items\": 3}");
    QGuiApplication::clipboard()->setMimeData(data);
    const KorrinProject before = plot().project();
    QSignalSpy refusals(&plot(), &OpenPlot::refused);
    pasteInto(plot(), {});
    QCOMPARE(refusals.count(), 1);
    QVERIFY(plot().project() == before);
  }

  void undoesAndRedoesAWholeEvening() {
    std::vector<KorrinProject> states = {plot().project()};
    const auto keep = [&] { states.push_back(plot().project()); };
    canvas().addSymbol("krn.audio.wedge.v1", {500, 500});
    keep();
    plot().select(everything());
    for (const char* name : {"Align Left", "Distribute Down", "Turn Right", "Flip Horizontally",
                             "Group", "To Back", "Lock", "Unlock", "Ungroup", "Duplicate"}) {
      const std::size_t count = plot().history().undoCount();
      trigger(name == QString("Duplicate") ? window.editMenu() : window.arrangeMenu(), name);
      if (plot().history().undoCount() > count) keep();
    }
    QTest::keyClick(&canvas(), Qt::Key_Left);
    keep();
    QVERIFY2(states.size() >= 10, "most of these change something");
    QCOMPARE(plot().history().undoCount(), states.size() - 1);
    for (std::size_t i = states.size() - 1; i-- > 0;) {
      plot().undo();
      QVERIFY(timeless(plot().project()) == timeless(states[i]));
    }
    for (std::size_t i = 1; i < states.size(); ++i) {
      plot().redo();
      QVERIFY(timeless(plot().project()) == timeless(states[i]));
    }
  }

  void refreshesNoMoreThanAChangeSetNames() {
    const std::size_t before = canvas().plotScene().refreshes();
    plot().select({freeItem().id});
    QTest::keyClick(&canvas(), Qt::Key_Left);
    QCOMPARE(canvas().plotScene().refreshes(), before + 1);
  }

  void walksThroughTheItemsByTab() {
    QTest::keyClick(&canvas(), Qt::Key_Tab);
    QCOMPARE(plot().selection(), IDSet{plot().project().items[0].id});
    QTest::keyClick(&canvas(), Qt::Key_Tab);
    QCOMPARE(plot().selection(), IDSet{plot().project().items[1].id});
    QTest::keyClick(&canvas(), Qt::Key_Backtab);
    QCOMPARE(plot().selection(), IDSet{plot().project().items[0].id});
  }

  void zoomsAtThePointer() {
    const QPoint at = placeOf(freeItem());
    const QPointF place = canvas().mapToScene(at);
    const double zoom = canvas().zoom();
    QWheelEvent wheel(at, view()->mapToGlobal(at), {}, {0, 240}, Qt::NoButton, Qt::ControlModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(view(), &wheel);
    QVERIFY(canvas().zoom() > 1.4 * zoom);
    const QPointF off = canvas().mapToScene(at) - place;
    QVERIFY(std::hypot(off.x(), off.y()) * canvas().zoom() <= 2);
  }

  void movesOneOfAThousandItemsWithoutDelay() {
    List<PlotItem> items;
    for (int i = 0; i < 1000; ++i)
      items.push_back(makeItem(builtInSymbols()[static_cast<std::size_t>(i) % 20],
                               {.x = -5000.0 + 250 * (i % 40), .y = -3500.0 + 280 * (i / 40)},
                               *plot().activeLayer()));
    plot().perform("Fill", DocumentCommand::insertItems(items));
    plot().select({items[500].id});
    plot().beginGesture("Move");
    std::vector<qint64> times;
    for (int step = 0; step < 60; ++step) {
      QElapsedTimer timer;
      timer.start();
      plot().perform("", movingCommand(plot().project(), plot().selection(), {7, 3}));
      view()->repaint(canvas().mapFromScene(boundsOf(*plot().item(items[500].id))).boundingRect());
      QApplication::processEvents();
      times.push_back(timer.nsecsElapsed());
    }
    plot().endGesture();
    std::nth_element(times.begin(), times.begin() + 30, times.end());
    const double milliseconds = static_cast<double>(times[30]) / 1e6;
    qInfo("a step of a drag among 1,000 items: %.2f ms (median)", milliseconds);
    // Ten times of what it takes on an idle machine: a walk over all items for each is found.
    QVERIFY(milliseconds < 100);
  }

 private:
  OpenPlot& plot() { return window.plot(); }
  Canvas& canvas() { return window.canvas(); }
  QWidget* view() { return canvas().viewport(); }

  QPoint placeOf(const PlotItem& item) {
    return canvas().mapFromScene(QPointF(item.position.x, item.position.y));
  }
  /// A place on the stage where nothing lies.
  QPoint corner() { return canvas().mapFromScene(QPointF(-5400, -3600)); }

  /// The n-th item whose centre nothing covers.
  PlotItem freeItem(std::size_t n = 0) {
    for (const PlotItem& item : plot().project().items) {
      const auto under = itemsAt(plot().project(), item.position);
      const bool isTop = !under.empty() && under.front() == item.id;
      if (isTop && item.rotationDegrees == 0 && n-- == 0) return item;
    }
    qFatal("the plot has too few free items");
  }

  IDSet everything() {
    IDSet ids;
    for (const PlotItem& item : plot().project().items) ids.insert(item.id);
    return ids;
  }

  void click(const QPoint& at, Qt::KeyboardModifiers keys = {}) {
    QTest::mouseClick(view(), Qt::LeftButton, keys, at);
  }

  void dragPointer(const QPoint& from, const QPoint& to, Qt::KeyboardModifiers keys = {}) {
    QTest::mousePress(view(), Qt::LeftButton, keys, from);
    for (int step = 1; step <= 5; ++step) {
      const QPoint at = from + (to - from) * step / 5;
      QMouseEvent move(QEvent::MouseMove, at, view()->mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                       keys);
      QApplication::sendEvent(view(), &move);
    }
    QTest::mouseRelease(view(), Qt::LeftButton, keys, to);
  }

  void trigger(QMenu& menu, const QString& text) {
    QAction* action = actionIn(menu, text);
    QVERIFY2(action != nullptr, qPrintable(text));
    action->trigger();
  }

  MainWindow window;
};

}  // namespace
}  // namespace korrin::editor

QTEST_MAIN(korrin::editor::CanvasTest)
#include "canvas_test.moc"
