#include "findings_table.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <numeric>
#include <string>

#include "concern.h"
#include "display_text.h"

namespace korrin::host {
namespace {

constexpr std::size_t columnCount = 4;
using Cells = std::array<std::string, columnCount>;
using Widths = std::array<std::size_t, columnCount>;

constexpr std::size_t indentation = 2;
constexpr std::size_t gap = 2;
constexpr std::size_t longestConcern = 40;
constexpr std::size_t longestDetail = 400;
constexpr std::size_t narrowestColumn = 11;

struct Row {
  PreflightSeverity severity;
  Cells cells;
};

std::vector<Row> rowsOf(const KorrinProject& project, const std::vector<PreflightIssue>& issues) {
  const Concerns concerns(project);
  std::vector<Row> rows;
  rows.reserve(issues.size());
  for (const PreflightIssue& issue : issues)
    rows.push_back({issue.severity,
                    {std::string(rawValue(issue.severity)), printable(issue.title),
                     shortened(printable(concerns.of(issue)), longestConcern),
                     shortened(printable(issue.detail), longestDetail)}});
  return rows;
}

/// The widths of the columns' contents, the widest narrowed until all fit the terminal.
Widths fittingWidths(const Cells& head, const std::vector<Row>& rows, const Terminal& terminal) {
  Widths widths{};
  for (std::size_t i = 0; i < columnCount; ++i) {
    widths[i] = displayWidth(head[i]);
    for (const Row& row : rows) widths[i] = std::max(widths[i], displayWidth(row.cells[i]));
  }
  if (terminal.width == 0) return widths;
  constexpr std::size_t between = indentation + gap * (columnCount - 1);
  const std::size_t room = std::max(terminal.width, between) - between;
  while (std::accumulate(widths.begin(), widths.end(), std::size_t{0}) > room) {
    std::size_t& widest = *std::max_element(widths.begin(), widths.end());
    if (widest <= narrowestColumn) break;
    --widest;
  }
  return widths;
}

Colour colourOf(PreflightSeverity severity) {
  switch (severity) {
    case PreflightSeverity::error:
      return Colour::red;
    case PreflightSeverity::warning:
      return Colour::yellow;
    case PreflightSeverity::information:
      break;
  }
  return Colour::blue;
}

/// Prints the cells side by side, each on as many lines as it needs. `paint` is put around the
/// first cell after it was measured.
template <class Paint>
void printCells(std::ostream& out, const Cells& cells, const Widths& widths, Paint paint) {
  std::array<std::vector<std::string>, columnCount> lines;
  std::size_t height = 0;
  for (std::size_t i = 0; i < columnCount; ++i) {
    lines[i] = wrapped(cells[i], widths[i]);
    height = std::max(height, lines[i].size());
  }
  for (std::size_t line = 0; line < height; ++line) {
    std::size_t blanks = indentation;
    for (std::size_t i = 0; i < columnCount; ++i) {
      const std::string text = line < lines[i].size() ? lines[i][line] : std::string();
      if (!text.empty()) {
        out << std::string(blanks, ' ') << (i == 0 ? paint(text) : text);
        blanks = 0;
      }
      blanks += widths[i] - std::min(widths[i], displayWidth(text)) + gap;
    }
    out << '\n';
  }
}

std::string counted(std::size_t count, std::string_view one, std::string_view many) {
  return std::to_string(count) + " " + std::string(count == 1 ? one : many);
}

}  // namespace

void printFindings(std::ostream& out, const Terminal& terminal, const KorrinProject& project,
                   const std::vector<PreflightIssue>& issues) {
  if (issues.empty()) return;
  const Cells head = {"SEVERITY", "FINDING", "CONCERNS", "DETAIL"};
  const std::vector<Row> rows = rowsOf(project, issues);
  const Widths widths = fittingWidths(head, rows, terminal);
  printCells(out, head, widths, [](const std::string& text) { return text; });
  for (const Row& row : rows)
    printCells(out, row.cells, widths, [&](const std::string& text) {
      return coloured(terminal, colourOf(row.severity), text);
    });
}

std::string summaryLine(const FileFindings& file) {
  std::string line = printable(file.name) + ": ";
  const auto [errors, warnings, information] = file.counts();
  if (file.issues.empty())
    line += "no findings";
  else
    line += counted(errors, "error", "errors") + ", " + counted(warnings, "warning", "warnings") +
            ", " + std::to_string(information) + " for information";
  if (!file.missingAssetNotRunReason.empty())
    line += "; " + std::string(rawValue(PreflightRule::missingAsset)) + ": not run, " +
            file.missingAssetNotRunReason;
  return line;
}

}  // namespace korrin::host
