#include "terminal/passages.h"

#include <algorithm>
#include <cstddef>

#include "terminal/display_text.h"

namespace korrin::host {
namespace {

constexpr std::size_t columns = 80;
constexpr std::size_t widestOrdinaryTerm = 26;

std::string blanks(std::size_t count) { return std::string(count, ' '); }

std::string paragraph(const std::string& text) {
  std::string lines;
  for (const std::string& line : wrapped(text, columns)) lines += line + "\n";
  return lines;
}

/// The width of the column of terms: that of the longest if every text then fits on its line,
/// otherwise that of the longest which is not out of the ordinary.
std::size_t termColumn(const std::vector<Row>& rows) {
  std::size_t longest = 0;
  std::size_t ordinary = 0;
  std::size_t longestText = 0;
  for (const Row& row : rows) {
    const std::size_t width = displayWidth(row.term);
    longest = std::max(longest, width);
    if (width <= widestOrdinaryTerm) ordinary = std::max(ordinary, width);
    longestText = std::max(longestText, displayWidth(row.text));
  }
  return 2 + longest + 2 + longestText <= columns ? longest : ordinary;
}

std::string table(const std::vector<Row>& rows) {
  const std::size_t start = 2 + termColumn(rows) + 2;
  std::string text;
  for (const Row& row : rows) {
    std::string line = "  " + row.term;
    if (displayWidth(line) + 2 > start) {
      text += line + "\n";
      line.clear();
    }
    for (const std::string& part : wrapped(row.text, columns - start)) {
      text += line + blanks(start - displayWidth(line)) + part + "\n";
      line.clear();
    }
  }
  return text;
}

}  // namespace

std::string textOf(const Passage& passage) {
  return passage.heading.empty() ? paragraph(passage.prose)
                                 : passage.heading + ":\n" + table(passage.rows);
}

std::string textOf(const std::vector<Passage>& passages) {
  std::string text;
  for (const Passage& passage : passages) text += (text.empty() ? "" : "\n") + textOf(passage);
  return text;
}

}  // namespace korrin::host
