#pragma once

// A user at a window: what is pressed and moved here reaches the window as the system's events do,
// and finds its own way to widgets, shortcuts, menus and drags.

#include <QAbstractItemView>
#include <QApplication>
#include <QMouseEvent>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <QWindow>
#include <functional>

namespace korrin::editor::test {

/// A place in a widget, in its own pixels.
struct Spot {
  QWidget* widget;
  QPoint at;

  QWindow* window() const { return widget->window()->windowHandle(); }
  QPoint inWindow() const { return widget->mapTo(widget->window(), at); }
};

inline Spot middleOf(QWidget* widget) { return {widget, widget->rect().center()}; }

inline Spot cellOf(QAbstractItemView& view, const QModelIndex& index) {
  view.scrollTo(index);
  return {view.viewport(), view.visualRect(index).center()};
}

inline void click(const Spot& spot, Qt::KeyboardModifiers keys = {}) {
  QTest::mouseClick(spot.window(), Qt::LeftButton, keys, spot.inWindow());
}

inline void doubleClick(const Spot& spot) {
  QTest::mouseDClick(spot.window(), Qt::LeftButton, {}, spot.inWindow());
}

/// Presses keys in the window that is active, whatever has the focus there.
inline void press(const QKeySequence& keys) {
  for (int i = 0; i < keys.count(); ++i)
    QTest::keyClick(QApplication::focusWindow(), keys[uint(i)].key(),
                    keys[uint(i)].keyboardModifiers());
}

inline void type(const char* text) {
  for (; *text != 0; ++text) QTest::keyClick(QApplication::focusWindow(), *text);
}

/// Gives a window the keyboard, as a manager of windows would; a bare screen has none. To be called
/// at the beginning, and after each dialog.
inline bool activate(QWidget& window) {
  window.activateWindow();
  return QTest::qWaitForWindowActive(&window, 60'000);
}

/// Drags within one widget, by several moves.
inline void drag(QWidget* widget, const QPoint& from, const QPoint& to,
                 Qt::KeyboardModifiers keys = {}) {
  const auto spot = [&](int step) { return Spot{widget, from + (to - from) * step / 5}; };
  QTest::mousePress(spot(0).window(), Qt::LeftButton, keys, spot(0).inWindow());
  for (int step = 1; step <= 5; ++step) {
    // The moves of a user's pointer bear the keys that are held; those of QTest bear none.
    const Spot at = spot(step);
    QMouseEvent move(QEvent::MouseMove, at.at, widget->mapToGlobal(at.at), Qt::NoButton,
                     Qt::LeftButton, keys);
    QApplication::sendEvent(widget, &move);
  }
  QTest::mouseRelease(spot(5).window(), Qt::LeftButton, keys, spot(5).inWindow());
}

/// Drags from one widget onto another and drops there. Waits at each step for what the system
/// answers: that a drag began, and that the other widget would take what is dragged.
class DragAndDrop : public QObject {
 public:
  DragAndDrop(const Spot& from, const Spot& to) : to_(to) {
    to.widget->installEventFilter(this);
    QTest::mousePress(from.window(), Qt::LeftButton, {}, from.inWindow());
    const QPoint step(QApplication::startDragDistance() + 1, 0);
    QTest::mouseMove(from.window(), from.inWindow() + step);
    waitALittle();
    // Begins the drag, and returns when it has ended.
    QTest::mouseMove(from.window(), from.inWindow() + 2 * step);
  }

  bool wasDropped() const { return wasDropped_; }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::DragMove) isOver_ = true;
    if (event->type() == QEvent::Drop) wasDropped_ = true;
    return false;
  }

 private:
  // Always another timer: one whose slot is inside the drag's own loop would not fire again.
  void waitALittle() { QTimer::singleShot(5, this, &DragAndDrop::goOn); }

  void goOn() {
    if (wasDropped_) return;
    constexpr int patience = 4000;
    if (++tries_ > patience) {
      QTest::keyClick(to_.window(), Qt::Key_Escape);
      return;
    }
    waitALittle();
    if (isOver_ && isThere_)
      QTest::mouseRelease(to_.window(), Qt::LeftButton, {}, to_.inWindow());
    else
      QTest::mouseMove(to_.window(), to_.inWindow());
    isThere_ = isOver_;
  }

  Spot to_;
  int tries_ = 0;
  bool isOver_ = false;
  bool isThere_ = false;
  bool wasDropped_ = false;
};

/// Waits for a menu and presses keys in it.
class MenuKeys : public QObject {
 public:
  explicit MenuKeys(const QKeySequence& keys) {
    connect(&timer_, &QTimer::timeout, this, [this, keys] {
      QWidget* menu = QApplication::activePopupWidget();
      if (menu == nullptr) return;
      timer_.stop();
      for (int i = 0; i < keys.count(); ++i) QTest::keyClick(menu, keys[uint(i)].key());
    });
    timer_.start(5);
  }

 private:
  QTimer timer_;
};

/// The tab that brings a panel to the front; its title may be followed by a number.
inline Spot tabOf(QWidget& window, const QString& title) {
  for (auto* bar : window.findChildren<QTabBar*>())
    for (int i = 0; i < bar->count(); ++i)
      if (bar->isVisible() && bar->tabText(i).startsWith(title))
        return {bar, bar->tabRect(i).center()};
  qFatal("there is no tab for a panel");
}

}  // namespace korrin::editor::test
