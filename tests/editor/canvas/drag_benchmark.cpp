// What a step of a drag takes in a whole window among 1,000 items: from the event of the pointer to
// the picture on the screen. Prints milliseconds: korrin-editor-benchmark.

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <cstdio>

#include "korrin/drawing/symbol_catalogue.h"

#include "editor/dialogs/insert_images.h"
#include "editor/files/paths.h"
#include "editor/main_window.h"
#include "editor/panels/findings_panel.h"
#include "editor/plot/plot_artwork.h"
#include "tests/editor/support/hands.h"

namespace korrin::editor {
namespace {

constexpr int itemCount = 1'000;
constexpr int stepCount = 300;

// Rows of symbols of all kinds, which overlap as little as on a real stage; every fourth has an
// input, so that the lists and the findings are those of a large plot as well.
KorrinProject crowdedPlot() {
  KorrinProject project = KorrinProject::newDocument();
  project.stage.size = {.width = 60'000, .height = 40'000};
  const UUID layer = project.layers.front().id;
  const auto symbols = builtInSymbols();
  for (int i = 0; i < itemCount; ++i) {
    const StagePoint place = {.x = -28'500.0 + 1'500 * (i % 40), .y = -18'000.0 + 1'500 * (i / 40)};
    project.items.push_back(
        makeItem(symbols[static_cast<std::size_t>(i) % symbols.size()], place, layer));
    if (i % 4 == 0)
      project.inputs.push_back({.id = UUID::random(),
                                .channel = i / 4 + 1,
                                .source = "Source",
                                .microphoneOrDI = "DI",
                                .stand = "",
                                .phantomPower = false,
                                .notes = "",
                                .plotItemID = project.items[static_cast<std::size_t>(i)].id});
  }
  return project;
}

void print(const char* what, std::vector<double> times) {
  std::sort(times.begin(), times.end());
  const auto at = [&](double part) {
    return times[static_cast<std::size_t>(part * static_cast<double>(times.size() - 1))];
  };
  std::printf("%-44s %8.2f %8.2f %8.2f\n", what, at(0.5), at(0.95), at(1));
}

double millisecondsSince(const QElapsedTimer& timer) {
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

void measureDrag(MainWindow& window, const char* what, int selected) {
  const List<PlotItem>& items = window.plot().project().items;
  constexpr std::size_t held = itemCount / 2;
  IDSet ids;
  for (int i = 0; i < selected; ++i)
    ids.insert(items[(held + static_cast<std::size_t>(i)) % itemCount].id);
  window.plot().select(ids);
  Canvas& canvas = window.canvas();
  QWidget* view = canvas.viewport();
  const QPoint from = canvas.mapFromScene(QPointF(items[held].position.x, items[held].position.y));
  QApplication::processEvents();

  std::vector<double> times;
  QTest::mousePress(view, Qt::LeftButton, {}, from);
  for (int step = 1; step <= stepCount; ++step) {
    // Around a circle, as fast as a hand moves.
    const double angle = 6.283 * step / 60;
    const QPoint at = from + QPoint(static_cast<int>(120 * std::sin(angle)),
                                    static_cast<int>(120 - 120 * std::cos(angle)));
    QMouseEvent move(QEvent::MouseMove, at, view->mapToGlobal(at), Qt::NoButton, Qt::LeftButton,
                     {});
    QElapsedTimer timer;
    timer.start();
    QApplication::sendEvent(view, &move);
    QApplication::processEvents();  // paints, and whatever else the step has set off
    times.push_back(millisecondsSince(timer));
  }
  QElapsedTimer timer;
  timer.start();
  QTest::mouseRelease(view, Qt::LeftButton, {}, from);
  QApplication::processEvents();
  const double atTheEnd = millisecondsSince(timer);
  print(what, times);
  print("  letting go", {atTheEnd});
  window.plot().undo();
}

// Saving a plot of 20 images of 5 MB elsewhere: how long it takes, and for how long at most the
// window does not answer meanwhile.
void measureSavingElsewhere(MainWindow& window) {
  const QTemporaryDir folder;
  PlotArtwork& artwork = window.plot().artwork();
  artwork.setSharedFolder(toPath(folder.filePath("shared")));
  window.plot().begin(KorrinProject::newDocument());
  constexpr int side = 1'300;  // of noise, which no format makes smaller
  QStringList paths;
  for (int i = 0; i < 20; ++i) {
    QImage noise(side, side, QImage::Format_RGB32);
    for (int y = 0; y < side; ++y)
      QRandomGenerator(quint32(side * i + y))
          .fillRange(reinterpret_cast<quint32*>(noise.scanLine(y)), side);
    paths += folder.filePath(QString("%1.png").arg(i));
    noise.save(paths.last());
  }
  insertImages(window.plot(), paths, {0, 0}, &window);
  QElapsedTimer sinceTick;
  double longest = 0;
  QTimer ticks;
  QObject::connect(&ticks, &QTimer::timeout, &window, [&] {
    longest = std::max(longest, millisecondsSince(sinceTick));
    sinceTick.start();
  });
  ticks.start(1);
  QElapsedTimer whole;
  whole.start();
  sinceTick.start();
  artwork.bringTo(toPath(folder.filePath("elsewhere.json")));
  longest = std::max(longest, millisecondsSince(sinceTick));
  print("copying 20 images of 5 MB", {millisecondsSince(whole)});
  print("  of which the window stands still at most", {longest});
}

}  // namespace
}  // namespace korrin::editor

int main(int argc, char** argv) {
  using namespace korrin::editor;
  QApplication application(argc, argv);
  MainWindow window;
  window.plot().begin(crowdedPlot());
  window.show();
  if (!QTest::qWaitForWindowExposed(&window)) return 1;
  window.canvas().zoomToFit();
  QApplication::processEvents();
  std::printf("%-44s %8s %8s %8s\n", "milliseconds, 1,000 items", "median", "95 %", "most");
  measureDrag(window, "a step of a drag of one item", 1);
  measureDrag(window, "a step of a drag of 100 items", 100);
  measureDrag(window, "a step of a drag of all items", itemCount);
  auto* findings = window.findChild<FindingsPanel*>();
  std::vector<double> times;
  for (int i = 0; i < 20; ++i) {
    QElapsedTimer timer;
    timer.start();
    findings->refresh();
    times.push_back(millisecondsSince(timer));
  }
  print("looking for findings, after an edit", times);
  measureSavingElsewhere(window);
  window.plot().markSaved();
  return 0;
}
