// Collected documents of other projects, with the outcomes that independent tools agree on.

#include "tests/support/corpus_test.h"

#include <gtest/gtest.h>

#include "tests/support/outcome.h"
#include "tests/support/pdf_matchers.h"

namespace korrin::test {
namespace {

TEST_F(PdfCorpus, IsJudgedAsIndependentToolsReadIt) {
  for (const ExpectedOutcome& line : lines_) {
    const Bytes bytes = readFile(folder_ / line.file);
    const Outcome outcome = assetOutcome(bytes, line.mediaType);
    EXPECT_TRUE(isLawful(outcome)) << line.file;
    if (line.isFirm) {
      EXPECT_EQ(outcome, line.outcome) << line.file << " gives " << readFirstPage(bytes);
    }
    EXPECT_EQ(readFirstPage(bytes), readFirstPage(bytes)) << line.file;
  }
}

TEST_F(PdfCorpus, HasAnOutcomeWhereverItIsCutShort) {
  // Every prefix of every file would take long; steps of a prime meet every kind of place.
  constexpr std::size_t stride = 97;
  for (const ExpectedOutcome& line : lines_) {
    const Bytes bytes = readFile(folder_ / line.file);
    for (std::size_t size = 0; size < bytes.size(); size += stride) {
      // A copy of exactly that length, so that a read past its end is noticed.
      const Bytes prefix(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size));
      const PdfPage page = readFirstPage(prefix);
      ASSERT_TRUE(page.outcome == PdfOutcome::box || (page.width == 0 && page.height == 0))
          << line.file << " cut to " << size;
    }
  }
}

}  // namespace
}  // namespace korrin::test
