#pragma once

// Points, sizes and the stage itself. All lengths are millimetres on the plane of the stage, whose
// origin is the centre of the stage; x grows to the right and y grows downward in the drawing.
// Nothing here is checked: negative, infinite and not-a-number values can be held and are found by
// document validation.

#include "korrin/foundation/enumeration.h"
#include "korrin/foundation/record.h"
#include "korrin/foundation/text.h"

#pragma GCC visibility push(default)

namespace korrin {

/// A position on the stage plane.
struct StagePoint {
  double x;  ///< Millimetres to the right of the stage's centre.
  double y;  ///< Millimetres below the stage's centre in the drawing.

  /// The centre of the stage.
  static const StagePoint zero;

  friend bool operator==(const StagePoint&, const StagePoint&) = default;
};

inline constexpr StagePoint StagePoint::zero = {.x = 0, .y = 0};

template <>
constexpr auto fieldsOf<StagePoint>() {
  return std::tuple{Field{"x", &StagePoint::x}, Field{"y", &StagePoint::y}};
}
static_assert(tableIsComplete<StagePoint>);

/// An extent on the stage plane.
struct StageSize {
  double width;   ///< Millimetres along x.
  double height;  ///< Millimetres along y: the depth of a stage or an item.

  friend bool operator==(const StageSize&, const StageSize&) = default;
};

template <>
constexpr auto fieldsOf<StageSize>() {
  return std::tuple{Field{"width", &StageSize::width}, Field{"height", &StageSize::height}};
}
static_assert(tableIsComplete<StageSize>);

/// The side of the stage drawing that faces the audience.
enum class AudienceEdge { top, right, bottom, left };

template <>
struct CaseTable<AudienceEdge> {
  static constexpr std::array cases = {
      Case{AudienceEdge::top, "top"},
      Case{AudienceEdge::right, "right"},
      Case{AudienceEdge::bottom, "bottom"},
      Case{AudienceEdge::left, "left"},
  };
};

/// The stage that a project is drawn on.
struct StageDefinition {
  Text name;                      ///< Display name, such as "Main Stage".
  StageSize size;                 ///< Width and depth.
  AudienceEdge audienceEdge;      ///< Where the audience is.
  double gridSpacingMillimeters;  ///< Distance of grid lines; 0 for none.
  bool showGrid;                  ///< Whether the editor draws the grid.
  bool showDimensions;            ///< Whether the editor draws the stage's dimensions.

  friend bool operator==(const StageDefinition&, const StageDefinition&) = default;
};

template <>
constexpr auto fieldsOf<StageDefinition>() {
  return std::tuple{
      Field{"name", &StageDefinition::name},
      Field{"size", &StageDefinition::size},
      Field{"audienceEdge", &StageDefinition::audienceEdge},
      Field{"gridSpacingMillimeters", &StageDefinition::gridSpacingMillimeters},
      Field{"showGrid", &StageDefinition::showGrid},
      Field{"showDimensions", &StageDefinition::showDimensions},
  };
}
static_assert(tableIsComplete<StageDefinition>);

}  // namespace korrin

#pragma GCC visibility pop
