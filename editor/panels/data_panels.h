#pragma once

// The panels for what stands in a plot beside its drawing: lists, findings, layers, fields,
// history.

namespace korrin::editor {

class MainWindow;

/// Makes them, puts them into their docks and ties them to the canvas.
void addDataPanels(MainWindow& window);

}  // namespace korrin::editor
