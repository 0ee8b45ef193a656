#include "commands/fmt_command.h"

#include <memory>

#include "korrin/coding/json.h"

#include "commands/parameters.h"
#include "documents/document_file.h"
#include "documents/plot_document.h"
#include "terminal/failure.h"

namespace korrin::host {

ExitCode format(const FormatOptions& options, Console& console) {
  const bool isToConsole = !options.output || *options.output == standardStream;
  std::string current = inputName(options.file);
  return sayingFailures(console, current, [&] {
    const Input input = readDocument(options.file);
    const Plot plot = readPlot(input.bytes, options.dates);
    const std::string dropped = droppedKeysSentence(plot.unknownKeys);
    const std::string document = encodeJSON(plot.value, options.encoding) + "\n";
    if (isToConsole) {
      console.out << document;
    } else {
      current = *options.output;
      writeDocument(current, document, input, console);
    }
    if (!dropped.empty()) complain(console, inputName(options.file) + ": " + dropped);
    return ExitCode::clean;
  });
}

Command formatCommand() {
  const auto options = std::make_shared<FormatOptions>();
  CommandPage page{
      .name = "fmt",
      .summary = "Write a plot in its canonical form.",
      .arguments = {inputFile("Plot to read; - is standard input", options->file)},
      .options = {output(options->output,
                         "Where to write, the plot itself if you like; standard output when absent "
                         "or -"),
                  flag({"--pretty"}, "One member a line, indented",
                       options->encoding.prettyPrinted),
                  flag({"--sorted-keys"}, "Keys in alphabetical order instead of the format's",
                       options->encoding.sortedKeys),
                  dates(options->dates),
                  choice("--write-dates", "STRATEGY", "How dates are written",
                         options->encoding.dates)},
      .passages = {
          {.prose = "Keys that the format does not know are dropped, and named on standard error. "
                    "The plot is not validated. A file is replaced all at once or not at all. The "
                    "first of several words is the default."},
          {.heading = "Examples",
           .rows = {{"korrin fmt --pretty plot.json", "for reading"},
                    {"korrin fmt --pretty -o plot.json plot.json", "in its place"}}},
          exitStatuses()}};
  return {std::move(page), [options](Console& console) { return format(*options, console); }};
}

}  // namespace korrin::host
