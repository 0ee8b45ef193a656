#include "editor/canvas/canvas.h"

namespace korrin::editor {

Canvas::Canvas(OpenPlot& plot, QWidget* parent)
    : QGraphicsView(parent), plot_(plot), scene_(new PlotScene(plot, this)) {
  setScene(scene_);
  setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
  setViewportUpdateMode(MinimalViewportUpdate);
  setTransformationAnchor(NoAnchor);
  connect(&plot_, &OpenPlot::replaced, this, &Canvas::zoomToFit);
}

void Canvas::zoomToFit() {
  fitInView(scene_->stageBounds(), Qt::KeepAspectRatio);
  scene_->setZoom(transform().m11());
}

}  // namespace korrin::editor
