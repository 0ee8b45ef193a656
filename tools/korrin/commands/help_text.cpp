#include "commands/help_text.h"

namespace korrin::host {
namespace {

std::vector<Row> rowsOf(const std::vector<Parameter>& parameters) {
  std::vector<Row> rows;
  for (const Parameter& parameter : parameters)
    if (!parameter.isHidden) rows.push_back({parameter.use(), parameter.description()});
  return rows;
}

void addRows(std::vector<Passage>& passages, std::string heading, std::vector<Row> rows) {
  if (!rows.empty()) passages.push_back({.heading = std::move(heading), .rows = std::move(rows)});
}

}  // namespace

std::string helpText(const CommandPage& page) {
  std::vector<Row> commands;
  for (const CommandPage& command : page.subcommands)
    commands.push_back({command.name, command.summary});
  std::vector<Passage> passages = {{.prose = "Usage: " + page.use()}, {.prose = page.summary}};
  addRows(passages, "Commands", commands);
  addRows(passages, "Arguments", rowsOf(page.arguments));
  addRows(passages, "Options", rowsOf(page.options));
  passages.insert(passages.end(), page.passages.begin(), page.passages.end());
  return textOf(passages);
}

}  // namespace korrin::host
