#include "commands/new_command.h"

#include <filesystem>
#include <system_error>

#include "korrin/coding/json.h"

#include "documents/document_file.h"
#include "documents/plot_document.h"

namespace korrin::host {
namespace {

KorrinProject newProject(const NewOptions& options) {
  if (options.templateID) return KorrinProject::template_(*options.templateID, options.environment);
  return options.isExample ? KorrinProject::example(options.environment)
                           : KorrinProject::newDocument(options.environment);
}

bool isThere(const std::string& path) {
  std::error_code error;
  return std::filesystem::symlink_status(path, error).type() !=
         std::filesystem::file_type::not_found;
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
  try {
    if (!options.isForced && isThere(path)) {
      complain(console, path + ": is there already; --force replaces it");
      return ExitCode::unusable;
    }
    requireReplaceable(path);
    replaceFile(path, document);
    return ExitCode::clean;
  } catch (const Refusal& refusal) {
    complain(console, path + ": " + refusal.what());
    return refusal.exitCode();
  } catch (const FileError& error) {
    complain(console, path + ": " + error.what());
    return ExitCode::unusable;
  }
}

}  // namespace korrin::host
