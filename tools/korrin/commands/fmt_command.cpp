#include "commands/fmt_command.h"

#include "korrin/coding/json.h"

#include "documents/document_file.h"
#include "documents/dropped_keys.h"
#include "documents/plot_document.h"

namespace korrin::host {

ExitCode format(const FormatOptions& options, Console& console) {
  const bool isToConsole = !options.output || *options.output == standardStream;
  std::string current = inputName(options.file);
  try {
    const std::string bytes = readDocument(options.file);
    const KorrinProject project = decodeDocument(bytes, options.dates);
    const std::string dropped = droppedKeysSentence(bytes);
    const std::string document = encodeJSON(project, options.encoding) + "\n";
    if (isToConsole) {
      console.out << document;
    } else {
      current = *options.output;
      requireReplaceable(current);
      replaceFile(current, document);
    }
    if (!dropped.empty()) complain(console, inputName(options.file) + ": " + dropped);
    return ExitCode::clean;
  } catch (const Refusal& refusal) {
    complain(console, current + ": " + refusal.what());
    return refusal.exitCode();
  } catch (const FileError& error) {
    complain(console, current + ": " + error.what());
    return ExitCode::unusable;
  }
}

}  // namespace korrin::host
