#pragma once

// Bytes of an image that the core has judged. Only from here do bytes reach a decoder: whoever
// holds one of these knows that its header promises no more than is safe to draw.

#include <QImage>
#include <QSizeF>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "korrin/validation/asset_refusal.h"
#include "korrin/validation/raster/raster_facts.h"

namespace korrin::editor {

class CheckedImage {
 public:
  /// The most bytes that an image may have.
  static constexpr std::size_t maximumSize = std::size_t{256} << 20;

  /// Judges the bytes under that media type; without one, under that of what they are.
  static std::variant<CheckedImage, AssetRefusal> check(
      std::string bytes, std::optional<std::string_view> mediaType = {});

  const std::string& bytes() const { return bytes_; }
  /// Moves the bytes out.
  std::string take() && { return std::move(bytes_); }
  /// Of what the bytes are, such as "image/png".
  std::string_view mediaType() const;
  /// What a file of this format ends in, such as "png".
  std::string_view ending() const;
  /// What it adds to the total of its plot: 0 for a PDF.
  std::int64_t pixels() const { return pixels_; }
  /// Of the upright picture: pixels, or points of a PDF's first page. More than 0 each way.
  QSizeF size() const { return size_; }

  /// Whether the system can draw it: not a PDF, nor a format without a plug-in here.
  bool canBeDrawn() const;
  /// The picture, upright as its camera noted and no longer than so many pixels each way. Null
  /// where it cannot be drawn or is damaged behind its header.
  QImage decoded(int longestSide) const;

 private:
  CheckedImage() = default;
  QByteArray decoder() const;

  std::string bytes_;
  std::optional<RasterFormat> format_;  // absent for a PDF
  std::int64_t pixels_ = 0;
  QSizeF size_;
};

}  // namespace korrin::editor
