#include "commands/edit_command.h"

#include <cstddef>
#include <stdexcept>
#include <string_view>
#include <utility>

#include <unistd.h>

#include "documents/document_file.h"
#include "documents/dropped_keys.h"
#include "documents/plot_document.h"
#include "editing/edit_session.h"
#include "editing/edit_words.h"
#include "terminal/display_text.h"
#include "terminal/terminal_lines.h"

namespace korrin::host {
namespace {

/// Runs one line; absent when it was carried out, otherwise what to exit with if it is the last.
std::optional<ExitCode> refused(EditSession& session, std::string_view line, Console& console,
                                const std::string& place) {
  try {
    session.run(line);
    return std::nullopt;
  } catch (const Refusal& refusal) {
    complain(console, place + refusal.what());
    return refusal.exitCode();
  } catch (const LineError& error) {
    complain(console, place + error.what());
  } catch (const FileError& error) {
    complain(console, place + error.what());
  }
  return ExitCode::unusable;
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
    refused(session, *line, console, "");
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
    console.out << "> " << printable(line) << '\n';
    const std::string place = inputName(script) + ":" + std::to_string(number) + ": ";
    if (const auto result = refused(session, line, console, place)) return *result;
  }
  return ExitCode::clean;
}

KorrinProject open(const EditOptions& options, Console& console) {
  const std::string bytes = readDocument(options.file);
  KorrinProject project = decodeDocument(bytes, options.dates);
  requireValid(project);
  const std::string dropped = droppedKeysSentence(bytes);
  if (!dropped.empty()) complain(console, inputName(options.file) + ": " + dropped);
  return project;
}

}  // namespace

ExitCode edit(const EditOptions& options, Console& console) {
  const bool isTyped = !options.script && ::isatty(STDIN_FILENO) == 1;
  const std::string script = options.script.value_or(std::string(standardStream));
  std::string current;
  try {
    EditSession::Settings settings{.file = options.file,
                                   .assets = knownAssets(options.assets),
                                   .encoding = {.prettyPrinted = options.isPretty,
                                                .sortedKeys = false,
                                                .dates = options.dates,
                                                .nonFinite = NonFinite::fail},
                                   .isInteractive = isTyped};
    current = inputName(options.file) + ": ";
    EditSession session(std::move(settings), open(options, console), console);
    current = inputName(script) + ": ";
    const ExitCode result =
        isTyped ? runTyped(session, console) : runScript(session, script, console);
    if (session.hasUnsavedChanges())
      complain(console, inputName(options.file) + ": the unsaved changes are lost");
    return result;
  } catch (const Refusal& refusal) {
    complain(console, current + refusal.what());
    return refusal.exitCode();
  } catch (const FileError& error) {
    complain(console, current + error.what());
    return ExitCode::unusable;
  }
}

}  // namespace korrin::host
