#include "commands/edit_command.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <string_view>
#include <utility>

#include <unistd.h>

#include "commands/parameters.h"
#include "documents/document_file.h"
#include "documents/plot_document.h"
#include "editing/edit_commands.h"
#include "editing/edit_session.h"
#include "editing/edit_words.h"
#include "terminal/display_text.h"
#include "terminal/failure.h"
#include "terminal/terminal_lines.h"

namespace korrin::host {
namespace {

enum class Echo { none, line };

/// Runs one line; absent when it was carried out, otherwise what to exit with if it is the last.
std::optional<ExitCode> refused(EditSession& session, std::string_view line, Console& console,
                                const std::string& place, Echo echo) {
  std::optional<ExitCode> refusal;
  const ExitCode result = sayingFailures(console, place, [&] {
    try {
      if (echo == Echo::line) console.out << "> " + printable(line) + "\n";
      session.run(line);
    } catch (const std::bad_alloc&) {
      throw LineError("there is not enough memory for this line");
    }
    return ExitCode::clean;
  });
  if (result != ExitCode::clean) refusal = result;
  return refusal;
}

ExitCode runTyped(EditSession& session, Console& console) {
  TerminalLines lines("korrin> ");
  while (!session.isOver()) {
    console.out.flush();
    const std::optional<std::string> line = lines.next();
    if (!line) {
      console.out << '\n';
      break;
    }
    refused(session, *line, console, "", Echo::none);
  }
  return ExitCode::clean;
}

ExitCode runScript(EditSession& session, const std::string& script, Console& console) {
  const std::string text = readFile(script);
  std::string_view rest = text;
  for (std::size_t number = 1; !rest.empty() && !session.isOver(); ++number) {
    const std::size_t end = rest.find('\n');
    std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    if (line.empty()) continue;
    const std::string place = inputName(script) + ":" + std::to_string(number);
    if (const auto result = refused(session, line, console, place, Echo::line)) return *result;
  }
  return ExitCode::clean;
}

KorrinProject projectIn(std::string_view bytes, const EditOptions& options, Console& console) {
  Plot plot = readPlot(bytes, options.dates);
  requireValid(plot.value);
  const std::string dropped = droppedKeysSentence(plot.unknownKeys);
  if (!dropped.empty()) complain(console, inputName(options.file) + ": " + dropped);
  return std::move(plot.value);
}

}  // namespace

ExitCode edit(const EditOptions& options, Console& console) {
  const bool isTyped = !options.script && ::isatty(STDIN_FILENO) == 1;
  const std::string script = options.script.value_or(std::string(standardStream));
  if (!options.script && (options.file == standardStream ||
                          std::ranges::count(options.assets.files, standardStream) > 0))
    throw UsageError("standard input can be read only once");
  std::string current;
  return sayingFailures(console, current, [&] {
    EditSession::Settings settings{.file = options.file,
                                   .assets = knownAssets(options.assets),
                                   .encoding = {.prettyPrinted = options.isPretty,
                                                .sortedKeys = false,
                                                .dates = options.dates,
                                                .nonFinite = NonFinite::fail},
                                   .isInteractive = isTyped,
                                   .savesAtTheEnd = options.isAllOrNothing};
    current = inputName(options.file);
    Input input = readDocument(options.file);
    KorrinProject project = projectIn(input.bytes, options, console);
    if (isPrettyPrinted(input.bytes)) settings.encoding.prettyPrinted = true;
    settings.opened = std::move(input.file);
    EditSession session(std::move(settings), std::move(project), console);
    current = inputName(script);
    const ExitCode result =
        isTyped ? runTyped(session, console) : runScript(session, script, console);
    if (result == ExitCode::clean) session.finish();
    if (session.hasUnsavedChanges())
      complain(console, inputName(options.file) + ": the unsaved changes are lost");
    return result;
  });
}

Command editCommand() {
  const auto options = std::make_shared<EditOptions>();
  Parameter script = option({"--script"}, "FILE",
                            "File of commands; standard input when absent or -", options->script);
  script.isInput = true;
  CommandPage page{.name = "edit",
                   .summary = "Edit a plot by commands, with undo and redo.",
                   .arguments = {inputFile("Plot to edit; - is standard input", options->file)},
                   .options = {std::move(script)},
                   .passages = editCommandsHelp()};
  for (Parameter& known : knownAssetOptions(options->assets))
    page.options.push_back(std::move(known));
  page.options.push_back(dates(options->dates));
  page.options.push_back(
      flag({"--pretty"}, "Save the plot indented even if it was not", options->isPretty));
  page.options.push_back(flag({"--all-or-nothing"},
                              "Save at the end of the script, and nothing if a line is refused",
                              options->isAllOrNothing));
  page.passages.push_back(
      {.prose = "A plot that somebody else has changed since it was opened, a file that was not "
                "opened here and one that is protected against writing are not saved over, except "
                "by save!. Plots stay indented or on one line, as they were."});
  page.passages.push_back(
      {.prose = "A script ends at the first line that is refused, with exit status 2; what it "
                "saved before stays saved. Keys that the format does not know are dropped when the "
                "plot is saved."});
  page.passages.push_back(
      {.heading = "Examples",
       .rows = {{"korrin edit plot.json", "commands as they are typed"},
                {"korrin edit --script changes.korrin plot.json", "commands from a file"},
                {"set title \"Nachtzug\"", "a command: the plot's title"},
                {"add item \"Drum kit\" 0 2300 label Drums", "a symbol, by its name"},
                {"set input 7 microphoneOrDI \"Active DI\"", "what is plugged into channel 7"}}});
  page.passages.push_back(exitStatuses());
  return {std::move(page), [options](Console& console) { return edit(*options, console); }};
}

}  // namespace korrin::host
