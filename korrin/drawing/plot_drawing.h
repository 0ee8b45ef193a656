#pragma once

// Plots as pictures: SVG 1.1, one length unit a millimetre of paper. What is drawn follows from the
// project and the options alone; the same project gives the same bytes. Nothing of a document
// becomes markup, and a picture refers to nothing outside itself. Any project can be drawn: of one
// that fails DocumentValidation the picture is well-formed, and its content is not specified. Of
// one that passes, pictures grow in proportion to it: where a name stands on every page or for
// every item, no more than some 200 characters of it do.

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "korrin/model/project.h"

#pragma GCC visibility push(default)

namespace korrin {

/// What a project does not say about its picture.
struct DrawingOptions {
  /// How far the local time of all printed dates is ahead of UTC. An offset beyond 99:59 counts as
  /// 99:59.
  std::chrono::minutes utcOffset{0};
  /// The bytes of an embedded image by its digest, or nothing where there are none. Asked at most
  /// once for each digest that a drawing shows; the digest is not checked again. Bytes that
  /// EmbeddedAssetSafety refuses, PDFs, and images that take the drawing's total beyond
  /// RasterAssetSafety::maximumAggregatePixels are shown as a frame that bears the file's name. A
  /// JPEG is drawn upright (see `photoTurn`).
  /// What it throws passes through. Absent for frames everywhere.
  std::function<std::optional<std::string>(const Text& sha256)> assetBytes = {};
  /// Factor on the size of every label, beside the item's own. No labels where it is not above 0.
  double labelScale = 1;
  /// Whether symbols that inputs and mixes link to bear their channel and mix numbers.
  bool patchNumbers = true;
  /// Whether a bar beside the scale shows a length on stage.
  bool scaleBar = true;
};

/// The stage alone: to scale, with what stands on visible layers, its name, measures and scale. The
/// picture is as large as the stage asks for, not a sheet.
std::string drawPlot(const KorrinProject& project, const DrawingOptions& options = {});

/// The sheets that a venue receives, a picture each, on the paper that `exportSettings` names: on
/// its long side unless the stage is deeper than wide. The drawing with a legend comes first, then
/// the lists that are included, the totals of the inputs, the items that are drawn on no sheet, and
/// the full text of whatever had to be shortened.
std::vector<std::string> drawPages(const KorrinProject& project,
                                   const DrawingOptions& options = {});

/// The same sheets one below the other in one picture, for a screen.
std::string drawStackedPages(const KorrinProject& project, const DrawingOptions& options = {});

/// The item alone, filling the picture: upright, flipped as it is, without its label, for palettes
/// and canvases. Position and rotation do not matter. An embedded image is shown as a frame that
/// bears its digest as a title.
std::string drawSymbol(const PlotItem& item);

}  // namespace korrin

#pragma GCC visibility pop
