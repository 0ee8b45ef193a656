#pragma once

// Tables of texts for a person to read.

#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "terminal/terminal.h"

namespace korrin::host {

struct TableRow {
  std::vector<std::string> cells;     ///< As many as the table has columns; any bytes.
  std::optional<Colour> colour = {};  ///< Of the first cell; absent for none.
};

/// Prints a table in columns aligned by display width. Cells are made printable; where the
/// terminal is too narrow the widest columns are narrowed and their cells wrapped.
void printTable(std::ostream& out, const Terminal& terminal, const TableRow& head,
                const std::vector<TableRow>& rows);

}  // namespace korrin::host
