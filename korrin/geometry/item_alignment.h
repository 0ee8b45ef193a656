#pragma once

// The ways in which a selection of plot items can be lined up.

#include "korrin/foundation/enumeration.h"

#pragma GCC visibility push(default)

namespace korrin {

/// An edge or centre to align by, or an axis to distribute along. What each does to the items is
/// drawn in korrin_geometry.h.
enum class ItemAlignment {
  left,
  horizontalCenter,
  right,
  top,
  verticalCenter,
  bottom,
  distributeHorizontally,
  distributeVertically,
};

template <>
struct CaseTable<ItemAlignment> {
  static constexpr std::array cases = {
      Case{ItemAlignment::left, "left"},
      Case{ItemAlignment::horizontalCenter, "horizontalCenter"},
      Case{ItemAlignment::right, "right"},
      Case{ItemAlignment::top, "top"},
      Case{ItemAlignment::verticalCenter, "verticalCenter"},
      Case{ItemAlignment::bottom, "bottom"},
      Case{ItemAlignment::distributeHorizontally, "distributeHorizontally"},
      Case{ItemAlignment::distributeVertically, "distributeVertically"},
  };
};

}  // namespace korrin

#pragma GCC visibility pop
