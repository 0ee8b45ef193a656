#pragma once

// Items upon the stage, without their labels.

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "korrin/drawing/artwork.h"
#include "korrin/drawing/shortened_texts.h"
#include "korrin/drawing/stage_view.h"
#include "korrin/drawing/symbol_drawing.h"
#include "korrin/drawing/tint.h"

namespace korrin::drawing {

class ItemDrawing {
 public:
  /// The arguments must outlive it.
  ItemDrawing(SvgWriter& svg, const KorrinProject& project, const DrawingOptions& options,
              const StageView& view, ShortenedTexts& shortened);

  /// Draws the item's symbol or embedded image. Returns whether it was a symbol.
  bool draw(const PlotItem& item);

  /// Where the names of frames are written.
  const std::vector<Box>& names() const { return names_; }

 private:
  /// Symbols that look the same are written once. Sizes count in thousandths of a millimetre.
  using LookKey = std::tuple<LookIndex, std::int64_t, std::int64_t, std::string>;

  void drawSymbol(const PlotItem& item);
  void drawImage(const PlotItem& item, const Artwork::Image& image);
  void drawName(const PlotItem& item, const Artwork::Image& image);

  SvgWriter& svg_;
  const StageView& view_;
  ShortenedTexts& shortened_;
  Artwork artwork_;
  std::map<LookKey, std::size_t> drawn_;
  std::vector<Box> names_;
  std::set<const Artwork::Image*> shortenedNames_;  // those that are noted
};

/// The frame of an embedded image that cannot be shown, about (0, 0).
void drawFrame(SvgWriter& svg, double width, double height);

}  // namespace korrin::drawing
