// The layout of the window from one run to the next, and settings that are damaged.

#include "editor/look/window_layout.h"

#include <QAction>
#include <QDir>
#include <QDockWidget>
#include <QFileInfo>
#include <QMenu>
#include <QSettings>
#include <QTest>
#include <memory>

#include "editor/main_window.h"
#include "tests/editor/support/settings.h"

namespace korrin::editor {
namespace {

class WindowLayoutTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() { test::useOwnSettings("window-layout"); }

  void init() { QSettings().clear(); }

  void comesBackAsItWas() {
    const auto first = opened();
    first->resize(1200, 700);
    dock(*first, "layers").hide();
    first->addDockWidget(Qt::RightDockWidgetArea, &dock(*first, "symbols"));
    first->resizeDocks({&dock(*first, "inputs")}, {280}, Qt::Vertical);
    QApplication::processEvents();
    const int height = dock(*first, "inputs").height();
    first->close();

    const auto second = opened();
    QCOMPARE(second->size(), QSize(1200, 700));
    QVERIFY(!dock(*second, "layers").isVisible());
    QVERIFY(dock(*second, "history").isVisible());
    QCOMPARE(second->dockWidgetArea(&dock(*second, "symbols")), Qt::RightDockWidgetArea);
    QTRY_COMPARE(dock(*second, "inputs").height(), height);
  }

  void goesBackToTheStandard() {
    const auto window = opened();
    dock(*window, "layers").hide();
    window->addDockWidget(Qt::RightDockWidgetArea, &dock(*window, "symbols"));
    for (QAction* action : window->viewMenu().actions())
      if (action->text() == "Standard La&yout") action->trigger();
    QVERIFY(isStandard(*window));
  }

  void isTheStandardWhereSettingsAreDamaged() {
    for (const QByteArray& damage :
         {QByteArray("no layout"), QByteArray(4096, '\xff'), QByteArray("\0\0\0\xff\0\0\0\1", 8),
          opened()->saveState(1).left(40)}) {
      QSettings().setValue("window/geometry", damage);
      QSettings().setValue("window/panels", damage);
      QVERIFY2(isStandard(*opened()), damage.toHex().constData());
    }
    QSettings().setValue("window/panels", QStringList{"of", "another", "kind"});
    QVERIFY(isStandard(*opened()));
  }

  void isTheStandardWhereTheFileOfSettingsIsGarbage() {
    const QString path = QSettings().fileName();
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile file(path);
    QVERIFY(file.open(QFile::WriteOnly));
    file.write("[window\ngeometry=@ByteArray(\\x\n\0\xff]]=[", 40);
    file.close();
    const auto window = opened();
    QVERIFY(isStandard(*window));
    window->close();
  }

 private:
  static std::unique_ptr<MainWindow> opened() {
    auto window = std::make_unique<MainWindow>();
    rememberLayout(*window);
    window->show();
    return window;
  }

  static QDockWidget& dock(MainWindow& window, const char* name) {
    auto* found = window.findChild<QDockWidget*>(name);
    if (found == nullptr) qFatal("there is no panel of this name");
    return *found;
  }

  static bool isStandard(MainWindow& window) {
    // The changes keep out of the way until something is compared.
    bool isAsMade = true;
    for (auto* one : window.findChildren<QDockWidget*>())
      isAsMade &= one->isHidden() == (one->objectName() == "changes");
    return isAsMade && window.dockWidgetArea(&dock(window, "symbols")) == Qt::LeftDockWidgetArea &&
           window.width() >= 800 && window.height() >= 500;
  }
};

}  // namespace
}  // namespace korrin::editor

QTEST_MAIN(korrin::editor::WindowLayoutTest)
#include "window_layout_test.moc"
