#pragma once

// A page that describes a format, as a program reads it: by heading, the first paragraph and the
// rows of the tables. The schema takes its descriptions from here, so that each is written once.

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace korrin::host {

/// One line of a table: its cells, without the blanks around them.
using PageRow = std::vector<std::string>;

struct PageSection {
  std::string opening;        ///< The first paragraph on one line; empty when there is none.
  std::vector<PageRow> rows;  ///< Of all tables of the section, without their column titles.
};

class Page {
 public:
  explicit Page(std::string_view markdown);

  const std::string& title() const { return title_; }
  /// By heading, marks of code removed.
  const std::map<std::string, PageSection>& sections() const { return sections_; }

  /// The first paragraph of a section; null when the page has none.
  const std::string* opening(std::string_view heading) const;
  /// The row of a section whose first cell is `name`, or begins with it as code; null when the page
  /// has none.
  const PageRow* row(std::string_view heading, std::string_view name) const;

 private:
  std::string title_;
  std::map<std::string, PageSection> sections_;
};

/// What a row is about: its first cell, or the code that it begins with.
std::string_view nameOfRow(const PageRow& row);

}  // namespace korrin::host
