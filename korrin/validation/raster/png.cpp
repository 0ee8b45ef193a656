#include <array>

#include "korrin/validation/raster/readers.h"

namespace korrin::raster {
namespace {

constexpr std::string_view signature = "\x89PNG\r\n\x1A\n";
constexpr std::uint32_t headerLength = 13;

constexpr std::array<std::uint32_t, 256> crcTable = [] {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t byte = 0; byte < 256; ++byte) {
    std::uint32_t rest = byte;
    for (int bit = 0; bit < 8; ++bit) rest = (rest >> 1) ^ ((rest & 1) != 0 ? 0xEDB88320u : 0u);
    table[byte] = rest;
  }
  return table;
}();

std::uint32_t crc(ByteView view) noexcept {
  std::uint32_t rest = 0xFFFFFFFFu;
  for (const std::byte byte : view.bytes())
    rest = (rest >> 8) ^ crcTable[(rest ^ static_cast<std::uint32_t>(byte)) & 0xFF];
  return ~rest;
}

bool isAllowedDepth(std::uint32_t depth, std::uint32_t colourType) noexcept {
  switch (colourType) {
    case 0:  // grey
      return depth == 1 || depth == 2 || depth == 4 || depth == 8 || depth == 16;
    case 3:  // palette
      return depth == 1 || depth == 2 || depth == 4 || depth == 8;
    case 2:  // colour
    case 4:  // grey with alpha
    case 6:  // colour with alpha
      return depth == 8 || depth == 16;
    default:
      return false;
  }
}

}  // namespace

bool isPng(ByteView file) noexcept { return file.startsWith(signature); }

std::optional<PixelSize> pngSize(ByteView file) noexcept {
  file.skip(signature.size());
  const std::uint32_t length = file.u32();
  const ByteView checked = file.take(4 + headerLength);
  const std::uint32_t storedCrc = file.u32();

  ByteView header = checked;
  const std::uint32_t type = header.u32();
  const PixelSize size{.width = header.u32(), .height = header.u32()};
  const std::uint32_t depth = header.u8();
  const std::uint32_t colourType = header.u8();
  const std::uint32_t compression = header.u8();
  const std::uint32_t filter = header.u8();
  const std::uint32_t interlace = header.u8();

  if (!file.ok() || length != headerLength || type != tag("IHDR")) return std::nullopt;
  if (!isAllowedDepth(depth, colourType)) return std::nullopt;
  if (compression != 0 || filter != 0 || interlace > 1) return std::nullopt;
  if (crc(checked) != storedCrc) return std::nullopt;
  return size;
}

}  // namespace korrin::raster
