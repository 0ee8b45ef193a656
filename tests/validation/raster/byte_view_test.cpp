#include "korrin/validation/raster/byte_view.h"

#include <gtest/gtest.h>

#include "tests/support/byte_writer.h"

namespace korrin::test {
namespace {

using raster::ByteView;

class AByteView : public testing::Test {
 protected:
  const Bytes counting_ = ByteWriter().u64(0x0102030405060708).done();
};

TEST_F(AByteView, ReadsNumbersInBothByteOrders) {
  ByteView big(counting_);
  EXPECT_EQ(big.u8(), 0x01u);
  EXPECT_EQ(big.u16(), 0x0203u);
  EXPECT_EQ(big.u24(), 0x040506u);
  ByteView little(counting_, std::endian::little);
  EXPECT_EQ(little.u24(), 0x030201u);
  EXPECT_EQ(little.u32(), 0x07060504u);
  EXPECT_EQ(ByteView(counting_).u64(), 0x0102030405060708u);
  EXPECT_EQ(ByteView(counting_, std::endian::little).u64(), 0x0807060504030201u);
  EXPECT_EQ(ByteView(Bytes(4, std::byte{0xFF})).u32(), 0xFFFFFFFFu);
}

TEST_F(AByteView, IsFineWhenItIsReadToItsEnd) {
  ByteView view(counting_);
  view.u64();
  EXPECT_TRUE(view.ok());
  EXPECT_EQ(view.size(), 0u);
}

TEST_F(AByteView, FailsForGoodWhenReadPastItsEnd) {
  ByteView view(counting_);
  view.skip(6);
  EXPECT_EQ(view.u24(), 0u);
  EXPECT_FALSE(view.ok());
  EXPECT_EQ(view.size(), 0u);
  EXPECT_EQ(view.u8(), 0u);
  EXPECT_FALSE(view.ok());
}

TEST_F(AByteView, FailsOnAStepOfAnyLengthPastItsEnd) {
  for (const std::uint64_t count : {std::uint64_t{9}, std::uint64_t{1} << 32, ~std::uint64_t{0}}) {
    ByteView view(counting_);
    view.skip(count);
    EXPECT_FALSE(view.ok());
  }
}

TEST_F(AByteView, GivesPartsThatEndWhereTheyShould) {
  ByteView view(counting_, std::endian::little);
  view.skip(2);
  ByteView part = view.take(3);
  EXPECT_EQ(part.size(), 3u);
  EXPECT_EQ(part.u16(), 0x0403u);
  EXPECT_EQ(view.u8(), 0x06u);
  part.u16();
  EXPECT_FALSE(part.ok());
  EXPECT_TRUE(view.ok());
}

TEST_F(AByteView, FailsTogetherWithAPartThatIsNotThere) {
  ByteView view(counting_);
  const ByteView part = view.take(9);
  EXPECT_FALSE(part.ok());
  EXPECT_FALSE(view.ok());
}

TEST_F(AByteView, ComparesItsBeginningWithoutReading) {
  const ByteView view(counting_);
  EXPECT_TRUE(view.startsWith("\1\2\3"));
  EXPECT_FALSE(view.startsWith("\1\3"));
  EXPECT_FALSE(view.startsWith("\1\2\3\4\5\6\7\x08\x09"));
  EXPECT_TRUE(view.startsWith(""));
  EXPECT_EQ(view.size(), 8u);
  EXPECT_TRUE(view.ok());
}

}  // namespace
}  // namespace korrin::test
