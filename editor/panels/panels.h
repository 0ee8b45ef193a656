#pragma once

// The panels around the canvas.

namespace korrin::editor {

class MainWindow;

/// Makes all panels and puts each into its dock; see main_window.h.
void addPanels(MainWindow& window);

}  // namespace korrin::editor
