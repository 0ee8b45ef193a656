// Replays what fuzzing has collected, without the fuzzer.

#include <filesystem>
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "tests/support/pdf_matchers.h"

namespace korrin {
namespace {

TEST(FuzzCorpus, HasAnOutcomeForEachFile) {
  const std::filesystem::path folder = std::filesystem::path(KORRIN_SOURCE_DIR) / "fuzz/corpus/pdf";
  std::size_t files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    std::ifstream file(entry.path(), std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    const PdfPage page = test::pageOf(content);
    EXPECT_FALSE(page.width < 0 || page.height < 0) << entry.path();
    if (page.outcome != PdfOutcome::box) {
      EXPECT_TRUE(page.width == 0 && page.height == 0) << entry.path();
    }
    ++files;
  }
  EXPECT_GE(files, 100u);
}

}  // namespace
}  // namespace korrin
