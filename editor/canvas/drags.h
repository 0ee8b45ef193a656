#pragma once

// What dragging does: moving the selection, and resizing and turning one item by its handles. Each
// drag is one gesture of the plot, and leaves no trace when it is cancelled.

#include <QCoreApplication>
#include <QPointF>
#include <memory>
#include <vector>

#include "editor/canvas/selection_frame.h"
#include "editor/canvas/snapping.h"
#include "editor/plot/open_plot.h"

namespace korrin::editor {

class Drag {
 public:
  /// Begins the gesture. The plot must outlive it.
  Drag(OpenPlot& plot, const QString& name) : plot_(plot) { plot_.beginGesture(name); }
  virtual ~Drag() = default;
  Drag(const Drag&) = delete;
  Drag& operator=(const Drag&) = delete;

  /// The pointer has come to this place. `reach` is how many millimetres count as near.
  virtual void moveTo(const QPointF& point, double reach, Qt::KeyboardModifiers keys) = 0;
  /// What the drag has snapped to.
  const std::vector<Guide>& guides() const { return guides_; }
  void end() { plot_.endGesture(); }
  void cancel() { plot_.cancelGesture(); }

 protected:
  OpenPlot& plot_;
  std::vector<Guide> guides_;
};

/// Moves the selection. Ctrl keeps it from snapping, Shift on one axis.
class MoveDrag : public Drag {
  Q_DECLARE_TR_FUNCTIONS(MoveDrag)

 public:
  MoveDrag(OpenPlot& plot, const QPointF& from);
  void moveTo(const QPointF& point, double reach, Qt::KeyboardModifiers keys) override;

 private:
  QPointF from_;
  QRectF bounds_;  // of what moves, at the beginning
  SnapTargets targets_;
  QPointF moved_;
};

/// Resizes one item, by whole centimetres; with Ctrl by millimetres. Shift keeps its proportions,
/// Alt its centre.
class ResizeDrag : public Drag {
  Q_DECLARE_TR_FUNCTIONS(ResizeDrag)

 public:
  ResizeDrag(OpenPlot& plot, const PlotItem& item, const Handle& handle);
  void moveTo(const QPointF& point, double reach, Qt::KeyboardModifiers keys) override;

 private:
  PlotItem item_;  // at the beginning
  Handle handle_;
};

/// Turns one item by steps of 15 degrees; with Ctrl by single ones.
class TurnDrag : public Drag {
  Q_DECLARE_TR_FUNCTIONS(TurnDrag)

 public:
  TurnDrag(OpenPlot& plot, const PlotItem& item, const QPointF& from);
  void moveTo(const QPointF& point, double reach, Qt::KeyboardModifiers keys) override;

 private:
  double angleAt(const QPointF& point) const;

  PlotItem item_;  // at the beginning
  double angle_;
};

}  // namespace korrin::editor
