#include "terminal/text_table.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

#include "terminal/display_text.h"

namespace korrin::host {
namespace {

using Widths = std::vector<std::size_t>;

constexpr std::size_t indentation = 2;
constexpr std::size_t gap = 2;
constexpr std::size_t narrowestColumn = 11;

TableRow printable(TableRow row) {
  for (std::string& cell : row.cells) cell = host::printable(cell);
  return row;
}

/// The widths of the columns' contents, the widest narrowed until all fit the terminal.
Widths fittingWidths(const std::vector<TableRow>& rows, const Terminal& terminal) {
  Widths widths(rows.front().cells.size());
  for (const TableRow& row : rows)
    for (std::size_t i = 0; i < widths.size(); ++i)
      widths[i] = std::max(widths[i], displayWidth(row.cells[i]));
  if (terminal.width == 0) return widths;
  const std::size_t between = indentation + gap * (widths.size() - 1);
  const std::size_t room = std::max(terminal.width, between) - between;
  while (std::accumulate(widths.begin(), widths.end(), std::size_t{0}) > room) {
    std::size_t& widest = *std::max_element(widths.begin(), widths.end());
    if (widest <= narrowestColumn) break;
    --widest;
  }
  return widths;
}

/// Prints the cells side by side, each on as many lines as it needs.
void printRow(std::ostream& out, const Terminal& terminal, const TableRow& row,
              const Widths& widths) {
  std::vector<std::vector<std::string>> lines;
  std::size_t height = 0;
  for (std::size_t i = 0; i < widths.size(); ++i) {
    lines.push_back(wrapped(row.cells[i], widths[i]));
    height = std::max(height, lines[i].size());
  }
  for (std::size_t line = 0; line < height; ++line) {
    std::size_t blanks = indentation;
    for (std::size_t i = 0; i < widths.size(); ++i) {
      const std::string text = line < lines[i].size() ? lines[i][line] : std::string();
      if (!text.empty()) {
        const bool isPainted = i == 0 && row.colour;
        out << std::string(blanks, ' ')
            << (isPainted ? coloured(terminal, *row.colour, text) : text);
        blanks = 0;
      }
      blanks += widths[i] - std::min(widths[i], displayWidth(text)) + gap;
    }
    out << '\n';
  }
}

}  // namespace

void printTable(std::ostream& out, const Terminal& terminal, const TableRow& head,
                const std::vector<TableRow>& rows) {
  std::vector<TableRow> all = {printable(head)};
  all.reserve(rows.size() + 1);
  for (const TableRow& row : rows) all.push_back(printable(row));
  const Widths widths = fittingWidths(all, terminal);
  for (const TableRow& row : all) printRow(out, terminal, row, widths);
}

}  // namespace korrin::host
