#pragma once

// The fixture of tests over one folder of third-party files, skipped when there are no corpora.

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/corpora.h"

namespace korrin::test {

class CorpusTest : public testing::Test {
 protected:
  explicit CorpusTest(std::string name) : name_(std::move(name)) {}

  void SetUp() override {
    const auto folder = corpusFolder(name_);
    if (!folder) GTEST_SKIP() << "the corpora are not beside the repository";
    folder_ = *folder;
    lines_ = expectedOutcomes(folder_);
    ASSERT_FALSE(lines_.empty());
  }

  std::filesystem::path folder_;
  std::vector<ExpectedOutcome> lines_;

 private:
  const std::string name_;
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
