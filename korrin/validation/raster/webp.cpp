#include <algorithm>

#include "korrin/validation/raster/byte_view.h"
#include "korrin/validation/raster/readers.h"
#include "korrin/validation/raster/step_budget.h"

namespace korrin::raster {
namespace {

constexpr std::uint64_t chunkHeaderLength = 8;
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

// Whether the chunks up to the one with the image end inside the RIFF file that `file` is the rest
// of, of which `left` bytes are left by its own count. The file itself may be cut short.
bool chunksFit(ByteView file, std::uint64_t left) noexcept {
  StepBudget budget;
  while (budget.spend()) {
    if (left < chunkHeaderLength) return true;
    const std::uint32_t chunkTag = ByteView(file.take(4).bytes()).u32();
    const std::uint64_t length = file.u32();
    if (!file.ok()) return true;
    left -= chunkHeaderLength;
    if (length > left) return false;
    if (chunkTag == tag("VP8 ") || chunkTag == tag("VP8L") || chunkTag == tag("ANMF")) return true;
    const std::uint64_t padded = length + length % 2;
    left -= std::min(padded, left);
    file.skip(padded);
  }
  return false;
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
  file.skip(4);
  const std::uint64_t riffLength = file.u32();
  file.skip(4);  // "WEBP", which the length counts
  if (riffLength < 4 + chunkHeaderLength || !chunksFit(file, riffLength - 4)) return std::nullopt;
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
