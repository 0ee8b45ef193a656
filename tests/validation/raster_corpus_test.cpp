// Real, odd, damaged and formerly crashing files of other projects, with the outcomes that
// independent tools agree on.

#include <algorithm>

#include <gtest/gtest.h>

#include "tests/support/corpus_test.h"
#include "tests/support/outcome.h"

namespace korrin::test {
namespace {

TEST_F(ImageCorpus, IsReadAsIndependentToolsReadIt) {
  for (const ExpectedOutcome& line : lines_) {
    const Outcome outcome = rasterOutcome(readFile(folder_ / line.file));
    EXPECT_TRUE(isLawful(outcome)) << line.file;
    if (line.isFirm) {
      EXPECT_EQ(outcome, line.outcome) << line.file;
    }
  }
}

TEST_F(ImageCorpus, IsReadAlikeWhateverTheMediaTypeSays) {
  for (const ExpectedOutcome& line : lines_) {
    const Bytes bytes = readFile(folder_ / line.file);
    const Outcome outcome = rasterOutcome(bytes);
    EXPECT_EQ(assetOutcome(bytes, std::nullopt), outcome) << line.file;
    EXPECT_EQ(assetOutcome(bytes, line.mediaType), outcome) << line.file;
    EXPECT_EQ(assetOutcome(bytes, "text/plain"), outcome) << line.file;
  }
}

TEST_F(ImageCorpus, IsNoPdf) {
  for (const ExpectedOutcome& line : lines_)
    EXPECT_EQ(assetOutcome(readFile(folder_ / line.file), "application/pdf"), invalidImage)
        << line.file;
}

TEST_F(ImageCorpus, IsReadLawfullyWhereverItIsCutShort) {
  // Headers stand at the front: every length up to 1 KiB, then every hundredth of the rest.
  constexpr std::size_t wholeBytes = 1024;
  for (const ExpectedOutcome& line : lines_) {
    const Bytes bytes = readFile(folder_ / line.file);
    const std::size_t stride = std::max<std::size_t>(1, bytes.size() / 100);
    for (std::size_t size = 0; size < bytes.size(); size += size < wholeBytes ? 1 : stride) {
      // A copy of exactly that length, so that a read past its end is noticed.
      const Bytes prefix(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
      ASSERT_TRUE(isLawful(rasterOutcome(prefix))) << line.file << " cut to " << size;
    }
  }
}

TEST_F(PdfCorpus, IsNoRasterImage) {
  for (const ExpectedOutcome& line : lines_) {
    const Bytes bytes = readFile(folder_ / line.file);
    for (const auto& mediaType :
         {std::optional<std::string_view>(), {"image/png"}, {"application/PDF"}})
      EXPECT_EQ(assetOutcome(bytes, mediaType), invalidImage) << line.file;
  }
}

}  // namespace
}  // namespace korrin::test
