#pragma once

// What the header of a raster image says: its container format and the size of its first image.
// These are facts, not verdicts: whether an image is safe to accept is decided by
// RasterAssetSafety. Pixels are never decoded and nothing is allocated.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#pragma GCC visibility push(default)

namespace korrin {

/// The container formats that are read. TIFF includes BigTIFF.
enum class RasterFormat { png, jpeg, gif, bmp, tiff, webp, heif, avif };

/// The format's usual name, such as "PNG"; empty for a value that is no case.
std::string_view name(RasterFormat format) noexcept;

/// The format's media type, such as "image/png"; empty for a value that is no case.
std::string_view mediaType(RasterFormat format) noexcept;

/// Width and height in pixels as stored, before any orientation or crop is applied. Either may be
/// zero: headers can say so.
struct PixelSize {
  std::uint64_t width;   ///< Pixels in a row.
  std::uint64_t height;  ///< Rows.

  friend bool operator==(const PixelSize&, const PixelSize&) = default;
};

/// What is known of one image.
struct RasterFacts {
  /// Known from the first bytes, however damaged the rest is.
  RasterFormat format;
  /// Absent when the header is damaged, cut short or takes an unreasonable number of steps.
  std::optional<PixelSize> size;

  friend bool operator==(const RasterFacts&, const RasterFacts&) = default;
};

/// The format, chosen by content alone, and the size of the image that `bytes` holds; nothing for
/// bytes that no format claims, empty ones included. Never fails.
std::optional<RasterFacts> readRasterFacts(std::span<const std::byte> bytes) noexcept;

}  // namespace korrin

#pragma GCC visibility pop
