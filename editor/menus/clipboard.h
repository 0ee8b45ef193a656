#pragma once

// Items on the system's clipboard.

#include <QPointF>

#include "editor/plot/open_plot.h"

namespace korrin::editor {

/// Whether there was something selected to copy.
bool copySelection(const OpenPlot& plot);
/// Adds what the clipboard holds, shifted by so many millimetres, and selects it. What is no part
/// of a plot, or would spoil this one, is refused with a sentence.
void pasteInto(OpenPlot& plot, const QPointF& shift);
/// Whether the clipboard claims to hold items.
bool canPaste();

}  // namespace korrin::editor
