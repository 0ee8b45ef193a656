#pragma once

// The symbols of a plot, each drawn to fill a rectangle about (0, 0) as seen from above. A symbol
// that is not turned looks downward like a musician with the audience below, but for what faces
// the musician: wedges look upward.

#include <string_view>

#include "korrin/model/plot_items.h"

#include "svg_writer.h"

namespace korrin::host {

enum class Symbol {
  microphone,
  wedge,
  inEarMonitor,
  guitarAmplifier,
  bassAmplifier,
  drums,
  keyboard,
  guitar,
  instrument,
  performer,
  riser,
  power,
  diBox,
  furniture,
  custom,
};

/// The symbol of the item's built-in artwork or, for any other artwork, of its kind.
Symbol symbolOf(const PlotItem& item);

/// What a legend calls the symbol, such as "Wedge monitor".
std::string_view symbolName(Symbol symbol);

/// Draws the symbol `width` by `height` millimetres large in its own colours, or in those of the
/// item's `tintHex` when that is a colour.
void drawSymbol(SvgWriter& svg, Symbol symbol, double width, double height,
                const std::optional<Text>& tintHex);

}  // namespace korrin::host
