#include "korrin/validation/raster/byte_view.h"
#include "korrin/validation/raster/readers.h"

namespace korrin::raster {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view littleEndianMark = "II"sv;
constexpr std::string_view magics[] = {"II*\0"sv, "MM\0*"sv, "II+\0\x08\0\0\0"sv,
                                       "MM\0+\0\x08\0\0"sv};
// Camera raw files in TIFF's clothing: the first directory holds a preview, not the picture.
constexpr std::string_view rawMagic = "II*\0\x10\0\0\0CR"sv;
constexpr std::uint32_t rawVersionTag = 50706;

constexpr std::uint32_t bigTiffMagic = 43;
constexpr std::uint32_t widthTag = 256;
constexpr std::uint32_t heightTag = 257;

constexpr std::uint64_t maximumEntries = 65'535;

// The value of an entry that holds one unsigned integer; `entry` stands after the tag.
std::optional<std::uint64_t> unsignedValue(ByteView entry, bool isBig) noexcept {
  const std::uint32_t type = entry.u16();
  const std::uint64_t count = isBig ? entry.u64() : entry.u32();
  if (count != 1) return std::nullopt;
  switch (type) {
    case 1:  // byte
      return entry.u8();
    case 3:  // short
      return entry.u16();
    case 4:  // long
      return entry.u32();
    case 16:  // long of eight bytes
      if (isBig) return entry.u64();
      return std::nullopt;
    default:
      return std::nullopt;
  }
}

}  // namespace

bool isTiff(Bytes file) noexcept {
  for (const std::string_view magic : magics)
    if (ByteView(file).startsWith(magic)) return true;
  return false;
}

std::optional<PixelSize> tiffSize(Bytes bytes) noexcept {
  if (ByteView(bytes).startsWith(rawMagic)) return std::nullopt;
  const bool isLittle = ByteView(bytes).startsWith(littleEndianMark);
  const ByteView file(bytes, isLittle ? std::endian::little : std::endian::big);
  ByteView header = file;
  header.skip(2);
  const bool isBig = header.u16() == bigTiffMagic;
  if (isBig) header.skip(4);  // the width of offsets, part of the magic above
  const std::uint64_t offset = isBig ? header.u64() : header.u32();
  if (offset == 0) return std::nullopt;  // there is no directory

  ByteView directory = file;
  directory.skip(offset);
  const std::uint64_t count = isBig ? directory.u64() : directory.u16();
  if (count > maximumEntries) return std::nullopt;
  const std::uint64_t entryLength = isBig ? 20 : 12;
  ByteView entries = directory.take(count * entryLength);
  // Where the next directory stands comes behind the entries. A file may be cut off before it.
  if (!directory.ok()) return std::nullopt;

  std::optional<std::uint64_t> width;
  std::optional<std::uint64_t> height;
  while (entries.size() > 0) {
    ByteView entry = entries.take(entryLength);
    const std::uint32_t entryTag = entry.u16();
    if (entryTag == rawVersionTag) return std::nullopt;
    // Of a repeated tag the first entry counts, even when its value cannot be used.
    const bool isWidth = entryTag == widthTag && !width;
    const bool isHeight = entryTag == heightTag && !height;
    if (!isWidth && !isHeight) continue;
    const auto value = unsignedValue(entry, isBig);
    if (!value) return std::nullopt;
    (isWidth ? width : height) = value;
  }
  if (!width || !height) return std::nullopt;
  return PixelSize{.width = *width, .height = *height};
}

}  // namespace korrin::raster
