#include "tests/support/corpora.h"

#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace korrin::test {

std::optional<std::filesystem::path> corpusFolder(const std::string& name) {
  const std::filesystem::path corpora = KORRIN_CORPORA_DIR;
  if (!exists(corpora)) return std::nullopt;
  if (!exists(corpora / name)) throw std::runtime_error("the corpora have no folder " + name);
  return corpora / name;
}

std::vector<ExpectedOutcome> expectedOutcomes(const std::filesystem::path& folder) {
  std::vector<ExpectedOutcome> lines;
  std::ifstream table(folder / "expected.tsv");
  std::string line;
  std::getline(table, line);  // the column titles
  while (std::getline(table, line)) {
    std::istringstream columns(line);
    std::string file, mediaType, outcome, confidence;
    std::getline(columns, file, '\t');
    std::getline(columns, mediaType, '\t');
    std::getline(columns, outcome, '\t');
    std::getline(columns, confidence, '\t');
    if (confidence != "firm" && confidence != "ambiguous")
      throw std::runtime_error("not a line of expected outcomes: " + line);
    lines.push_back(
        {.file = file, .mediaType = mediaType, .outcome = outcome, .isFirm = confidence == "firm"});
  }
  return lines;
}

Bytes readFile(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string content{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (!file) throw std::runtime_error("cannot read " + path.string());
  return bytesOf(content);
}

}  // namespace korrin::test
