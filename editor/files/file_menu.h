#pragma once

// The menu File: whatever takes a plot from a file or puts it into one.

namespace korrin::editor {

class MainWindow;

void addFileMenu(MainWindow& window);

}  // namespace korrin::editor
