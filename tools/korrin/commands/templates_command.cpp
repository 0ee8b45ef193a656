#include "commands/templates_command.h"

#include <memory>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "korrin/templates/korrin_template.h"

#include "commands/parameters.h"
#include "terminal/text_table.h"

namespace korrin::host {
namespace {

using Json = nlohmann::ordered_json;

void printJSON(std::ostream& out) {
  Json templates = Json::array();
  for (const KorrinTemplateID id : allCases<KorrinTemplateID>())
    templates.push_back({{"id", rawValue(id)}, {"title", title(id)}, {"summary", summary(id)}});
  out << Json{{"templates", templates}}.dump(2) << '\n';
}

void printText(std::ostream& out, const Terminal& terminal) {
  std::vector<TableRow> rows;
  for (const KorrinTemplateID id : allCases<KorrinTemplateID>())
    rows.push_back({{std::string(rawValue(id)), std::string(title(id)), std::string(summary(id))}});
  printTable(out, terminal, {{"TEMPLATE", "TITLE", "SUMMARY"}}, rows);
}

}  // namespace

ExitCode listTemplates(const TemplatesOptions& options, Console& console) {
  if (options.format == ReportFormat::json) {
    printJSON(console.out);
  } else {
    printText(console.out, console.outTerminal);
  }
  return ExitCode::clean;
}

Command templatesCommand() {
  const auto options = std::make_shared<TemplatesOptions>();
  CommandPage page{
      .name = "templates",
      .summary = "List the templates a plot can begin with.",
      .options = {choice("--format", "FORMAT", "How they are printed", options->format)},
      .passages = {firstChoiceIsDefault()}};
  return {std::move(page),
          [options](Console& console) { return listTemplates(*options, console); }};
}

}  // namespace korrin::host
