// Files of other projects, judged by their content alone.

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "assets/asset_verdict.h"
#include "tests/support/corpus_test.h"
#include "tests/support/outcome.h"

namespace korrin::host {
namespace {

void expectOutcomesOf(const std::filesystem::path& folder,
                      const std::vector<test::ExpectedOutcome>& lines) {
  for (const test::ExpectedOutcome& line : lines) {
    const AssetVerdict verdict = judgeAsset(test::readFile(folder / line.file), std::nullopt);
    EXPECT_EQ(verdict.error.has_value(), !verdict.reason.empty()) << line.file;
    if (!line.isFirm) continue;
    std::string outcome = std::to_string(verdict.pixels);
    if (verdict.error == DocumentValidationError(DocumentValidationError::invalidImage))
      outcome = test::invalidImage;
    if (verdict.error == DocumentValidationError(DocumentValidationError::imageTooLarge))
      outcome = test::imageTooLarge;
    EXPECT_EQ(outcome, line.outcome) << line.file << ": " << verdict.reason;
  }
}

using test::ImageCorpus;
using test::PdfCorpus;

TEST_F(ImageCorpus, IsJudgedByItsContent) { expectOutcomesOf(folder_, lines_); }
TEST_F(PdfCorpus, IsJudgedByItsContent) { expectOutcomesOf(folder_, lines_); }

}  // namespace
}  // namespace korrin::host
