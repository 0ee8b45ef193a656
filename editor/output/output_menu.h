#pragma once

// The entries of the menu File through which a plot leaves the editor: exports and printing.

namespace korrin::editor {

class MainWindow;

/// Puts them in front of the menu's last entry.
void addOutput(MainWindow& window);

}  // namespace korrin::editor
