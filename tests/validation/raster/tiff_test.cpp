#include <gtest/gtest.h>

#include "tests/support/image_builder.h"
#include "tests/support/raster_size.h"

namespace korrin::test {
namespace {

using namespace std::string_view_literals;

struct TiffVariety {
  std::string name;
  std::endian order;
  TiffKind kind;
};

class TiffDirectory : public testing::TestWithParam<TiffVariety> {
 protected:
  static bool isBig() { return GetParam().kind == TiffKind::big; }
  static Bytes file(const std::vector<TiffEntry>& entries) {
    return tiff(GetParam().order, GetParam().kind, entries);
  }

  const TiffEntry width_{256, tiffShort, 1, 3};
  const TiffEntry height_{257, tiffShort, 1, 2};
};

INSTANTIATE_TEST_SUITE_P(
    All, TiffDirectory,
    testing::Values(TiffVariety{"LittleEndian", std::endian::little, TiffKind::classic},
                    TiffVariety{"BigEndian", std::endian::big, TiffKind::classic},
                    TiffVariety{"BigTiffLittleEndian", std::endian::little, TiffKind::big},
                    TiffVariety{"BigTiffBigEndian", std::endian::big, TiffKind::big}),
    [](const auto& row) { return row.param.name; });

TEST_P(TiffDirectory, NeedsBothSides) {
  EXPECT_EQ(sizeOf(file({width_, height_})), threeByTwo);
  EXPECT_EQ(sizeOf(file({width_})), std::nullopt);
  EXPECT_EQ(sizeOf(file({height_})), std::nullopt);
  EXPECT_EQ(sizeOf(file({})), std::nullopt);
}

TEST_P(TiffDirectory, IsReadInAnyOrderAndAmongOtherEntries) {
  EXPECT_EQ(sizeOf(file({{254, tiffLong, 1, 0},
                         height_,
                         {258, tiffShort, 3, 9},
                         width_,
                         {282, tiffRational, 1, 9}})),
            threeByTwo);
}

TEST_P(TiffDirectory, MayLackWhereTheNextOneStandsButNoEntry) {
  const Bytes whole = file({width_, height_, {258, tiffShort, 1, 8}});
  const std::ptrdiff_t linkLength = isBig() ? 8 : 4;
  for (std::ptrdiff_t missing = 1; missing < 40; ++missing) {
    const bool hasEveryEntry = missing <= linkLength;
    EXPECT_EQ(sizeOf(Bytes(whole.begin(), whole.end() - missing)),
              hasEveryEntry ? std::optional(threeByTwo) : std::nullopt)
        << missing;
  }
}

TEST_P(TiffDirectory, HoldsTheSidesAsUnsignedIntegers) {
  for (const std::uint16_t type : {tiffByte, tiffShort, tiffLong})
    EXPECT_EQ(sizeOf(file({{256, type, 1, 3}, {257, type, 1, 2}})), threeByTwo) << type;
  for (unsigned type = 0; type < 0x10000; type += type < 32 ? 1 : 97) {
    const bool isUnsigned = type == tiffByte || type == tiffShort || type == tiffLong;
    if (isUnsigned || type == tiffLong8) continue;
    const TiffEntry width{256, static_cast<std::uint16_t>(type), 1, 3};
    EXPECT_EQ(sizeOf(file({width, height_})), std::nullopt) << type;
  }
}

TEST_P(TiffDirectory, HoldsSidesOfEightBytesInBigTiffOnly) {
  const Bytes bytes = file({{256, tiffLong8, 1, 3}, {257, tiffLong8, 1, 2}});
  EXPECT_EQ(sizeOf(bytes) == threeByTwo, isBig());
  EXPECT_EQ(sizeOf(bytes).has_value(), isBig());
}

TEST_P(TiffDirectory, HoldsOneNumberPerSide) {
  for (const std::uint64_t count : {0u, 2u, 0x10001u})
    EXPECT_EQ(sizeOf(file({{256, tiffShort, count, 3}, height_})), std::nullopt) << count;
}

TEST_P(TiffDirectory, CountsTheFirstOfRepeatedEntries) {
  EXPECT_EQ(sizeOf(file({width_, {256, tiffShort, 1, 9}, height_, {257, tiffShort, 1, 9}})),
            threeByTwo);
  EXPECT_EQ(sizeOf(file({{256, tiffRational, 1, 9}, width_, height_})), std::nullopt);
}

TEST_P(TiffDirectory, IsTheFirstOfSeveral) {
  // What follows the first directory is a whole file, whose directory comes after its header.
  const Bytes first = file({width_, height_});
  const Bytes second = file({{256, tiffShort, 1, 9}, {257, tiffShort, 1, 9}});
  const std::ptrdiff_t linkLength = isBig() ? 8 : 4;
  ByteWriter both(GetParam().order);
  both.bytes(Bytes(first.begin(), first.end() - linkLength));
  isBig() ? both.u64(first.size() + 16) : both.u32(first.size() + 8);
  EXPECT_EQ(sizeOf(both.bytes(second).done()), threeByTwo);
}

TEST_P(TiffDirectory, IsRefusedWhenItBelongsToACameraRawFile) {
  EXPECT_EQ(sizeOf(file({width_, height_, {50706, tiffByte, 4, 1}})), std::nullopt);
}

TEST_P(TiffDirectory, MayStandAnywhereButAtTheStart) {
  const auto withOffset = [&](std::uint64_t offset) {
    const Bytes whole = file({width_, height_});
    const std::ptrdiff_t headerLength = isBig() ? 16 : 8;
    ByteWriter moved(GetParam().order);
    moved.bytes(Bytes(whole.begin(), whole.begin() + headerLength / 2));
    isBig() ? moved.u64(offset) : moved.u32(offset);
    moved.repeat(0, 100 - moved.done().size());
    return moved.bytes(Bytes(whole.begin() + headerLength, whole.end())).done();
  };
  EXPECT_EQ(sizeOf(withOffset(100)), threeByTwo);
  for (const std::uint64_t offset :
       {std::uint64_t{0}, std::uint64_t{100'000}, std::uint64_t{0xFFFFFFFF}, ~std::uint64_t{0}})
    EXPECT_EQ(sizeOf(withOffset(offset)), std::nullopt) << offset;
}

TEST(TiffHeader, SaysWithAnOffsetOfZeroThatThereIsNoDirectory) {
  // Long enough for what a directory at offset 0 would be: 0x4949 entries, of which the second and
  // third hold the sides.
  ByteWriter file(std::endian::little);
  file.text("II").u16(42).u32(0).repeat(0, 6);
  file.u16(256).u16(tiffShort).u32(1).u32(3).u16(257).u16(tiffShort).u32(1).u32(2);
  file.repeat(0, std::size_t{0x4949} * 12);
  EXPECT_EQ(sizeOf(file.done()), std::nullopt);
}

TEST(BigTiff, HasABoundedNumberOfEntries) {
  const auto withEntries = [](std::size_t count) {
    std::vector<TiffEntry> entries(count, TiffEntry{300, tiffShort, 1, 0});
    entries.front() = {256, tiffShort, 1, 3};
    entries.back() = {257, tiffShort, 1, 2};
    return tiff(std::endian::little, TiffKind::big, entries);
  };
  EXPECT_EQ(sizeOf(withEntries(65'535)), threeByTwo);
  EXPECT_EQ(sizeOf(withEntries(65'536)), std::nullopt);
}

TEST(BigTiff, DoesNotWrapOnAHugeNumberOfEntries) {
  // Times the 20 bytes of an entry, this is 4 more than 2^64.
  const Bytes bytes = ByteWriter(std::endian::little)
                          .text("II")
                          .u16(43)
                          .u16(8)
                          .u16(0)
                          .u64(16)
                          .u64(0x0CCCCCCCCCCCCCCD)
                          .repeat(0, 100)
                          .done();
  EXPECT_EQ(sizeOf(bytes), std::nullopt);
}

TEST(TiffSignature, IsAByteOrderAndItsMagicNumber) {
  for (const std::string_view mark : {"IM*\0----"sv, "II\0*----"sv, "MM*\0----"sv, "II,\0----"sv,
                                      "II+\0\4\0\0\0"sv, "II+\0\x08\0\1\0"sv, "MM\0+\x08\0\0\0"sv})
    EXPECT_EQ(readRasterFacts(bytesOf(mark)), std::nullopt);
}

TEST(TiffSignature, OfACameraRawFileIsRefused) {
  ByteWriter file(std::endian::little);
  file.text("II").u16(42).u32(16).text("CR").u8(2).u8(0).u32(0);
  file.u16(2).u16(256).u16(tiffShort).u32(1).u32(3).u16(257).u16(tiffShort).u32(1).u32(2).u32(0);
  EXPECT_EQ(sizeOf(file.done()), std::nullopt);
  Bytes ordinary = file.done();
  ordinary[8] = std::byte{0};
  EXPECT_EQ(sizeOf(ordinary), threeByTwo);
}

}  // namespace
}  // namespace korrin::test
