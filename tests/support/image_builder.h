#pragma once

// Builds the smallest files of each raster format whose headers are right, and the parts from which
// a test puts together one that is not. There are no pixels in them.

#include <bit>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "korrin/validation/raster/raster_facts.h"

#include "tests/support/byte_writer.h"

namespace korrin::test {

struct PngHeader {
  std::uint32_t width = 3;
  std::uint32_t height = 2;
  std::uint8_t depth = 8;
  std::uint8_t colourType = 2;
  std::uint8_t compression = 0;
  std::uint8_t filter = 0;
  std::uint8_t interlace = 0;
  std::uint32_t length = 13;
  std::string_view type = "IHDR";
  std::uint32_t crcDifference = 0;  // is added to the right checksum
};
Bytes png(const PngHeader& header);

/// A marker and its segment; the length that is written counts itself.
Bytes jpegSegment(std::uint8_t marker, const Bytes& content);
/// A start of frame with `components` components of which `stored` are there.
Bytes jpegFrame(std::uint8_t marker, std::uint16_t width, std::uint16_t height,
                std::uint8_t components = 3, std::optional<std::uint8_t> stored = std::nullopt,
                std::uint8_t precision = 8);
/// Start of image, the parts, start of scan.
Bytes jpeg(std::initializer_list<Bytes> parts);
/// A segment of Exif with the orientation that a camera notes, among other entries.
Bytes orientationSegment(std::uint16_t orientation, std::endian order = std::endian::big,
                         std::uint16_t type = 3);
/// A photo with such a segment.
Bytes turnedPhoto(std::uint16_t orientation, std::uint16_t width, std::uint16_t height);

/// Signature, screen and colour table of 2 ^ (`colourBits`) entries, none when 0.
Bytes gifScreen(std::uint16_t width, std::uint16_t height, unsigned colourBits = 1,
                std::string_view signature = "GIF89a");
Bytes gifExtension(std::uint8_t label, std::initializer_list<std::size_t> subBlockLengths);
Bytes gifFrame(std::uint16_t width, std::uint16_t height);

struct BmpHeader {
  std::int32_t width = 3;
  std::int32_t height = 2;
  std::uint32_t length = 40;
  std::uint16_t bits = 24;
  std::uint32_t compression = 0;
};
/// The file header and a second header of `length` bytes; 12 makes the core header.
Bytes bmp(const BmpHeader& header);

struct TiffEntry {
  std::uint16_t tag;
  std::uint16_t type;
  std::uint64_t count;
  std::uint64_t value;
};
enum class TiffKind { classic, big };
inline constexpr std::uint16_t tiffByte = 1;
inline constexpr std::uint16_t tiffShort = 3;
inline constexpr std::uint16_t tiffLong = 4;
inline constexpr std::uint16_t tiffRational = 5;
inline constexpr std::uint16_t tiffLong8 = 16;
/// A file with one directory right after the header.
Bytes tiff(std::endian order, TiffKind kind, const std::vector<TiffEntry>& entries);

Bytes riffChunk(std::string_view tag, const Bytes& content);
Bytes webp(std::initializer_list<Bytes> chunks);
Bytes webpLossy(std::uint32_t width, std::uint32_t height);
Bytes webpLossless(std::uint32_t width, std::uint32_t height);
Bytes webpExtended(std::uint32_t width, std::uint32_t height);

enum class BoxLength { bits32, bits64, toTheEnd };
Bytes box(std::string_view type, const Bytes& content, BoxLength length = BoxLength::bits32);
/// The version and flags with which some boxes begin.
Bytes fullBox(std::uint8_t version, std::uint32_t flags, const Bytes& content);
Bytes joined(std::initializer_list<Bytes> parts);

struct HeifOptions {
  std::string_view brand = "heic";
  std::uint32_t width = 3;
  std::uint32_t height = 2;
  std::uint32_t primaryItem = 1;
  /// Whether item numbers have 32 bits and property numbers 15.
  bool isWide = false;
  BoxLength metaLength = BoxLength::bits32;
};
/// A file of two items, 1 and 2, of which the primary one has the wanted size and the other 9 x 9.
Bytes heif(const HeifOptions& options);
Bytes ftyp(std::string_view majorBrand, std::initializer_list<std::string_view> brands = {});
Bytes ispe(std::uint32_t width, std::uint32_t height);

struct NamedImage {
  std::string name;
  RasterFormat format;
  Bytes bytes;
};
/// One image of each kind that is read, all of the same size. Sizes up to 16383 fit every kind.
std::vector<NamedImage> imagesOfEveryKind(std::uint16_t width, std::uint16_t height);

}  // namespace korrin::test
