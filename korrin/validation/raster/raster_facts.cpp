#include "korrin/validation/raster/raster_facts.h"

#include "korrin/validation/raster/readers.h"

namespace korrin {
namespace raster {
namespace {

// AVIF stands before HEIF, of which it is a part. Otherwise no file is known to two of them.
constexpr Reader readers[] = {
    {RasterFormat::png, "PNG", "image/png", isPng, pngSize},
    {RasterFormat::jpeg, "JPEG", "image/jpeg", isJpeg, jpegSize},
    {RasterFormat::gif, "GIF", "image/gif", isGif, gifSize},
    {RasterFormat::bmp, "BMP", "image/bmp", isBmp, bmpSize},
    {RasterFormat::tiff, "TIFF", "image/tiff", isTiff, tiffSize},
    {RasterFormat::webp, "WebP", "image/webp", isWebp, webpSize},
    {RasterFormat::avif, "AVIF", "image/avif", isAvif, heifSize},
    {RasterFormat::heif, "HEIF", "image/heif", isHeif, heifSize},
};

}  // namespace

const Reader* readerFor(Bytes file) noexcept {
  for (const Reader& reader : readers)
    if (reader.knows(file)) return &reader;
  return nullptr;
}

}  // namespace raster

std::string_view name(RasterFormat format) noexcept {
  for (const raster::Reader& reader : raster::readers)
    if (reader.format == format) return reader.name;
  return "";
}

std::string_view mediaType(RasterFormat format) noexcept {
  for (const raster::Reader& reader : raster::readers)
    if (reader.format == format) return reader.mediaType;
  return "";
}

std::optional<RasterFacts> readRasterFacts(std::span<const std::byte> bytes) noexcept {
  const raster::Reader* reader = raster::readerFor(bytes);
  if (reader == nullptr) return std::nullopt;
  return RasterFacts{.format = reader->format, .size = reader->size(bytes)};
}

}  // namespace korrin
