#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/support/pdf_matchers.h"

namespace korrin {
namespace {

using namespace test;

const std::filesystem::path corpus = std::filesystem::path(KORRIN_CORPORA_DIR) / "pdf";

struct Expectation {
  std::string file;
  std::string outcome;
  bool firm;
};

std::vector<Expectation> expectations() {
  std::vector<Expectation> rows;
  std::ifstream table(corpus / "expected.tsv");
  std::string line;
  std::getline(table, line);
  while (std::getline(table, line)) {
    std::stringstream fields(line);
    Expectation row;
    std::string mediaType;
    std::string confidence;
    std::getline(fields, row.file, '\t');
    std::getline(fields, mediaType, '\t');
    std::getline(fields, row.outcome, '\t');
    std::getline(fields, confidence, '\t');
    row.firm = confidence == "firm";
    rows.push_back(row);
  }
  return rows;
}

std::string contentOf(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// The verdict on an embedded PDF, as the table writes it.
std::string verdict(const PdfPage& page) {
  if (page.outcome == PdfOutcome::unreadable) return "invalidImage";
  const auto fits = [](double extent) {
    return std::isfinite(extent) && extent > 0 && extent <= 20000;
  };
  return page.outcome == PdfOutcome::box && fits(page.width) && fits(page.height) ? "0"
                                                                                  : "imageTooLarge";
}

TEST(Corpus, OfCollectedDocumentsIsJudgedAsExpected) {
  if (!std::filesystem::exists(corpus)) GTEST_SKIP() << "no collected documents at " << corpus;
  const auto rows = expectations();
  ASSERT_EQ(rows.size(), 454u);
  for (const Expectation& row : rows) {
    const std::string content = contentOf(corpus / row.file);
    ASSERT_FALSE(content.empty()) << row.file;
    const PdfPage page = pageOf(content);
    if (row.firm) {
      EXPECT_EQ(verdict(page), row.outcome) << row.file << " gives " << page;
    }
    EXPECT_EQ(pageOf(content), page) << row.file << " gives another answer the second time";
  }
}

TEST(Corpus, OfCollectedDocumentsHasAnOutcomeForPrefixes) {
  if (!std::filesystem::exists(corpus)) GTEST_SKIP() << "no collected documents at " << corpus;
  for (const Expectation& row : expectations()) {
    const std::string content = contentOf(corpus / row.file);
    // Every prefix of every file would take long; steps of a prime meet every kind of place.
    for (std::size_t size = 0; size < content.size(); size += 97) {
      const PdfPage page = pageOf(std::string_view(content).substr(0, size));
      ASSERT_TRUE(page.outcome == PdfOutcome::box || (page.width == 0 && page.height == 0));
    }
  }
}

}  // namespace
}  // namespace korrin
