#pragma once

// A plot as a picture in a dialog.

#include <QPixmap>

#include "korrin/drawing/plot_drawing.h"

namespace korrin::editor {

/// The plot on white paper, as large as it goes into `size`, which counts pixels of the window and
/// not of the device.
QPixmap pictureOf(const KorrinProject& project, QSize size, qreal pixelRatio,
                  const DrawingOptions& options = {});

}  // namespace korrin::editor
