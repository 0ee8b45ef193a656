#include "commands/new_command.h"

#include <filesystem>
#include <memory>
#include <system_error>

#include "korrin/coding/json.h"

#include "commands/parameters.h"
#include "documents/document_file.h"
#include "documents/plot_document.h"
#include "terminal/failure.h"

namespace korrin::host {
namespace {

KorrinProject newProject(const NewOptions& options) {
  if (options.templateID) return KorrinProject::template_(*options.templateID, options.environment);
  return options.isExample ? KorrinProject::example(options.environment)
                           : KorrinProject::newDocument(options.environment);
}

bool isThere(const std::string& path) {
  std::error_code error;
  return std::filesystem::status(path, error).type() != std::filesystem::file_type::not_found;
}

}  // namespace

ExitCode makeNew(const NewOptions& options, Console& console) {
  const EncodingOptions pretty = {.prettyPrinted = true,
                                  .sortedKeys = false,
                                  .dates = DateStrategy::iso8601,
                                  .nonFinite = NonFinite::fail};
  const std::string document = encodeJSON(newProject(options), pretty) + "\n";
  if (!options.output || *options.output == standardStream) {
    console.out << document;
    return ExitCode::clean;
  }
  const std::string& path = *options.output;
  return sayingFailures(console, path, [&] {
    if (!options.isForced && isThere(path))
      throw FileError("is there already; --force replaces it");
    // Of two that begin the same plot at once, one finds the other's here.
    if (options.isForced)
      writeDocument(path, document, {}, console);
    else
      makeFile(path, document);
    return ExitCode::clean;
  });
}

Command newCommand() {
  const auto options = std::make_shared<NewOptions>();
  Parameter chosenTemplate{.names = {"--template"},
                           .valueName = "ID",
                           .text = "The template to begin with, as korrin templates describes them",
                           .choices = rawValues<KorrinTemplateID>(),
                           .take = [options = options.get()](const std::string& word) {
                             options->templateID = fromRawValue<KorrinTemplateID>(word);
                             if (!options->templateID)
                               throw UsageError("there is no template \"" + word + "\"" +
                                                suggestion(word, rawValues<KorrinTemplateID>(),
                                                           "; korrin templates lists them"));
                           }};
  Parameter example =
      flag({"--example"}, "A festival plot that shows everything", options->isExample);
  example.excludes = {"--template"};
  CommandPage page{
      .name = "new",
      .summary = "Begin a plot: empty, or from a template.",
      .options = {std::move(chosenTemplate), std::move(example), output(options->output),
                  flag({"--force"}, "Replace a file that is there already", options->isForced)},
      .passages = {{.heading = "Examples",
                    .rows = {{"korrin new --template power_trio -o trio.json",
                              "a plot that is complete already"},
                             {"korrin new -o plot.json", "an empty one"}}},
                   exitStatuses()}};
  return {std::move(page), [options](Console& console) { return makeNew(*options, console); }};
}

}  // namespace korrin::host
