#pragma once

// What the program does before its window takes over, apart from `main` so that tests start the
// same program.

#include <QApplication>

namespace korrin::editor {

class MainWindow;

/// Gives the program its names, its colours and its language.
void prepare(QApplication& application);

/// Shows the window, and begins as soon as it is there with the plot at `path`, or with what a
/// crash left behind or the user chooses where it is empty.
void begin(MainWindow& window, const QString& path);

}  // namespace korrin::editor
