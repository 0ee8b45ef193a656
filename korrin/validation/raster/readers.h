#pragma once

// One pair of functions per raster format. The first knows the format by its first bytes; the
// second, called only for bytes that the first knows, reads the stored size of the first image, or
// nothing when the header is damaged or incomplete. Each looks at a bounded number of places,
// whatever the file's length.

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "korrin/validation/raster/raster_facts.h"

namespace korrin::raster {

/// A whole file.
using Bytes = std::span<const std::byte>;

bool isPng(Bytes file) noexcept;
std::optional<PixelSize> pngSize(Bytes file) noexcept;

bool isJpeg(Bytes file) noexcept;
std::optional<PixelSize> jpegSize(Bytes file) noexcept;

bool isGif(Bytes file) noexcept;
std::optional<PixelSize> gifSize(Bytes file) noexcept;

bool isBmp(Bytes file) noexcept;
std::optional<PixelSize> bmpSize(Bytes file) noexcept;

bool isTiff(Bytes file) noexcept;
std::optional<PixelSize> tiffSize(Bytes file) noexcept;

bool isWebp(Bytes file) noexcept;
std::optional<PixelSize> webpSize(Bytes file) noexcept;

/// HEIF in general; `isAvif` knows the part of it that is AVIF.
bool isHeif(Bytes file) noexcept;
bool isAvif(Bytes file) noexcept;
std::optional<PixelSize> heifSize(Bytes file) noexcept;

struct Reader {
  RasterFormat format;
  std::string_view name;
  std::string_view mediaType;
  bool (*knows)(Bytes) noexcept;
  std::optional<PixelSize> (*size)(Bytes) noexcept;
};

/// The reader of the format to which the file belongs by its first bytes; null when it belongs to
/// none.
const Reader* readerFor(Bytes file) noexcept;

}  // namespace korrin::raster
