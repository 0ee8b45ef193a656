#include "findings/findings_table.h"

#include <cstddef>
#include <string>
#include <string_view>

#include "assets/asset_table.h"
#include "findings/concern.h"
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
  if (issues.empty()) return;
  const Concerns concerns(project);
  std::vector<TableRow> rows;
  rows.reserve(issues.size());
  // Texts are made printable before they are shortened, as that can make them longer.
  for (const PreflightIssue& issue : issues)
    rows.push_back({.cells = {std::string(rawValue(issue.severity)), issue.title.str(),
                              shortened(printable(concerns.of(issue)), longestConcern),
                              shortened(printable(issue.detail), longestDetail)},
                    .colour = colourOf(issue.severity)});
  printTable(out, terminal, {.cells = {"SEVERITY", "FINDING", "CONCERNS", "DETAIL"}}, rows);
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
  if (file.assets)
    line += file.assets->empty() ? "; no assets" : "; assets: " + assetSummary(*file.assets);
  return line;
}

}  // namespace korrin::host
