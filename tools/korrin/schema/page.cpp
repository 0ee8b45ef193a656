#include "schema/page.h"

#include <algorithm>
#include <sstream>

#include "terminal/words.h"

namespace korrin::host {
namespace {

// The cells of "| a | b |".
PageRow cellsOf(const std::string& line) {
  PageRow cells;
  std::istringstream parts(line.substr(1));
  for (std::string cell; std::getline(parts, cell, '|');) cells.emplace_back(trimmed(cell));
  return cells;
}

std::string headingOf(const std::string& line) {
  std::string heading(trimmed(std::string_view(line).substr(line.find_first_not_of('#'))));
  std::erase(heading, '`');
  return heading;
}

}  // namespace

Page::Page(std::string_view markdown) {
  std::istringstream page{std::string(markdown)};
  PageSection* section = nullptr;
  bool isCode = false;
  bool isTable = false;
  bool mayOpen = false;  // no paragraph, table or code has ended since the heading
  for (std::string line; std::getline(page, line);) {
    if (line.starts_with("```")) isCode = !isCode;
    const bool isRow = !isCode && line.starts_with('|');
    if (!isCode && line.starts_with('#')) {
      const std::string heading = headingOf(line);
      if (title_.empty()) title_ = heading;
      section = &sections_[heading];
      mayOpen = true;
    } else if (section == nullptr) {
      continue;
    } else if (isRow && !isTable) {
      std::getline(page, line);  // the rule under the column titles
      mayOpen = false;
    } else if (isRow) {
      section->rows.push_back(cellsOf(line));
    } else if (line.empty() || line.starts_with("```")) {
      if (!section->opening.empty()) mayOpen = false;
    } else if (mayOpen && !isCode) {
      section->opening += (section->opening.empty() ? "" : " ") + line;
    }
    isTable = isRow;
  }
}

const std::string* Page::opening(std::string_view heading) const {
  const auto section = sections_.find(std::string(heading));
  if (section == sections_.end() || section->second.opening.empty()) return nullptr;
  return &section->second.opening;
}

const PageRow* Page::row(std::string_view heading, std::string_view name) const {
  const auto section = sections_.find(std::string(heading));
  if (section == sections_.end()) return nullptr;
  const std::vector<PageRow>& rows = section->second.rows;
  const auto found = std::ranges::find(rows, name, nameOfRow);
  return found == rows.end() ? nullptr : &*found;
}

std::string_view nameOfRow(const PageRow& row) {
  const std::string_view cell = row.front();
  if (!cell.starts_with('`')) return cell;
  return cell.substr(1, cell.find('`', 1) - 1);
}

}  // namespace korrin::host
