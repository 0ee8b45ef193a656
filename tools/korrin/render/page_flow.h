#pragma once

// Tables one below the other on as many pages as they take.

#include <vector>

#include "list_tables.h"
#include "svg_writer.h"

namespace korrin::host {

/// Draws the tables into the box of one page after another. Titles and column heads stand again
/// where a table goes on overleaf; a row that is higher than a page is divided.
std::vector<SvgWriter> flowTables(const std::vector<ListTable>& tables, const Box& box);

}  // namespace korrin::host
