#pragma once

// Taking images and PDFs into the plot.

#include <QPointF>
#include <QStringList>

class QWidget;

namespace korrin::editor {

class OpenPlot;

/// Puts the files' images upon the stage, the first one's centre at the place and the next ones
/// beside it, as one edit. Each is judged, and kept where the plot's images lie. What is refused is
/// named in a dialog, with what to do about it; the others are inserted all the same.
void insertImages(OpenPlot& plot, const QStringList& paths, const QPointF& place, QWidget* window);

/// Asks for the files first.
void askForImages(OpenPlot& plot, const QPointF& place, QWidget* window);

}  // namespace korrin::editor
