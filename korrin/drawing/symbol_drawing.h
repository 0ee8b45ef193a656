#pragma once

// Draws symbols.

#include <optional>

#include "korrin/drawing/svg_writer.h"
#include "korrin/drawing/symbol_table.h"
#include "korrin/foundation/text.h"

namespace korrin::drawing {

/// Draws the look about (0, 0), `size` large on paper, in its own colours, or in those of the
/// item's `tintHex` when that is a colour.
void drawLook(SvgWriter& svg, LookIndex look, double width, double height,
              const std::optional<Text>& tintHex);

/// Draws no more than the outline of the look, in its colour.
void drawOutline(SvgWriter& svg, LookIndex look, double width, double height,
                 const std::optional<Text>& tintHex);

}  // namespace korrin::drawing
