#pragma once

// Answers to questions that a window asks while a test waits for it.

#include <QAbstractButton>
#include <QApplication>
#include <QPointer>
#include <QTimer>

namespace korrin::editor::test {

/// Waits for a dialog of this name and does something with it. `wasAsked` tells whether it came.
class Answer : public QObject {
 public:
  /// Presses the button of this name.
  Answer(const QString& dialog, const QString& button)
      : Answer(dialog, [button](QWidget& widget) {
          if (auto* found = widget.findChild<QAbstractButton*>(button)) found->click();
        }) {}

  Answer(const QString& dialog, std::function<void(QWidget&)> act) {
    connect(&timer_, &QTimer::timeout, this, [this, dialog, act] {
      QWidget* widget = QApplication::activeModalWidget();
      if (widget == nullptr || widget->objectName() != dialog) return;
      timer_.stop();
      wasAsked_ = true;
      act(*widget);
    });
    timer_.start(5);
  }

  bool wasAsked() const { return wasAsked_; }

 private:
  QTimer timer_;
  bool wasAsked_ = false;
};

}  // namespace korrin::editor::test
