#include "korrin/drawing/photo_turn.h"

#include <bit>
#include <cstdint>
#include <iterator>

#include "korrin/validation/raster/byte_view.h"

namespace korrin {
namespace {

using raster::ByteView;

constexpr std::uint32_t startOfImage = 0xD8;
constexpr std::uint32_t endOfImage = 0xD9;
constexpr std::uint32_t startOfScan = 0xDA;
constexpr std::uint32_t applicationSegment1 = 0xE1;

constexpr std::uint32_t orientationTag = 0x0112;
constexpr std::uint32_t shortType = 3;

// The turns that the tag's numbers 1 to 8 stand for.
constexpr PhotoTurn turns[] = {{false, 0}, {true, 0},  {false, 2}, {true, 2},
                               {true, 3},  {false, 1}, {true, 1},  {false, 3}};

constexpr std::uint32_t least = 1;
constexpr std::uint32_t most = std::size(turns);

// A note: its number, and where its two bytes stand.
struct Note {
  std::uint32_t number;
  std::size_t at;
  std::endian order;
};

// The next marker's code, or 0 at the end. Fill bytes and stray bytes are passed over, as decoders
// do.
std::uint32_t nextMarker(ByteView& file) noexcept {
  bool afterFF = false;
  while (file.ok()) {
    const std::uint32_t byte = file.u8();
    if (afterFF && byte != 0 && byte != 0xFF) return file.ok() ? byte : 0;
    afterFF = byte == 0xFF;
  }
  return 0;
}

bool standsAlone(std::uint32_t marker) noexcept {
  return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD7);
}

// Hands on the notes in the first directory of what follows the segment's name. `begin` is the
// place of the whole file.
template <class Take>
bool takeFromDirectory(std::span<const std::byte> tiff, const std::byte* begin, Take take) {
  const std::endian order =
      ByteView(tiff).startsWith("II") ? std::endian::little : std::endian::big;
  ByteView header(tiff, order);
  if (order == std::endian::big && !header.startsWith("MM")) return false;
  header.skip(2);
  if (header.u16() != 42) return false;
  const std::uint32_t directory = header.u32();
  ByteView entries(tiff, order);
  entries.skip(directory);
  for (std::uint32_t left = entries.u16(); left > 0 && entries.ok(); --left) {
    const std::uint32_t tag = entries.u16();
    const std::uint32_t type = entries.u16();
    const std::uint32_t count = entries.u32();
    const auto at = static_cast<std::size_t>(entries.bytes().data() - begin);
    const std::uint32_t number = entries.u16();
    entries.skip(2);
    if (!entries.ok() || tag != orientationTag || type != shortType || count != 1) continue;
    if (take(Note{.number = number, .at = at, .order = order})) return true;
  }
  return false;
}

// Hands on the notes of a JPEG, up to one that is taken or to the first scan.
template <class Take>
void takeNotes(std::span<const std::byte> image, Take take) {
  ByteView file(image);
  if (!file.startsWith("\xFF\xD8\xFF")) return;
  file.skip(2);
  while (const std::uint32_t marker = nextMarker(file)) {
    if (standsAlone(marker)) continue;
    if (marker == startOfImage || marker == endOfImage || marker == startOfScan) return;
    const std::uint32_t length = file.u16();
    if (length < 2) return;
    ByteView segment = file.take(length - 2);
    if (marker != applicationSegment1 || !segment.startsWith({"Exif\0\0", 6})) continue;
    segment.skip(6);
    if (takeFromDirectory(segment.bytes(), image.data(), take)) return;
  }
}

}  // namespace

PhotoTurn photoTurn(std::span<const std::byte> image) noexcept {
  PhotoTurn found = turns[0];
  takeNotes(image, [&found](const Note& note) {
    const bool makesSense = note.number >= least && note.number <= most;
    if (makesSense) found = turns[note.number - 1];
    return makesSense;
  });
  return found;
}

void forgetPhotoTurn(std::span<std::byte> image) noexcept {
  takeNotes(image, [image](const Note& note) {
    const bool isLittle = note.order == std::endian::little;
    image[note.at] = std::byte{isLittle};
    image[note.at + 1] = std::byte{!isLittle};
    return false;
  });
}

}  // namespace korrin
