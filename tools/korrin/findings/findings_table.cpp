#include "findings/findings_table.h"

#include <cstddef>
#include <string>
#include <string_view>

#include "assets/asset_table.h"
#include "findings/finding_rows.h"
#include "terminal/display_text.h"
#include "terminal/text_table.h"

namespace korrin::host {
namespace {

constexpr std::size_t longestConcern = 40;
constexpr std::size_t longestDetail = 400;

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

std::string counted(std::size_t count, std::string_view one, std::string_view many) {
  return std::to_string(count) + " " + std::string(count == 1 ? one : many);
}

}  // namespace

void printFindings(std::ostream& out, const Terminal& terminal, const KorrinProject& project,
                   const std::vector<PreflightIssue>& issues) {
  printRows(out, terminal, rowsOf(project, issues, {}));
}

void printRows(std::ostream& out, const Terminal& terminal, const std::vector<FindingRow>& rows) {
  if (rows.empty()) return;
  std::vector<TableRow> lines;
  lines.reserve(rows.size());
  // Texts are made printable before they are shortened, as that can make them longer.
  for (const FindingRow& row : rows)
    lines.push_back({.cells = {std::string(rawValue(row.severity)), row.title.str(),
                               shortened(printable(row.concern), longestConcern),
                               shortened(printable(row.detail), longestDetail)},
                     .colour = colourOf(row.severity)});
  printTable(out, terminal, {.cells = {"SEVERITY", "FINDING", "CONCERNS", "DETAIL"}}, lines);
}

void printWaivers(std::ostream& out, const Terminal& terminal, const FileFindings& file) {
  const auto authorOf = [](const Waiver& waiver) {
    return waiver.author.isBlank() ? std::string()
                                   : shortened(printable(waiver.author), longestConcern);
  };
  if (!file.waived.empty()) {
    std::vector<TableRow> lines;
    for (const AcceptedFinding& accepted : file.waived)
      lines.push_back({.cells = {accepted.row.title.str(),
                                 shortened(printable(accepted.row.concern), longestConcern),
                                 authorOf(accepted.waiver),
                                 shortened(printable(accepted.waiver.reason), longestDetail)},
                       .colour = Colour::blue});
    printTable(out, terminal, {.cells = {"ACCEPTED", "CONCERNS", "BY", "WHY"}}, lines);
  }
  for (const Waiver& waiver : file.stale)
    out << "  stale waiver, its finding is no more: "
        << shortened(printable(waiver.findingID), longestDetail) << '\n';
}

std::string summaryLine(const FileFindings& file) {
  std::string line = printable(file.name) + ": ";
  const auto [errors, warnings, information] = file.counts();
  if (errors + warnings + information == 0)
    line += "no findings";
  else
    line += counted(errors, "error", "errors") + ", " + counted(warnings, "warning", "warnings") +
            ", " + std::to_string(information) + " for information";
  if (!file.waived.empty()) line += ", " + std::to_string(file.waived.size()) + " accepted";
  if (!file.stale.empty())
    line += ", " + counted(file.stale.size(), "stale waiver", "stale waivers");
  if (!file.missingAssetNotRunReason.empty())
    line += "; " + std::string(rawValue(PreflightRule::missingAsset)) + ": not run, " +
            file.missingAssetNotRunReason;
  if (file.assets)
    line += file.assets->empty() ? "; no assets" : "; assets: " + assetSummary(*file.assets);
  return line;
}

}  // namespace korrin::host
