#pragma once

// One pair of functions per raster format. The first knows the format by its first bytes; the
// second, called only for bytes that the first knows, reads the stored size of the first image, or
// nothing when the header is damaged or incomplete. Each looks at a bounded number of places,
// whatever the file's length.

#include <optional>

#include "korrin/validation/raster/byte_view.h"
#include "korrin/validation/raster/raster_facts.h"

namespace korrin::raster {

bool isPng(ByteView file) noexcept;
std::optional<PixelSize> pngSize(ByteView file) noexcept;

bool isJpeg(ByteView file) noexcept;
std::optional<PixelSize> jpegSize(ByteView file) noexcept;

bool isGif(ByteView file) noexcept;
std::optional<PixelSize> gifSize(ByteView file) noexcept;

bool isBmp(ByteView file) noexcept;
std::optional<PixelSize> bmpSize(ByteView file) noexcept;

bool isTiff(ByteView file) noexcept;
std::optional<PixelSize> tiffSize(ByteView file) noexcept;

bool isWebp(ByteView file) noexcept;
std::optional<PixelSize> webpSize(ByteView file) noexcept;

/// HEIF in general; `isAvif` knows the part of it that is AVIF.
bool isHeif(ByteView file) noexcept;
bool isAvif(ByteView file) noexcept;
std::optional<PixelSize> heifSize(ByteView file) noexcept;

}  // namespace korrin::raster
