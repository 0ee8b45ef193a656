#pragma once

// How each symbol is drawn: colour and shapes of the built-in ones, and of those that stand for a
// kind when its artwork is not known.

#include <cstddef>
#include <span>
#include <string_view>

#include "korrin/drawing/shapes.h"
#include "korrin/model/plot_items.h"

namespace korrin::drawing {

/// A symbol as drawings need it. A symbol is drawn to fill a rectangle about (0, 0) as seen from
/// above. One that is not turned looks downward like a musician with the audience below, but for
/// what faces the musician: wedges look upward.
struct SymbolLook {
  std::string_view name;    ///< For legends.
  std::string_view colour;  ///< Of its body, where the item has no tint.
  StageSize size;           ///< Whose proportions suit it.
  std::span<const Shape> shapes;
};

/// A row of the table of all looks; legends keep its order.
using LookIndex = std::size_t;

/// Whether the identifier is that of a built-in symbol.
bool isBuiltIn(std::string_view assetID);

/// The look of the item's built-in artwork or, for any other artwork, of its kind.
LookIndex lookOf(const PlotItem& item);

/// The row must exist.
const SymbolLook& lookAt(LookIndex index);

}  // namespace korrin::drawing
