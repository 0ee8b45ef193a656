#pragma once

// Where things like to lie: at edges and centres of other items and of the stage, and on the grid.
// Lengths are millimetres on stage.

#include <QPointF>
#include <QRectF>
#include <vector>

#include "korrin/model/project.h"

namespace korrin::editor {

/// A line that shows what something snapped to.
struct Guide {
  QPointF from;
  QPointF to;

  friend bool operator==(const Guide&, const Guide&) = default;
};

/// How far to move a box beyond where the pointer has it, and why.
struct Snap {
  QPointF by;
  std::vector<Guide> guides;
};

class SnapTargets {
 public:
  /// The visible items but for those that move.
  SnapTargets(const KorrinProject& project, const IDSet& moving);

  /// The nearest edge or centre within `reach` for an edge or centre of the box, for each axis by
  /// itself; where there is none, the nearest line of the grid for its centre.
  Snap snap(const QRectF& box, double reach) const;

 private:
  /// An upright or a level line, and how long it is.
  struct Line {
    double at;
    double from;
    double to;
  };
  /// What one axis of a box comes to.
  struct Hit {
    double by = 0;
    const Line* line = nullptr;
    bool isFound = false;
  };

  void add(const QRectF& box);
  static Hit nearest(const std::vector<Line>& lines, double low, double high, double reach);
  Hit orGrid(Hit hit, double centre, double edge, double reach) const;

  std::vector<Line> upright_;  // both ascend
  std::vector<Line> level_;
  StageSize stage_;
  double grid_;
};

}  // namespace korrin::editor
