#pragma once

// How the stage plane lies on paper.

#include <span>

#include "korrin/drawing/paper.h"
#include "korrin/model/project.h"

namespace korrin::drawing {

/// A rotation; exact for quarter turns.
struct Turn {
  explicit Turn(double degrees);

  double cosine;
  double sine;
};

/// The upright rectangle around the turned item, on the stage plane. Not finite where the item's
/// numbers are not.
Box boundsOf(const PlotItem& item);

/// The size where it is one that a valid project may have, and a metre for each extent that is not.
StageSize usableSize(const StageSize& size);

/// A scale and a place for the stage and for what stands beside it. Whatever is drawn upon a
/// drawing finds its places here.
struct StageView {
  Box canvas;          ///< What may be drawn on.
  Box ground;          ///< The stage.
  Box seen;            ///< The stage and what stands beside it; all else is written around this.
  double scaleNumber;  ///< A millimetre on paper is so many on stage.

  Place onPaper(const StagePoint& point) const;
  /// The upright rectangle around the turned item, on paper.
  Box around(const PlotItem& item) const;
};

/// As large as a customary scale allows into `canvas`, with `rim` millimetres left free around what
/// is seen. Items are seen up to half the stage's longer side beyond its edge; one that lies
/// farther off would make everything small.
StageView viewOf(const StageDefinition& stage, std::span<const PlotItem* const> items,
                 const Box& canvas, double rim);

/// The smallest number of a customary scale "1:number" at which `length` millimetres, above 0, take
/// up at most `room` millimetres: 20, 25, 30, 40, 50, 60, 75, 80, 100 and so on. At least 0.1.
double scaleNumber(double length, double room);

}  // namespace korrin::drawing
