#pragma once

// Whether an embedded image, raster or PDF, is safe to decode and draw. Only headers are read, in
// bounded time and memory. Any thread may call at any time.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "korrin/validation/asset_refusal.h"

#pragma GCC visibility push(default)

namespace korrin::EmbeddedAssetSafety {

/// Largest accepted width and largest accepted height of a PDF's first page, in points.
inline constexpr double maximumPageExtent = 20'000;

/// What the image in `bytes` adds to its document's total of pixels, of which
/// RasterAssetSafety::maximumAggregatePixels are allowed.
///
/// With a `mediaType` of exactly "application/pdf", without parameters and in lower case, the bytes
/// must be a PDF whose first page has a media box wider and higher than 0 and at most
/// `maximumPageExtent` each way; it adds nothing, 0. With any other media type, or none, they must
/// be a raster image that RasterAssetSafety::validate accepts, and its count of pixels is returned:
/// the media type is not compared with the image's format.
///
/// Throws DocumentValidationError: for a raster image as RasterAssetSafety::validate does; for a
/// PDF `invalidImage` when the bytes are a raster image, or no PDF with a first page that can be
/// read without a password, and `imageTooLarge` when the page box is absent, degenerate, not finite
/// or too large. Throws std::bad_alloc, and never a verdict, when memory runs out.
std::int64_t validate(std::span<const std::byte> bytes, std::optional<std::string_view> mediaType);

/// Why `validate` refuses the bytes under that media type; nothing when it accepts them. Throws
/// std::bad_alloc when memory runs out.
std::optional<AssetRefusal> refusal(std::span<const std::byte> bytes,
                                    std::optional<std::string_view> mediaType);

}  // namespace korrin::EmbeddedAssetSafety

#pragma GCC visibility pop
