#pragma once

// Whether a raster image is safe to decode, judged by its header alone. PNG, JPEG, GIF, BMP, TIFF,
// BigTIFF, WebP, HEIF and AVIF are read, told apart by their content. No pixel is decoded, nothing
// is allocated, and the time taken does not depend on how long the image is. Any thread may call
// at any time.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "korrin/validation/asset_refusal.h"

#pragma GCC visibility push(default)

namespace korrin::RasterAssetSafety {

/// Largest accepted width and largest accepted height of one image, in pixels.
inline constexpr std::int64_t maximumDimension = 16'000;

/// Largest accepted number of pixels of one image.
inline constexpr std::int64_t maximumPixels = 50'000'000;

/// Largest accepted number of pixels of all embedded images of one document together. The library
/// applies it nowhere: a caller that accepts several images adds up their counts and reports a
/// larger sum as DocumentValidationError::imageTooLarge.
inline constexpr std::int64_t maximumAggregatePixels = 100'000'000;

/// The number of pixels, width times height as stored, of the first image in `bytes`.
/// Throws DocumentValidationError: `invalidImage` when the bytes are empty, of another format, or
/// their header is damaged, incomplete or has a width or height of zero; `imageTooLarge` when width
/// or height exceeds `maximumDimension`, or their product `maximumPixels`.
std::int64_t validate(std::span<const std::byte> bytes);

/// Why `validate` refuses the bytes; nothing when it accepts them. Never fails.
std::optional<AssetRefusal> refusal(std::span<const std::byte> bytes) noexcept;

}  // namespace korrin::RasterAssetSafety

#pragma GCC visibility pop
