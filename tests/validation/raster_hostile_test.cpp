// Damage done to good files, systematically: whatever the bytes are, the check answers with one of
// its three outcomes, the same each time.

#include <algorithm>

#include <gtest/gtest.h>

#include "tests/support/endless_file.h"
#include "tests/support/image_builder.h"
#include "tests/support/outcome.h"

namespace korrin::test {
namespace {

using namespace std::string_view_literals;

class DamagedImage : public testing::TestWithParam<NamedImage> {};

INSTANTIATE_TEST_SUITE_P(All, DamagedImage, testing::ValuesIn(imagesOfEveryKind(300, 20)),
                         [](const auto& row) { return row.param.name; });

TEST_P(DamagedImage, IsInvalidWhereverItIsCutShort) {
  const Bytes& whole = GetParam().bytes;
  // The scan that follows a JPEG's frame is not looked at, nor where a TIFF's next directory is.
  const bool isBigTiff = GetParam().name.starts_with("BigTiff");
  const std::size_t unreadBytes = GetParam().format == RasterFormat::jpeg   ? 10
                                  : GetParam().format == RasterFormat::tiff ? (isBigTiff ? 8 : 4)
                                                                            : 0;
  for (std::size_t size = 0; size < whole.size(); ++size) {
    // A copy of exactly that length, so that a read past its end is noticed.
    const Bytes prefix(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
    const Outcome outcome = rasterOutcome(prefix);
    EXPECT_EQ(outcome, size < whole.size() - unreadBytes ? invalidImage : "6000") << size;
  }
}

TEST_P(DamagedImage, IsReadLawfullyWithAnyValueInAnyOfItsFirstBytes) {
  Bytes bytes = GetParam().bytes;
  for (std::size_t at = 0; at < std::min<std::size_t>(64, bytes.size()); ++at) {
    const std::byte good = bytes[at];
    for (int value = 0; value < 256; ++value) {
      bytes[at] = static_cast<std::byte>(value);
      const Outcome outcome = rasterOutcome(bytes);
      ASSERT_TRUE(isLawful(outcome)) << "byte " << at << " is " << value << ": " << outcome;
    }
    bytes[at] = good;
  }
}

TEST_P(DamagedImage, IsReadLawfullyWithAnyFourBytesAtTheirExtremes) {
  const Bytes good = GetParam().bytes;
  for (std::size_t at = 0; at + 4 <= good.size(); ++at) {
    for (const std::string_view value :
         {"\0\0\0\0"sv, "\0\0\0\1"sv, "\1\0\0\0"sv, "\x7F\xFF\xFF\xFF"sv, "\x80\0\0\0"sv,
          "\0\0\0\x80"sv, "\xFF\xFF\xFF\xFF"sv}) {
      Bytes bytes = good;
      for (std::size_t i = 0; i < 4; ++i) bytes[at + i] = static_cast<std::byte>(value[i]);
      const Outcome outcome = rasterOutcome(bytes);
      ASSERT_TRUE(isLawful(outcome)) << "at byte " << at << ": " << outcome;
      ASSERT_EQ(rasterOutcome(bytes), outcome) << "at byte " << at;
    }
  }
}

// Files that would keep a reader busy to their end, if it let them. The end is 16 GiB away and all
// but the first MiB cannot be read.
struct Tiring {
  std::string name;
  Bytes beginning;
  Bytes part;  // repeated for ever
};

Bytes openBox(std::string_view type, const Bytes& content) {
  return box(type, content, BoxLength::toTheEnd);
}

class TiringImage : public testing::TestWithParam<Tiring> {};

TEST_P(TiringImage, IsGivenUpWithinItsFirstMegabyte) {
  const EndlessFile file(GetParam().beginning, GetParam().part);
  EXPECT_EQ(rasterOutcome(file.bytes()), invalidImage);
}

INSTANTIATE_TEST_SUITE_P(
    All, TiringImage,
    testing::Values(
        Tiring{"JpegOfFillBytes", bytesOf("\xFF\xD8"), Bytes(64, std::byte{0xFF})},
        Tiring{"JpegOfStrayBytes", bytesOf("\xFF\xD8\xFF"), Bytes(64)},
        Tiring{"JpegOfEmptySegments", bytesOf("\xFF\xD8"), jpegSegment(0xE0, {})},
        Tiring{"JpegOfRestartMarkers", bytesOf("\xFF\xD8"), bytesOf("\xFF\xD0")},
        Tiring{"GifOfEmptyExtensions", gifScreen(3, 2), gifExtension(0xFE, {})},
        Tiring{"GifOfOneLongExtension", joined({gifScreen(3, 2), bytesOf("!\xFE")}),
               bytesOf("\1\1")},
        Tiring{"BigTiffOfEntries",
               ByteWriter().text("MM").u16(43).u16(8).u16(0).u64(16).u64(1 << 29).done(),
               Bytes(20)},
        Tiring{"HeifOfBrands", openBox("ftyp", bytesOf("isom\0\0\0\0"sv)), bytesOf("mp42")},
        Tiring{"HeifOfBoxes", ftyp("heic"), box("free", {})},
        Tiring{"HeifOfBoxesInTheMetaBox", joined({ftyp("heic"), openBox("meta", Bytes(4))}),
               box("free", {})},
        Tiring{"HeifOfAssociations",
               joined({ftyp("heic"),
                       openBox("meta", joined({Bytes(4), box("pitm", Bytes(6)),
                                               openBox("iprp", openBox("ipma", ByteWriter()
                                                                                   .u32(0)
                                                                                   .u32(0xFFFFFFFF)
                                                                                   .done()))}))}),
               ByteWriter().u16(1).u8(0).done()},
        Tiring{"HeifOfBoxesInThePropertiesBox",
               joined({ftyp("heic"), openBox("meta", joined({Bytes(4), box("pitm", Bytes(6)),
                                                             openBox("iprp", {})}))}),
               box("free", {})},
        Tiring{"HeifOfProperties",
               joined({ftyp("heic"),
                       openBox("meta", joined({Bytes(4), box("pitm", Bytes(6)),
                                               openBox("iprp", joined({box("ipma", Bytes(8)),
                                                                       openBox("ipco", {})}))}))}),
               box("free", {})}),
    [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace korrin::test
