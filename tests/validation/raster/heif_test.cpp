#include <gtest/gtest.h>

#include "korrin/validation/raster/step_budget.h"

#include "tests/support/image_builder.h"
#include "tests/support/raster_size.h"

namespace korrin::test {
namespace {

// The parts of a file with one item, 1, whose only property is its size; a test replaces some.
struct Parts {
  Bytes ftyp = test::ftyp("heic", {"mif1"});
  Bytes beforeMeta = {};
  Bytes pitm = box("pitm", fullBox(0, 0, ByteWriter().u16(1).done()));
  Bytes ipco = box("ipco", ispe(3, 2));
  Bytes ipma = box("ipma", fullBox(0, 0, ByteWriter().u32(1).u16(1).u8(1).u8(1).done()));
};

Bytes file(const Parts& parts, BoxLength length = BoxLength::bits32) {
  const Bytes iprp = box("iprp", joined({parts.ipco, parts.ipma}), length);
  const Bytes meta = fullBox(0, 0, joined({parts.pitm, iprp}));
  return joined({parts.ftyp, parts.beforeMeta, box("meta", meta, length)});
}

// An ipma box of version 0 that gives item 1 the properties of these numbers.
Bytes associations(const std::vector<std::uint8_t>& numbers) {
  ByteWriter content;
  content.u32(1).u16(1).u8(numbers.size());
  for (const std::uint8_t number : numbers) content.u8(number);
  return box("ipma", fullBox(0, 0, content.done()));
}

TEST(HeifBrands, MakeAFileKnownWhereverTheyStand) {
  for (const std::string_view brand : {"heic", "heix", "heim", "heis", "hevc", "hevx", "mif1",
                                       "mif2", "msf1", "miaf", "avif", "avis"}) {
    EXPECT_EQ(sizeOf(file({.ftyp = ftyp(brand)})), threeByTwo) << brand;
    EXPECT_EQ(sizeOf(file({.ftyp = ftyp("isom", {"mp42", brand})})), threeByTwo) << brand;
  }
}

TEST(HeifBrands, DecideWhetherItIsAvif) {
  EXPECT_EQ(readRasterFacts(file({.ftyp = ftyp("mif1", {"miaf", "avif"})}))->format,
            RasterFormat::avif);
  EXPECT_EQ(readRasterFacts(file({.ftyp = ftyp("mif1", {"miaf", "heic"})}))->format,
            RasterFormat::heif);
}

TEST(HeifBrands, OfOtherFilesAreNotKnown) {
  EXPECT_EQ(readRasterFacts(file({.ftyp = ftyp("isom", {"mp42"})})), std::nullopt);
  EXPECT_EQ(readRasterFacts(file({.ftyp = ftyp("mif3")})), std::nullopt);
}

TEST(HeifBrands, AreNotLookedForInTheVersion) {
  const Bytes bytes = box("ftyp", bytesOf("isomheic"));
  EXPECT_EQ(readRasterFacts(file({.ftyp = bytes})), std::nullopt);
}

TEST(HeifBrands, AreLookedForAmongABoundedNumber) {
  const auto afterOthers = [](std::size_t count) {
    ByteWriter content;
    content.text("isom").u32(0);
    for (std::size_t i = 0; i < count; ++i) content.text("mp42");
    return file({.ftyp = box("ftyp", content.text("heic").done())});
  };
  EXPECT_EQ(sizeOf(afterOthers(253)), threeByTwo);
  EXPECT_EQ(readRasterFacts(afterOthers(254)), std::nullopt);
}

TEST(HeifBrands, StandInTheFirstBox) {
  EXPECT_EQ(readRasterFacts(joined({box("free", Bytes(4)), file({})})), std::nullopt);
}

TEST(HeifSize, IsThatOfThePrimaryItem) {
  EXPECT_EQ(sizeOf(heif({.primaryItem = 1})), threeByTwo);
  EXPECT_EQ(sizeOf(heif({.primaryItem = 2})), threeByTwo);
  EXPECT_EQ(sizeOf(heif({.primaryItem = 3})), std::nullopt);
}

TEST(HeifSize, IsFoundThroughWideNumbers) {
  EXPECT_EQ(sizeOf(heif({.primaryItem = 1, .isWide = true})), threeByTwo);
  EXPECT_EQ(sizeOf(heif({.primaryItem = 2, .isWide = true})), threeByTwo);
  EXPECT_EQ(sizeOf(heif({.primaryItem = 0x10001, .isWide = true})), std::nullopt);
}

TEST(HeifSize, IsFoundInTheSecondAssociationBoxToo) {
  const Bytes others = box("ipma", fullBox(0, 0, ByteWriter().u32(1).u16(7).u8(1).u8(9).done()));
  EXPECT_EQ(sizeOf(file({.ipma = joined({others, associations({1})})})), threeByTwo);
}

TEST(HeifSize, NeedsEveryBoxOnTheWay) {
  EXPECT_EQ(sizeOf(file({})), threeByTwo);
  EXPECT_EQ(sizeOf(ftyp("heic")), std::nullopt);
  EXPECT_EQ(sizeOf(file({.pitm = {}})), std::nullopt);
  EXPECT_EQ(sizeOf(file({.ipco = {}})), std::nullopt);
  EXPECT_EQ(sizeOf(file({.ipma = {}})), std::nullopt);
  EXPECT_EQ(sizeOf(file({.ipco = box("ipco", {})})), std::nullopt);
  EXPECT_EQ(sizeOf(file({.ipma = associations({})})), std::nullopt);
}

TEST(HeifSize, IsOneOfTheItemsOwnProperties) {
  const Bytes ipco = box("ipco", joined({ispe(9, 9), box("pixi", Bytes(6)), ispe(3, 2)}));
  EXPECT_EQ(sizeOf(file({.ipco = ipco, .ipma = associations({2, 3})})), threeByTwo);
  EXPECT_EQ(sizeOf(file({.ipco = ipco, .ipma = associations({0x82, 0x83})})), threeByTwo);
  EXPECT_EQ(sizeOf(file({.ipco = ipco, .ipma = associations({2})})), std::nullopt);
  EXPECT_EQ(sizeOf(file({.ipco = ipco, .ipma = associations({0, 4, 127})})), std::nullopt);
}

TEST(HeifSize, IsFoundUnderTheLargestNarrowNumber) {
  ByteWriter properties;
  for (int i = 1; i < 127; ++i) properties.bytes(ispe(9, 9));
  const Bytes ipco = box("ipco", properties.bytes(ispe(3, 2)).done());
  EXPECT_EQ(sizeOf(file({.ipco = ipco, .ipma = associations({127})})), threeByTwo);
  EXPECT_EQ(sizeOf(file({.ipco = ipco, .ipma = associations({0xFF})})), threeByTwo);
}

TEST(HeifSize, IsRefusedWhenAnItemHasTwo) {
  const Bytes ipco = box("ipco", joined({ispe(3, 2), ispe(16000, 16000)}));
  EXPECT_EQ(sizeOf(file({.ipco = ipco, .ipma = associations({1, 2})})), std::nullopt);
  EXPECT_EQ(sizeOf(file({.ipco = ipco, .ipma = associations({1, 1})})), threeByTwo);
}

TEST(HeifSize, IsAWholeProperty) {
  const Bytes shortSize = box("ispe", fullBox(0, 0, ByteWriter().u32(3).u24(2).done()));
  EXPECT_EQ(sizeOf(file({.ipco = box("ipco", shortSize)})), std::nullopt);
}

TEST(HeifBoxes, MayStateTheirLengthInAnyOfThreeWays) {
  for (const BoxLength length : {BoxLength::bits32, BoxLength::bits64, BoxLength::toTheEnd})
    EXPECT_EQ(sizeOf(file({}, length)), threeByTwo);
  for (const BoxLength length : {BoxLength::bits32, BoxLength::bits64})
    EXPECT_EQ(sizeOf(file({.beforeMeta = box("mdat", Bytes(100), length)})), threeByTwo);
}

TEST(HeifBoxes, ThatReachToTheEndHideWhatFollows) {
  EXPECT_EQ(sizeOf(file({.beforeMeta = box("mdat", Bytes(100), BoxLength::toTheEnd)})),
            std::nullopt);
}

TEST(HeifBoxes, AreRefusedWhenTheyEndBeforeTheyBegin) {
  for (const std::uint32_t length : {2u, 4u, 7u})
    EXPECT_EQ(sizeOf(file({.beforeMeta = ByteWriter().u32(length).text("free").done()})),
              std::nullopt);
  EXPECT_EQ(sizeOf(file({.beforeMeta = ByteWriter().u32(8).text("free").done()})), threeByTwo);
  for (const std::uint64_t length : {0u, 1u, 8u, 15u})
    EXPECT_EQ(sizeOf(file({.beforeMeta = ByteWriter().u32(1).text("free").u64(length).done()})),
              std::nullopt);
  EXPECT_EQ(sizeOf(file({.beforeMeta = ByteWriter().u32(1).text("free").u64(16).done()})),
            threeByTwo);
}

TEST(HeifBoxes, AreRefusedWhenTheyReachPastTheBoxAroundThem) {
  const Bytes tooLong = ByteWriter().u32(5000).text("free").done();
  EXPECT_EQ(sizeOf(file({.pitm = tooLong})), std::nullopt);
  EXPECT_EQ(sizeOf(file({.beforeMeta = tooLong})), std::nullopt);
  const Bytes huge = ByteWriter().u32(1).text("free").u64(~std::uint64_t{0}).done();
  EXPECT_EQ(sizeOf(file({.beforeMeta = huge})), std::nullopt);
}

TEST(HeifAssociations, AreRefusedWhenEntriesAreMissing) {
  for (const std::uint32_t count : {2u, 0xFFFFFFFFu}) {
    const Bytes content = ByteWriter().u32(count).u16(1).u8(1).u8(1).done();
    EXPECT_EQ(sizeOf(file({.ipma = box("ipma", fullBox(0, 0, content))})), std::nullopt) << count;
  }
  const Bytes cut = ByteWriter().u32(1).u16(1).u8(2).u8(1).done();
  EXPECT_EQ(sizeOf(file({.ipma = box("ipma", fullBox(0, 0, cut))})), std::nullopt);
}

TEST(HeifSteps, EndALongWalkOverBoxes) {
  const auto afterBoxes = [](int count) {
    ByteWriter boxes;
    for (int i = 0; i < count; ++i) boxes.u32(8).text("free");
    return file({.beforeMeta = boxes.done()});
  };
  EXPECT_EQ(sizeOf(afterBoxes(raster::maximumSteps / 2)), threeByTwo);
  EXPECT_EQ(sizeOf(afterBoxes(raster::maximumSteps)), std::nullopt);
}

TEST(HeifSteps, EndALongWalkOverAssociations) {
  const auto afterEntries = [](int count) {
    ByteWriter content;
    content.u32(static_cast<std::uint64_t>(count) + 1);
    for (int i = 0; i < count; ++i) content.u16(7).u8(0);
    content.u16(1).u8(1).u8(1);
    return file({.ipma = box("ipma", fullBox(0, 0, content.done()))});
  };
  EXPECT_EQ(sizeOf(afterEntries(raster::maximumSteps / 2)), threeByTwo);
  EXPECT_EQ(sizeOf(afterEntries(raster::maximumSteps)), std::nullopt);
}

TEST(HeifSteps, ReachEveryPropertyNumberThereIs) {
  const auto afterBoxes = [](int count) {
    ByteWriter boxes;
    for (int i = 0; i < count; ++i) boxes.u32(8).text("free");
    ByteWriter properties;
    for (int i = 1; i < 0x7FFF; ++i) properties.u32(8).text("free");
    properties.bytes(ispe(3, 2));
    const Bytes ipma =
        box("ipma", fullBox(0, 1, ByteWriter().u32(1).u16(1).u8(1).u16(0x7FFF).done()));
    return file({.beforeMeta = boxes.done(), .ipco = box("ipco", properties.done()), .ipma = ipma});
  };
  EXPECT_EQ(sizeOf(afterBoxes(0)), threeByTwo);
  // Neither walk is too long by itself.
  EXPECT_EQ(sizeOf(afterBoxes(raster::maximumSteps * 3 / 4)), std::nullopt);
}

}  // namespace
}  // namespace korrin::test
