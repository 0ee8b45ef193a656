#include <array>

#include "korrin/validation/raster/byte_view.h"
#include "korrin/validation/raster/readers.h"

namespace korrin::raster {
namespace {

constexpr std::string_view signature = "\x89PNG\r\n\x1A\n";
constexpr std::size_t headerLength = 13;

using CrcTable = std::array<std::uint32_t, 256>;

// What each value of one byte, the last of a message, puts into the message's CRC-32.
constexpr CrcTable lastByte = [] {
  CrcTable table{};
  for (std::uint32_t byte = 0; byte < 256; ++byte) {
    std::uint32_t rest = byte;
    for (int bit = 0; bit < 8; ++bit) rest = (rest >> 1) ^ ((rest & 1) != 0 ? 0xEDB88320u : 0u);
    table[byte] = rest;
  }
  return table;
}();

consteval std::uint32_t afterByte(std::uint32_t rest, std::uint32_t byte) {
  return (rest >> 8) ^ lastByte[(rest ^ byte) & 0xFF];
}

// The checksum of a message of known length is the exclusive or of one term per byte and one for
// the length, and so a header's needs no loop in which each round waits for the one before.
consteval auto tablesOfHeaderBytes() {
  std::array<CrcTable, headerLength> tables{};
  tables[headerLength - 1] = lastByte;
  for (std::size_t i = headerLength - 1; i-- > 0;)
    for (std::size_t byte = 0; byte < 256; ++byte)
      tables[i][byte] = afterByte(tables[i + 1][byte], 0);
  return tables;
}
constexpr std::array<CrcTable, headerLength> headerByte = tablesOfHeaderBytes();

// The checksum of the type IHDR and a header of zeros.
consteval std::uint32_t checksumOfZeros() {
  std::uint32_t rest = 0xFFFFFFFFu;
  for (const char c : std::string_view("IHDR"))
    rest = afterByte(rest, static_cast<unsigned char>(c));
  for (std::size_t i = 0; i < headerLength; ++i) rest = afterByte(rest, 0);
  return ~rest;
}
constexpr std::uint32_t crcOfZeros = checksumOfZeros();

std::uint32_t crcOf(std::span<const std::byte, headerLength> header) noexcept {
  std::uint32_t crc = crcOfZeros;
  for (std::size_t i = 0; i < headerLength; ++i)
    crc ^= headerByte[i][std::to_integer<std::size_t>(header[i])];
  return crc;
}

// For each type of colour a bit for each depth: grey, none, colour, palette, grey with alpha, none,
// colour with alpha.
constexpr std::uint32_t narrow = 1u << 1 | 1u << 2 | 1u << 4;
constexpr std::uint32_t byteDeep = 1u << 8;
constexpr std::uint32_t wide = 1u << 16;
constexpr std::array<std::uint32_t, 7> allowedDepths = {
    narrow | byteDeep | wide, 0, byteDeep | wide, narrow | byteDeep,
    byteDeep | wide,          0, byteDeep | wide};

bool isAllowedDepth(std::uint32_t depth, std::uint32_t colourType) noexcept {
  return colourType < allowedDepths.size() && depth < 32 &&
         (allowedDepths[colourType] >> depth & 1) != 0;
}

}  // namespace

bool isPng(Bytes file) noexcept { return ByteView(file).startsWith(signature); }

std::optional<PixelSize> pngSize(Bytes bytes) noexcept {
  ByteView file(bytes);
  file.skip(signature.size());
  const std::uint32_t length = file.u32();
  const std::uint32_t type = file.u32();
  ByteView header = file.take(headerLength);
  const std::uint32_t storedCrc = file.u32();
  if (!file.ok() || length != headerLength || type != tag("IHDR")) return std::nullopt;
  if (crcOf(header.bytes().first<headerLength>()) != storedCrc) return std::nullopt;

  const PixelSize size{.width = header.u32(), .height = header.u32()};
  const std::uint32_t depth = header.u8();
  const std::uint32_t colourType = header.u8();
  const std::uint32_t compression = header.u8();
  const std::uint32_t filter = header.u8();
  const std::uint32_t interlace = header.u8();
  if (!isAllowedDepth(depth, colourType)) return std::nullopt;
  if (compression != 0 || filter != 0 || interlace > 1) return std::nullopt;
  return size;
}

}  // namespace korrin::raster
