#pragma once

// What shows on the canvas that something is selected: an outline around each item, and handles
// around one that is selected alone.

#include <QGraphicsItem>
#include <array>
#include <optional>
#include <vector>

#include "editor/plot/open_plot.h"

namespace korrin::editor {

/// A handle: which way from the item's centre it lies. The one for turning stands off its upper
/// edge.
struct Handle {
  int x;  ///< -1, 0 or 1.
  int y;  ///< -1, 0 or 1.
  bool turns = false;

  friend bool operator==(const Handle&, const Handle&) = default;
};

class SelectionFrame : public QGraphicsItem {
 public:
  /// The plot must outlive it.
  explicit SelectionFrame(const OpenPlot& plot);

  /// Takes the selection as it stands.
  void refresh();
  void setZoom(double pixelsPerMillimetre);

  /// The item that has handles; null unless exactly one is selected and may be edited.
  const PlotItem* itemWithHandles() const;
  std::optional<Handle> handleAt(const QPointF& point) const;
  /// Where a handle lies. There must be an item with handles.
  QPointF placeOf(const Handle& handle) const;

  QRectF boundingRect() const override { return bounds_; }
  void paint(QPainter* painter, const QStyleOptionGraphicsItem* option, QWidget* widget) override;

 private:
  struct Outline {
    std::array<QPointF, 4> corners;
    bool isEditable;
  };

  const OpenPlot& plot_;
  std::vector<Outline> outlines_;
  QRectF bounds_;
  double zoom_ = 0.1;
};

}  // namespace korrin::editor
