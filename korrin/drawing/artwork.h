#pragma once

// Embedded images upon a drawing.

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "korrin/drawing/plot_drawing.h"
#include "korrin/drawing/svg_writer.h"

namespace korrin::drawing {

/// Whether the item shows an embedded image: its artwork is no built-in symbol and is an entry of
/// the manifest or, 64 hexadecimal digits, at least the name of one.
class Artwork {
 public:
  /// Both arguments must outlive it.
  Artwork(const KorrinProject& project, const DrawingOptions& options);

  /// How an item's image is drawn.
  struct Image {
    Text name;                        ///< The file's on one line, otherwise the digest.
    std::string title;                ///< The name, shortened.
    std::optional<std::size_t> kept;  ///< The kept image; absent for a frame.
    bool isWidelyShown = true;        ///< Whether most renderers know the format.
  };

  /// Nothing for an item that shows a symbol. An image that is used for the first time is kept in
  /// `svg`; its bytes are asked for once and judged: those that are unsafe, of another type, or too
  /// many pixels together with the images before give a frame. Throws what `assetBytes` throws.
  const Image* imageOf(const PlotItem& item, SvgWriter& svg);

 private:
  Image load(const Text& sha256, const AssetManifestEntry* entry, SvgWriter& svg);

  const DrawingOptions& options_;
  std::map<Text, const AssetManifestEntry*> manifest_;
  std::map<Text, Image> images_;
  std::int64_t pixels_ = 0;
  std::size_t keptCount_ = 0;
};

}  // namespace korrin::drawing
