#pragma once

// The canvas: the stage to scale with everything that stands on it. A unit of the scene is a
// millimetre on stage, so that scene and plot share their coordinates.

#include <QGraphicsView>

#include "editor/canvas/plot_scene.h"

namespace korrin::editor {

class Canvas : public QGraphicsView {
  Q_OBJECT

 public:
  /// The plot must outlive it.
  explicit Canvas(OpenPlot& plot, QWidget* parent = nullptr);

 public Q_SLOTS:
  /// The whole stage as large as it goes.
  void zoomToFit();

 private:
  OpenPlot& plot_;
  PlotScene* scene_;
};

}  // namespace korrin::editor
