#pragma once

// The lists of a plot as tables.

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "korrin/drawing/shortened_texts.h"
#include "korrin/drawing/stage_drawing.h"

namespace korrin::drawing {

/// The texts of a row, one for each column.
using Cells = std::vector<Text>;

struct ListTable {
  std::string title;
  std::vector<std::string> columns;
  std::size_t rowCount;
  /// The cells of a row below `rowCount`. Rows are made when they are drawn, since all at once may
  /// take more memory than the plot.
  std::function<Cells(std::size_t)> row;
};

/// The lists that the plot's export settings include and that have rows, with the totals of the
/// inputs behind these. The project must outlive the result.
std::vector<ListTable> includedLists(const KorrinProject& project);

/// The items that are not drawn, and the texts that were shortened, where there are any. The
/// arguments must outlive the result.
std::vector<ListTable> remarks(const DrawnStage& drawn, const ShortenedTexts& shortened);

}  // namespace korrin::drawing
