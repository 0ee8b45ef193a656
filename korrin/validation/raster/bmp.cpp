#include "korrin/validation/raster/byte_view.h"
#include "korrin/validation/raster/readers.h"

namespace korrin::raster {
namespace {

constexpr std::size_t fileHeaderLength = 14;
constexpr std::uint32_t coreHeaderLength = 12;
constexpr std::uint32_t shortestHeaderLength = 16;
constexpr std::uint32_t longestHeaderLength = 124;

constexpr std::uint32_t windowsHeaderLength = 40;
constexpr std::uint32_t os2HeaderLength = 64;
constexpr std::uint32_t embeddedJpeg = 4;
constexpr std::uint32_t embeddedPng = 5;

bool isHeaderLength(std::uint32_t length) noexcept {
  return length == coreHeaderLength ||
         (length >= shortestHeaderLength && length <= longestHeaderLength);
}

bool isBitCount(std::uint32_t bits) noexcept {
  return bits == 1 || bits == 2 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
}

ByteView afterFileHeader(Bytes file) noexcept {
  ByteView info(file, std::endian::little);
  info.skip(fileHeaderLength);
  return info;
}

}  // namespace

// Two letters are little to go by, so the length of the second header counts as well.
bool isBmp(Bytes file) noexcept {
  return ByteView(file).startsWith("BM") && isHeaderLength(afterFileHeader(file).u32());
}

std::optional<PixelSize> bmpSize(Bytes file) noexcept {
  ByteView info = afterFileHeader(file);
  const std::uint32_t length = info.u32();
  ByteView header = info.take(length - 4);
  if (length == coreHeaderLength) {
    const PixelSize size{.width = header.u16(), .height = header.u16()};
    header.skip(2);  // planes
    const std::uint32_t bits = header.u16();
    if (!header.ok() || !isBitCount(bits)) return std::nullopt;
    return size;
  }

  const auto width = static_cast<std::int32_t>(header.u32());
  const auto height = static_cast<std::int32_t>(header.u32());
  header.skip(2);  // planes
  const std::uint32_t bits = header.u16();
  if (!header.ok() || !isBitCount(bits) || width <= 0) return std::nullopt;
  // A whole JPEG or PNG inside has a size of its own, which this header need not repeat. In the
  // OS/2 header the same numbers mean something else.
  if (length >= windowsHeaderLength && length != os2HeaderLength) {
    const std::uint32_t compression = header.u32();
    if (compression == embeddedJpeg || compression == embeddedPng) return std::nullopt;
  }
  // Rows stored from the top down have a negative height.
  const std::int64_t rows = height;
  return PixelSize{.width = static_cast<std::uint64_t>(width),
                   .height = static_cast<std::uint64_t>(rows < 0 ? -rows : rows)};
}

}  // namespace korrin::raster
