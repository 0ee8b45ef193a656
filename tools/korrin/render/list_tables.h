#pragma once

// The lists of a plot as tables.

#include <cstddef>
#include <string>
#include <vector>

#include "korrin/model/project.h"

namespace korrin::host {

struct ListColumn {
  std::string title;
  double share;               ///< Of the width, relative to the other columns'.
  std::size_t mostLines = 6;  ///< Longer texts are shortened.
};

struct ListTable {
  std::string title;
  std::vector<ListColumn> columns;
  std::vector<std::vector<std::string>> rows;  ///< A text for each column.
};

/// The lists that the plot's export settings include and that have rows.
std::vector<ListTable> includedLists(const KorrinProject& project);

}  // namespace korrin::host
