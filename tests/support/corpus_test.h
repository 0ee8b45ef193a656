#pragma once

// The fixture of tests over one folder of third-party files, skipped when it is absent.

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/corpora.h"

namespace korrin::test {

class CorpusTest : public testing::Test {
 protected:
  explicit CorpusTest(const std::string& name) : folder_(corpusFolder(name)) {}

  void SetUp() override {
    if (!exists(folder_)) GTEST_SKIP() << "there is no corpus at " << folder_;
    lines_ = expectedOutcomes(folder_);
    ASSERT_FALSE(lines_.empty());
  }

  const std::filesystem::path folder_;
  std::vector<ExpectedOutcome> lines_;
};

class ImageCorpus : public CorpusTest {
 protected:
  ImageCorpus() : CorpusTest("images") {}
};

class PdfCorpus : public CorpusTest {
 protected:
  PdfCorpus() : CorpusTest("pdf") {}
};

}  // namespace korrin::test
