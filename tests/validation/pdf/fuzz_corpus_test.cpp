// Replays what fuzzing has collected, without the fuzzer.

#include "tests/support/fuzz_corpus.h"

#include <string>

#include <gtest/gtest.h>

#include "tests/support/pdf_matchers.h"

namespace korrin {
namespace {

TEST(FuzzCorpus, HasAnOutcomeForEachFile) {
  const std::vector<test::FuzzInput> inputs = test::fuzzInputs("pdf");
  for (const auto& [name, bytes] : inputs) {
    const PdfPage page = test::pageOf(std::string(bytes.begin(), bytes.end()));
    EXPECT_FALSE(page.width < 0 || page.height < 0) << name;
    if (page.outcome != PdfOutcome::box) {
      EXPECT_TRUE(page.width == 0 && page.height == 0) << name;
    }
  }
  EXPECT_GE(inputs.size(), 100u);
}

}  // namespace
}  // namespace korrin
