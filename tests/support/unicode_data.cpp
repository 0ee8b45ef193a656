#include "tests/support/unicode_data.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <stdexcept>

#include <bzlib.h>

#include "korrin/foundation/utf8.h"

#include "tests/support/files.h"

namespace korrin::test {
namespace {

const std::filesystem::path packageFolder = "/usr/share/unicode";

char32_t scalarOf(const std::string& hexadecimal) {
  return static_cast<char32_t>(std::stoul(hexadecimal, nullptr, 16));
}

// "0044 0307" as UTF-8.
std::string textOf(const std::string& scalars) {
  std::istringstream words(scalars);
  std::string text;
  for (std::string word; words >> word;) utf8::append(text, scalarOf(word));
  return text;
}

std::string decompressed(const std::filesystem::path& path) {
  const auto close = [](BZFILE* file) { BZ2_bzclose(file); };
  const std::unique_ptr<BZFILE, decltype(close)> file(BZ2_bzopen(path.c_str(), "rb"), close);
  std::string content;
  std::string block(1 << 16, '\0');
  int count = 0;
  while ((count = BZ2_bzread(file.get(), block.data(), static_cast<int>(block.size()))) > 0)
    content.append(block, 0, static_cast<std::size_t>(count));
  if (count < 0) throw std::runtime_error("cannot decompress " + path.string());
  return content;
}

std::optional<std::string> normalizationTest() {
  const std::filesystem::path plain = packageFolder / "NormalizationTest.txt";
  if (exists(plain)) return contentOf(plain);
  const std::string compressed = "NormalizationTest.txt.bz2";
  for (const auto& folder : {packageFolder, std::filesystem::path(KORRIN_CORPORA_DIR) / "unicode"})
    if (exists(folder / compressed)) return decompressed(folder / compressed);
  return std::nullopt;
}

}  // namespace

std::string utf8Of(char32_t scalar) {
  std::string text;
  utf8::append(text, scalar);
  return text;
}

std::optional<std::set<char32_t>> scalarsWithProperty(const std::string& property) {
  std::ifstream file(packageFolder / "PropList.txt");
  if (!file) return std::nullopt;
  std::set<char32_t> scalars;
  for (std::string line; std::getline(file, line);) {
    line = line.substr(0, line.find('#'));
    std::istringstream words(line);
    std::string range, semicolon, name;
    if (!(words >> range >> semicolon >> name) || name != property) continue;
    const char32_t first = scalarOf(range);
    const std::size_t dots = range.find("..");
    const char32_t last = dots == std::string::npos ? first : scalarOf(range.substr(dots + 2));
    for (char32_t scalar = first; scalar <= last; ++scalar) scalars.insert(scalar);
  }
  return scalars;
}

std::optional<std::vector<NormalizationRow>> normalizationRows() {
  const auto content = normalizationTest();
  if (!content) return std::nullopt;
  std::vector<NormalizationRow> rows;
  std::istringstream lines(*content);
  bool isSingleScalar = false;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with('@')) isSingleScalar = line.starts_with("@Part1 ");
    if (line.empty() || line.starts_with('#') || line.starts_with('@')) continue;
    std::istringstream columns(line);
    std::string column[5];
    for (std::string& text : column) std::getline(columns, text, ';');
    rows.push_back({.source = textOf(column[0]),
                    .nfc = textOf(column[1]),
                    .nfd = textOf(column[2]),
                    .nfkc = textOf(column[3]),
                    .nfkd = textOf(column[4]),
                    .isSingleScalar = isSingleScalar});
  }
  return rows;
}

}  // namespace korrin::test
