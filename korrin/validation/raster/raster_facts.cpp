#include "korrin/validation/raster/raster_facts.h"

#include "korrin/validation/raster/readers.h"

namespace korrin {
namespace {

struct Reader {
  RasterFormat format;
  std::string_view name;
  bool (*knows)(raster::ByteView) noexcept;
  std::optional<PixelSize> (*size)(raster::ByteView) noexcept;
};

// AVIF stands before HEIF, of which it is a part. Otherwise no file is known to two of them.
constexpr Reader readers[] = {
    {RasterFormat::png, "PNG", raster::isPng, raster::pngSize},
    {RasterFormat::jpeg, "JPEG", raster::isJpeg, raster::jpegSize},
    {RasterFormat::gif, "GIF", raster::isGif, raster::gifSize},
    {RasterFormat::bmp, "BMP", raster::isBmp, raster::bmpSize},
    {RasterFormat::tiff, "TIFF", raster::isTiff, raster::tiffSize},
    {RasterFormat::webp, "WebP", raster::isWebp, raster::webpSize},
    {RasterFormat::avif, "AVIF", raster::isAvif, raster::heifSize},
    {RasterFormat::heif, "HEIF", raster::isHeif, raster::heifSize},
};

}  // namespace

std::string_view name(RasterFormat format) noexcept {
  for (const Reader& reader : readers)
    if (reader.format == format) return reader.name;
  return "";
}

std::optional<RasterFacts> readRasterFacts(std::span<const std::byte> bytes) noexcept {
  const raster::ByteView file(bytes);
  for (const Reader& reader : readers)
    if (reader.knows(file)) return RasterFacts{.format = reader.format, .size = reader.size(file)};
  return std::nullopt;
}

}  // namespace korrin
