#include "korrin/validation/pdf/stream_decoder.h"

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "korrin/validation/pdf/scanner.h"

#include "tests/support/pdf_builder.h"
#include "tests/validation/pdf/purse.h"

namespace korrin::pdf {
namespace {

// Hands out text in pieces of a fixed size.
class Pieces : public ByteSource {
 public:
  Pieces(std::string_view text, std::size_t size) : rest_(text), size_(size) {}
  std::span<const std::byte> next() override {
    const std::string_view piece = rest_.substr(0, size_);
    rest_.remove_prefix(piece.size());
    return test::asBytes(piece);
  }

 private:
  std::string_view rest_;
  std::size_t size_;
};

constexpr std::size_t all = static_cast<std::size_t>(-1);

TEST(Copy, TakesAsMuchAsIsWantedWhateverThePieces) {
  const auto copied = [](std::size_t pieceSize, std::size_t wanted) {
    Budget budget(0);
    Pieces source("0123456789", pieceSize);
    return std::string(asText(copy(source, wanted, budget).value()));
  };
  for (const std::size_t pieceSize : {1u, 3u, 5u, 10u, 20u}) {
    EXPECT_EQ(copied(pieceSize, all), "0123456789") << pieceSize;
    EXPECT_EQ(copied(pieceSize, 5), "01234") << pieceSize;
    EXPECT_EQ(copied(pieceSize, 0), "") << pieceSize;
  }
}

TEST(Copy, StopsAtTheLargestStream) {
  const std::string text(limits::inflatedStream + 1, 'x');
  const auto isCopied = [](std::string_view data) {
    Budget budget(0);
    Pieces source(data, 1 << 20);
    return copy(source, all, budget).has_value() && !budget.isExhausted();
  };
  EXPECT_TRUE(isCopied(std::string_view(text).substr(1)));
  EXPECT_FALSE(isCopied(text));
}

TEST(Inflate, TakesAsMuchAsIsWantedWhateverThePieces) {
  const std::string text(10'000, 'x');
  const std::string packed = test::deflated(text);
  const auto sizeOf = [&packed](std::size_t pieceSize, std::size_t wanted) {
    Budget budget(0);
    Pieces source(packed, pieceSize);
    return inflate(source, wanted, budget).value().size();
  };
  for (const std::size_t pieceSize : {std::size_t{1}, std::size_t{7}, packed.size()}) {
    EXPECT_EQ(sizeOf(pieceSize, all), text.size()) << pieceSize;
    EXPECT_EQ(sizeOf(pieceSize, 5'000), 5'000u) << pieceSize;
  }
}

TEST(Copy, PaysForEachByte) {
  const auto isPaidWith = [](std::size_t steps) {
    Budget budget = purseOf(steps);
    Pieces source("0123456789", 4);
    return copy(source, all, budget).has_value();
  };
  EXPECT_TRUE(isPaidWith(10 * price::unpackedByte));
  EXPECT_FALSE(isPaidWith(10 * price::unpackedByte - 1));
}

// Whether so many steps are enough to unpack what `packed` begins with, the format's head apart.
bool isUnpackedWith(std::size_t steps, std::string_view packed) {
  Budget budget = purseOf(price::stream + 2 * price::blockByte + steps);
  Pieces source(packed, packed.size());
  return inflate(source, all, budget).has_value();
}

TEST(Inflate, PaysForWhatComesOut) {
  // Stored as it is, in a block of its own.
  const std::string packed = "\x78\x01" + std::string("\x01\x0A\x00\xF5\xFF", 5) + "0123456789";
  constexpr std::size_t steps = 15 * price::blockByte + 10 * (price::symbol + price::unpackedByte);
  EXPECT_TRUE(isUnpackedWith(steps, packed));
  EXPECT_FALSE(isUnpackedWith(steps - 1, packed));
}

TEST(Inflate, PaysForBlocksFromWhichNothingComes) {
  const std::string packed = [] {
    std::string data = "\x78\x01";
    for (int i = 0; i < 1000; ++i) data += std::string("\x00\x00\x00\xFF\xFF", 5);
    return data;
  }();
  constexpr std::size_t steps = 5000 * price::blockByte;
  EXPECT_TRUE(isUnpackedWith(steps, packed));
  EXPECT_FALSE(isUnpackedWith(steps - 1, packed));
}

TEST(Inflate, PaysForNoMoreSymbolsThanTheBitsThatItReads) {
  // A megabyte of one byte takes a few thousand bytes.
  const std::string packed = test::deflatedRun(' ', 1'000'000);
  const std::size_t symbols = packed.size() * price::symbolsPerByte;
  ASSERT_LT(symbols, 100'000u);
  EXPECT_TRUE(isUnpackedWith(
      1'000'000 * price::unpackedByte + symbols * price::symbol + 100 * price::block, packed));
  EXPECT_FALSE(isUnpackedWith(1'000'000 * price::unpackedByte, packed));
}

TEST(Inflate, PaysForItsPreparation) {
  Budget budget = purseOf(price::stream - 1);
  Pieces source("", 1);
  EXPECT_FALSE(inflate(source, all, budget).has_value());
}

TEST(Inflate, StopsAtTheLargestStreamWhateverThePieces) {
  const auto isUnpacked = [](std::size_t size, std::size_t pieceSize, std::size_t wanted) {
    const std::string packed = test::deflatedRun(' ', size);
    Budget budget(0);
    Pieces source(packed, pieceSize);
    const auto bytes = inflate(source, wanted, budget);
    EXPECT_EQ(bytes.has_value(), !budget.isExhausted());
    return bytes && bytes->size() == std::min(size, wanted);
  };
  for (const std::size_t pieceSize : {std::size_t{100}, std::size_t{1} << 20}) {
    EXPECT_TRUE(isUnpacked(limits::inflatedStream, pieceSize, all));
    EXPECT_FALSE(isUnpacked(limits::inflatedStream + 1, pieceSize, all));
    // What is not wanted is not looked at.
    EXPECT_TRUE(isUnpacked(limits::inflatedStream + 1, pieceSize, limits::inflatedStream));
    EXPECT_FALSE(isUnpacked(limits::inflatedStream + 2, pieceSize, limits::inflatedStream + 1));
  }
}

TEST(Inflate, NeverHoldsMoreThanTheLargestStream) {
  for (const std::size_t pieceSize : {std::size_t{1}, std::size_t{100}, std::size_t{1} << 20}) {
    const std::string packed = test::deflatedRun(' ', limits::inflatedStream);
    Budget budget(0);
    Pieces source(packed, pieceSize);
    EXPECT_LE(inflate(source, all, budget).value().capacity(), limits::inflatedStream) << pieceSize;
  }
}

TEST(Predictor, PaysForBytesAndRows) {
  const auto isPaidWith = [](std::size_t steps) {
    Budget budget = purseOf(steps);
    Bytes bytes(40);
    return undoPredictor(bytes, {15, 1, 8, 4}, budget);
  };
  constexpr std::size_t steps = 40 * price::predictedByte + 11 * price::predictedRow;
  EXPECT_TRUE(isPaidWith(steps));
  EXPECT_FALSE(isPaidWith(steps - 1));
}

struct PredictorRow {
  const char* name;
  Predictor predictor;
};

void PrintTo(const PredictorRow& row, std::ostream* out) { *out << row.name; }

class PredictorThatIsNone : public testing::TestWithParam<PredictorRow> {};

TEST_P(PredictorThatIsNone, LeavesTheBytesUnread) {
  Budget budget(0);
  const Bytes before(40, std::byte{1});
  Bytes bytes = before;
  EXPECT_FALSE(undoPredictor(bytes, GetParam().predictor, budget));
  EXPECT_EQ(bytes, before);
}

constexpr std::size_t tooWide = limits::inflatedStream + 1;

INSTANTIATE_TEST_SUITE_P(Size, PredictorThatIsNone,
                         testing::Values(PredictorRow{"NoColours", {12, 0, 8, 4}},
                                         PredictorRow{"TooManyColours", {12, 33, 8, 4}},
                                         PredictorRow{"NoBits", {12, 1, 0, 4}},
                                         PredictorRow{"TooManyBits", {12, 1, 17, 4}},
                                         PredictorRow{"NoColumns", {12, 1, 8, 0}},
                                         PredictorRow{"TooManyColumns", {12, 1, 1, tooWide}},
                                         PredictorRow{"RowsLongerThanAnyStream",
                                                      {12, 2, 8, tooWide - 1}},
                                         PredictorRow{"AlgorithmAfterTiff", {3, 1, 8, 4}},
                                         PredictorRow{"AlgorithmBeforePng", {9, 1, 8, 4}},
                                         PredictorRow{"AlgorithmAfterPng", {16, 1, 8, 4}},
                                         PredictorRow{"TiffOfHalfBytes", {2, 1, 4, 4}}),
                         [](const auto& row) { return row.param.name; });

TEST(Predictor, OfTheLargestSizesIsUndone) {
  for (const Predictor& predictor : {Predictor{10, 32, 16, 1}, Predictor{15, 1, 1, 1},
                                     Predictor{12, 1, 8, limits::inflatedStream}}) {
    Budget budget(0);
    Bytes bytes(40);
    EXPECT_TRUE(undoPredictor(bytes, predictor, budget)) << predictor.algorithm;
    EXPECT_LT(bytes.size(), 40u);
  }
}

TEST(Predictor, OfNoneKeepsTheBytesWhateverItsSizesSay) {
  for (const std::size_t algorithm : {0u, 1u}) {
    Budget budget(0);
    Bytes bytes(40, std::byte{7});
    EXPECT_TRUE(undoPredictor(bytes, {algorithm, 0, 0, 0}, budget));
    EXPECT_EQ(bytes, Bytes(40, std::byte{7}));
  }
}

}  // namespace
}  // namespace korrin::pdf
