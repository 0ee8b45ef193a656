#include "commands/merge_command.h"

#include <memory>
#include <utility>

#include "korrin/review/merge.h"
#include "korrin/session/opening.h"

#include "commands/parameters.h"
#include "documents/document_file.h"
#include "documents/plot_document.h"
#include "revisions/conflict_lines.h"
#include "terminal/failure.h"

namespace korrin::host {
namespace {

/// The plot in the file, of which keys may be lost.
KorrinProject readSide(const std::string& bytes, const std::string& name, DateStrategy dates,
                       Console& console) {
  Plot plot = readPlot(bytes, dates);
  const std::string dropped = droppedKeysSentence(plot.unknownKeys);
  if (!dropped.empty()) complain(console, name + ": " + dropped);
  return std::move(plot.value);
}

}  // namespace

ExitCode merge(const MergeOptions& options, Console& console) {
  std::string output(standardStream);
  if (options.output)
    output = *options.output;
  else if (options.path)
    output = options.ours;
  std::string current = inputName(options.base);
  return sayingFailures(console, current, [&] {
    const std::string baseBytes = readFile(options.base);
    // Git gives an empty file where the two sides have no common one.
    const KorrinProject base =
        baseBytes.empty() ? KorrinProject{} : decodeDocument(baseBytes, options.dates);
    current = inputName(options.ours);
    const Input ourInput = readDocument(options.ours);
    const KorrinProject ours = readSide(ourInput.bytes, current, options.dates, console);
    current = inputName(options.theirs);
    const KorrinProject theirs =
        readSide(readDocument(options.theirs).bytes, current, options.dates, console);

    current = "the merged plot";
    const MergeResult result = korrin::merge(base, ours, theirs);
    requireValid(result.project);
    const std::string document =
        bytesToSave(result.project,
                    {.prettyPrinted = isPrettyPrinted(ourInput.bytes), .dates = options.dates}) +
        "\n";
    const bool isToConsole = output == standardStream;
    if (isToConsole) {
      console.out << document;
    } else {
      current = output;
      writeDocument(output, document, ourInput, console);
    }
    printConflicts(isToConsole ? console.err : console.out, options.path.value_or(options.ours),
                   result.conflicts, {base, ours, theirs});
    return result.conflicts.empty() ? ExitCode::clean : ExitCode::findings;
  });
}

Command mergeCommand() {
  const auto options = std::make_shared<MergeOptions>();
  const auto argument = [](std::string name, std::string text, std::string& file) {
    return Parameter{.names = {std::move(name)},
                     .text = std::move(text),
                     .isRequired = true,
                     .isInput = true,
                     .take = [&file](const std::string& word) { file = word; }};
  };
  CommandPage page{
      .name = "merge",
      .summary = "Bring two edited copies of one plot together.",
      .arguments = {argument("BASE", "Plot before both edits; empty where there was none",
                             options->base),
                    argument("OURS", "One edited copy", options->ours),
                    argument("THEIRS", "The other edited copy", options->theirs),
                    {.names = {"PATH"},
                     .text = "What git calls the plot; the merged plot replaces OURS then",
                     .take = [options](const std::string& word) { options->path = word; }}},
      .options = {output(options->output), dates(options->dates, "How dates stand in the plots")},
      .passages = {
          {.prose = "The merged plot has the edits of both sides, record by record and field by "
                    "field. Where both changed one field differently it has ours, and the "
                    "conflict is listed. A record that one side removed and the other changed is "
                    "kept as changed, and listed. With git: git config merge.korrin.driver "
                    "'korrin merge %O %A %B %P'."},
          {.heading = "Examples",
           .rows = {{"korrin merge monday.json anna.json ben.json -o friday.json",
                     "the edits of both"}}},
          {.heading = "Exit status",
           .rows = {{"0", "merged"},
                    {"1", "merged, with conflicts to look at"},
                    {"2", "a file cannot be read or written, is not a plot, or is not valid"},
                    {"3", "a document needs a newer version of korrin"},
                    {"64", "the command line cannot be understood"}}}}};
  return {std::move(page), [options](Console& console) { return merge(*options, console); }};
}

}  // namespace korrin::host
