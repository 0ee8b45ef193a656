#pragma once

// Choosing the file of an earlier plot.

#include <QString>

class QWidget;

namespace korrin::editor {

class OpenPlot;

/// Compares the open plot with the one in the file. Returns whether it does; why the file cannot be
/// compared is said instead.
bool compareWith(OpenPlot& plot, const QString& path, QWidget* window);

/// Asks for the file first.
bool askToCompare(OpenPlot& plot, QWidget* window);

}  // namespace korrin::editor
