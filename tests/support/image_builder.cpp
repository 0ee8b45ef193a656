#include "tests/support/image_builder.h"

namespace korrin::test {
namespace {

// Written the slow way on purpose: the readers use a table.
std::uint32_t crc(const Bytes& bytes) {
  std::uint32_t rest = 0xFFFFFFFF;
  for (const std::byte byte : bytes) {
    rest ^= static_cast<std::uint32_t>(byte);
    for (int bit = 0; bit < 8; ++bit) rest = (rest & 1) != 0 ? rest >> 1 ^ 0xEDB88320 : rest >> 1;
  }
  return ~rest;
}

}  // namespace

Bytes png(const PngHeader& header) {
  const Bytes checked = ByteWriter()
                            .text(header.type)
                            .u32(header.width)
                            .u32(header.height)
                            .u8(header.depth)
                            .u8(header.colourType)
                            .u8(header.compression)
                            .u8(header.filter)
                            .u8(header.interlace)
                            .done();
  return ByteWriter()
      .text("\x89PNG\r\n\x1A\n")
      .u32(header.length)
      .bytes(checked)
      .u32(crc(checked) + header.crcDifference)
      .done();
}

Bytes jpegSegment(std::uint8_t marker, const Bytes& content) {
  return ByteWriter().u8(0xFF).u8(marker).u16(content.size() + 2).bytes(content).done();
}

Bytes jpegFrame(std::uint8_t marker, std::uint16_t width, std::uint16_t height,
                std::uint8_t components, std::optional<std::uint8_t> stored,
                std::uint8_t precision) {
  ByteWriter content;
  content.u8(precision).u16(height).u16(width).u8(components);
  for (unsigned i = 0; i < stored.value_or(components); ++i) content.u8(i + 1).u8(0x11).u8(0);
  return jpegSegment(marker, content.done());
}

Bytes jpeg(std::initializer_list<Bytes> parts) {
  const Bytes scan = jpegSegment(0xDA, ByteWriter().u8(1).u8(1).u8(0).u8(0).u8(63).u8(0).done());
  return ByteWriter().u8(0xFF).u8(0xD8).bytes(joined(parts)).bytes(scan).done();
}

Bytes orientationSegment(std::uint16_t orientation, std::endian order, std::uint16_t type) {
  ByteWriter tiff(order);
  tiff.text(order == std::endian::big ? "MM" : "II").u16(42).u32(8);
  tiff.u16(2);                                                // entries
  tiff.u16(0x010F).u16(2).u32(4).text("Cam").u8(0);           // who made the camera
  tiff.u16(0x0112).u16(type).u32(1).u16(orientation).u16(0);  // the orientation
  tiff.u32(0);                                                // no further directory
  return jpegSegment(0xE1, ByteWriter().text("Exif").u16(0).bytes(tiff.done()).done());
}

Bytes turnedPhoto(std::uint16_t orientation, std::uint16_t width, std::uint16_t height) {
  return jpeg({orientationSegment(orientation), jpegFrame(0xC0, width, height)});
}

Bytes gifScreen(std::uint16_t width, std::uint16_t height, unsigned colourBits,
                std::string_view signature) {
  ByteWriter file(std::endian::little);
  file.text(signature).u16(width).u16(height);
  file.u8(colourBits == 0 ? 0 : 0x80 | (colourBits - 1)).u8(0).u8(0);
  if (colourBits > 0) file.repeat(0x55, std::size_t{3} << colourBits);
  return file.done();
}

Bytes gifExtension(std::uint8_t label, std::initializer_list<std::size_t> subBlockLengths) {
  ByteWriter file;
  file.u8(0x21).u8(label);
  for (const std::size_t length : subBlockLengths) file.u8(length).repeat(0x2C, length);
  return file.u8(0).done();
}

Bytes gifFrame(std::uint16_t width, std::uint16_t height) {
  return ByteWriter(std::endian::little).u8(0x2C).u16(0).u16(0).u16(width).u16(height).u8(0).done();
}

Bytes bmp(const BmpHeader& header) {
  const bool isCore = header.length == 12;
  ByteWriter info(std::endian::little);
  info.u32(header.length);
  const auto width = static_cast<std::uint32_t>(header.width);
  const auto height = static_cast<std::uint32_t>(header.height);
  if (isCore) {
    info.u16(width).u16(height);
  } else {
    info.u32(width).u32(height);
  }
  info.u16(1).u16(header.bits);
  if (header.length >= 20) info.u32(header.compression);
  if (info.done().size() < header.length) info.repeat(0, header.length - info.done().size());
  const std::size_t offset = 14 + info.done().size();
  return ByteWriter(std::endian::little)
      .text("BM")
      .u32(offset)
      .u32(0)
      .u32(offset)
      .bytes(info.done())
      .done();
}

Bytes tiff(std::endian order, TiffKind kind, const std::vector<TiffEntry>& entries) {
  const bool isBig = kind == TiffKind::big;
  ByteWriter file(order);
  file.text(order == std::endian::little ? "II" : "MM");
  if (isBig) {
    file.u16(43).u16(8).u16(0).u64(16).u64(entries.size());
  } else {
    file.u16(42).u32(8).u16(entries.size());
  }
  for (const TiffEntry& entry : entries) {
    // A small value stands at the low addresses of its field in either byte order.
    ByteWriter value(order);
    if (entry.type == tiffByte) {
      value.u8(entry.value);
    } else if (entry.type == tiffShort) {
      value.u16(entry.value);
    } else if (entry.type == tiffLong8 && isBig) {
      value.u64(entry.value);
    } else {
      value.u32(entry.value);
    }
    const std::size_t room = isBig ? 8 : 4;
    value.repeat(0, room - value.done().size());
    file.u16(entry.tag).u16(entry.type);
    isBig ? file.u64(entry.count) : file.u32(entry.count);
    file.bytes(value.done());
  }
  isBig ? file.u64(0) : file.u32(0);
  return file.done();
}

Bytes riffChunk(std::string_view tag, const Bytes& content) {
  return ByteWriter(std::endian::little).text(tag).u32(content.size()).bytes(content).done();
}

Bytes webp(std::initializer_list<Bytes> chunks) {
  const Bytes content = joined(chunks);
  return ByteWriter(std::endian::little)
      .text("RIFF")
      .u32(content.size() + 4)
      .text("WEBP")
      .bytes(content)
      .done();
}

Bytes webpLossy(std::uint32_t width, std::uint32_t height) {
  return webp({riffChunk(
      "VP8 ",
      ByteWriter(std::endian::little).u24(0x10).u24(0x2A019D).u16(width).u16(height).done())});
}

Bytes webpLossless(std::uint32_t width, std::uint32_t height) {
  return webp({riffChunk(
      "VP8L",
      ByteWriter(std::endian::little).u8(0x2F).u32((width - 1) | (height - 1) << 14).done())});
}

Bytes webpExtended(std::uint32_t width, std::uint32_t height) {
  return webp({riffChunk(
      "VP8X", ByteWriter(std::endian::little).u32(0).u24(width - 1).u24(height - 1).done())});
}

Bytes box(std::string_view type, const Bytes& content, BoxLength length) {
  ByteWriter file;
  switch (length) {
    case BoxLength::bits32:
      file.u32(content.size() + 8).text(type);
      break;
    case BoxLength::bits64:
      file.u32(1).text(type).u64(content.size() + 16);
      break;
    case BoxLength::toTheEnd:
      file.u32(0).text(type);
      break;
  }
  return file.bytes(content).done();
}

Bytes fullBox(std::uint8_t version, std::uint32_t flags, const Bytes& content) {
  return ByteWriter().u8(version).u24(flags).bytes(content).done();
}

Bytes joined(std::initializer_list<Bytes> parts) {
  ByteWriter file;
  for (const Bytes& part : parts) file.bytes(part);
  return file.done();
}

Bytes ftyp(std::string_view majorBrand, std::initializer_list<std::string_view> brands) {
  ByteWriter content;
  content.text(majorBrand).u32(0);
  for (const std::string_view brand : brands) content.text(brand);
  return box("ftyp", content.done());
}

Bytes ispe(std::uint32_t width, std::uint32_t height) {
  return box("ispe", fullBox(0, 0, ByteWriter().u32(width).u32(height).done()));
}

Bytes heif(const HeifOptions& options) {
  const std::uint8_t version = options.isWide ? 1 : 0;
  const auto item = [&](ByteWriter& writer, std::uint32_t number) -> ByteWriter& {
    return options.isWide ? writer.u32(number) : writer.u16(number);
  };
  const auto property = [&](ByteWriter& writer, std::uint32_t number) -> ByteWriter& {
    return options.isWide ? writer.u16(0x8000 | number) : writer.u8(0x80 | number);
  };

  ByteWriter primary;
  item(primary, options.primaryItem);
  ByteWriter associations;
  associations.u32(2);
  property(item(associations, 1).u8(1), options.primaryItem == 1 ? 3 : 2);
  property(item(associations, 2).u8(1), options.primaryItem == 1 ? 2 : 3);

  const Bytes hdlr = fullBox(0, 0, ByteWriter().u32(0).text("pict").u64(0).u32(0).u8(0).done());
  const Bytes properties = joined({
      box("ipco", joined({box("pixi", fullBox(0, 0, ByteWriter().u8(1).u8(8).done())), ispe(9, 9),
                          ispe(options.width, options.height)})),
      box("ipma", fullBox(version, options.isWide ? 1 : 0, associations.done())),
  });
  const Bytes meta = fullBox(0, 0,
                             joined({
                                 box("hdlr", hdlr),
                                 box("pitm", fullBox(version, 0, primary.done())),
                                 box("iprp", properties),
                             }));
  return joined({ftyp(options.brand, {"mif1"}), box("meta", meta, options.metaLength)});
}

std::vector<NamedImage> imagesOfEveryKind(std::uint16_t width, std::uint16_t height) {
  const auto tiffOf = [&](std::endian order, TiffKind kind, std::uint16_t type) {
    return tiff(order, kind, {{256, type, 1, width}, {257, type, 1, height}});
  };
  const auto bmpOf = [&](std::uint32_t length, std::int32_t rows) {
    return bmp({.width = width, .height = rows, .length = length});
  };
  constexpr std::endian little = std::endian::little;
  constexpr std::endian big = std::endian::big;
  return {
      {"Png", RasterFormat::png, test::png({.width = width, .height = height})},
      {"JpegBaseline", RasterFormat::jpeg, test::jpeg({jpegFrame(0xC0, width, height)})},
      {"JpegProgressiveAfterOtherSegments", RasterFormat::jpeg,
       test::jpeg({jpegSegment(0xE0, bytesOf("JFIF")), jpegSegment(0xDB, Bytes(65)),
                   jpegFrame(0xC2, width, height)})},
      {"Gif87", RasterFormat::gif,
       joined({gifScreen(width, height, 0, "GIF87a"), gifFrame(width, height)})},
      {"Gif89WithExtension", RasterFormat::gif,
       joined({gifScreen(width, height), gifExtension(0xF9, {4}), gifFrame(width, height)})},
      {"BmpCore", RasterFormat::bmp, bmpOf(12, height)},
      {"BmpOs2Short", RasterFormat::bmp, bmpOf(16, height)},
      {"BmpWindows", RasterFormat::bmp, bmpOf(40, height)},
      {"BmpOs2", RasterFormat::bmp, bmpOf(64, height)},
      {"BmpFromTheTopDown", RasterFormat::bmp, bmpOf(124, -std::int32_t{height})},
      {"TiffLittleEndianShort", RasterFormat::tiff, tiffOf(little, TiffKind::classic, tiffShort)},
      {"TiffBigEndianShort", RasterFormat::tiff, tiffOf(big, TiffKind::classic, tiffShort)},
      {"TiffLittleEndianLong", RasterFormat::tiff, tiffOf(little, TiffKind::classic, tiffLong)},
      {"TiffBigEndianLong", RasterFormat::tiff, tiffOf(big, TiffKind::classic, tiffLong)},
      {"BigTiffLittleEndian", RasterFormat::tiff, tiffOf(little, TiffKind::big, tiffLong8)},
      {"BigTiffBigEndian", RasterFormat::tiff, tiffOf(big, TiffKind::big, tiffShort)},
      {"WebpLossy", RasterFormat::webp, webpLossy(width, height)},
      {"WebpLossless", RasterFormat::webp, webpLossless(width, height)},
      {"WebpExtended", RasterFormat::webp, webpExtended(width, height)},
      {"Heif", RasterFormat::heif, test::heif({.width = width, .height = height})},
      {"HeifWithWideNumbers", RasterFormat::heif,
       test::heif({.width = width, .height = height, .primaryItem = 2, .isWide = true})},
      {"Avif", RasterFormat::avif, test::heif({.brand = "avif", .width = width, .height = height})},
  };
}

}  // namespace korrin::test
