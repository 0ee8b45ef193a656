#include "korrin/validation/raster/byte_view.h"
#include "korrin/validation/raster/readers.h"

namespace korrin::raster {
namespace {

constexpr std::uint32_t dimensionMask = 0x3FFF;  // the upper two bits are a scale

std::optional<PixelSize> lossySize(ByteView chunk) noexcept {
  const std::uint32_t frameTag = chunk.u24();
  const std::uint32_t startCode = chunk.u24();
  const std::uint32_t width = chunk.u16() & dimensionMask;
  const std::uint32_t height = chunk.u16() & dimensionMask;
  const bool isKeyFrame = (frameTag & 1) == 0;
  if (!chunk.ok() || !isKeyFrame || startCode != 0x2A019D) return std::nullopt;
  return PixelSize{.width = width, .height = height};
}

std::optional<PixelSize> losslessSize(ByteView chunk) noexcept {
  const std::uint32_t signature = chunk.u8();
  const std::uint32_t packed = chunk.u32();
  const std::uint32_t version = packed >> 29;
  if (!chunk.ok() || signature != 0x2F || version != 0) return std::nullopt;
  return PixelSize{.width = (packed & dimensionMask) + 1,
                   .height = ((packed >> 14) & dimensionMask) + 1};
}

std::optional<PixelSize> extendedSize(ByteView chunk) noexcept {
  chunk.skip(4);  // flags
  const std::uint32_t width = chunk.u24();
  const std::uint32_t height = chunk.u24();
  if (!chunk.ok()) return std::nullopt;
  return PixelSize{.width = std::uint64_t{width} + 1, .height = std::uint64_t{height} + 1};
}

}  // namespace

bool isWebp(Bytes bytes) noexcept {
  ByteView file(bytes);
  if (!file.startsWith("RIFF")) return false;
  file.skip(8);
  return file.startsWith("WEBP");
}

std::optional<PixelSize> webpSize(Bytes bytes) noexcept {
  ByteView file(bytes, std::endian::little);
  file.skip(12);
  ByteView tagView(file.take(4).bytes());
  const std::uint32_t chunkTag = tagView.u32();
  const std::uint64_t length = file.u32();
  // The pixels may be cut short; the header at the chunk's start may not.
  const ByteView chunk = file.take(length < file.size() ? length : file.size());
  switch (chunkTag) {
    case tag("VP8 "):
      return lossySize(chunk);
    case tag("VP8L"):
      return losslessSize(chunk);
    case tag("VP8X"):
      return extendedSize(chunk);
    default:
      return std::nullopt;
  }
}

}  // namespace korrin::raster
