#pragma once

// The total of pixels that all embedded images of one plot may have together.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#pragma GCC visibility push(default)

namespace korrin {

/// Judges the images of one plot, one after the other, and adds up their pixels.
class AssetBudget {
 public:
  /// Judges an image as `EmbeddedAssetSafety::validate` does, adds its pixels to the total and
  /// returns them: 0 for a PDF. Throws what `validate` throws, and
  /// `DocumentValidationError::imageTooLarge` where the total would pass
  /// `RasterAssetSafety::maximumAggregatePixels`; the total is then what it was.
  std::int64_t admit(std::span<const std::byte> bytes, std::optional<std::string_view> mediaType);

  /// Adds the pixels, 0 or more, of an image that the host has judged itself. Throws
  /// `DocumentValidationError::imageTooLarge` as `admit` does.
  void add(std::int64_t pixels);

  /// The pixels of all images admitted so far.
  std::int64_t pixels() const noexcept { return pixels_; }

 private:
  std::int64_t pixels_ = 0;
};

}  // namespace korrin

#pragma GCC visibility pop
