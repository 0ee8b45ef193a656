#include "commands/manual.h"

#include <filesystem>

#include "commands/completion.h"
#include "commands/manual_page.h"
#include "documents/document_file.h"

namespace korrin::host {
namespace {

void write(const std::filesystem::path& path, const std::string& text) {
  std::filesystem::create_directories(path.parent_path());
  replaceFile(path.string(), text);
}

void writePages(const CommandPage& page, std::string_view version,
                const std::filesystem::path& folder) {
  write(folder / (manualName(page) + ".1"), manualPage(page, version));
  for (const CommandPage& command : page.subcommands) writePages(command, version, folder);
}

}  // namespace

void writeManual(const CommandPage& program, std::string_view version, const std::string& folder) {
  writePages(program, version, std::filesystem::path(folder) / "man1");
  const std::filesystem::path root(folder);
  write(root / "completions" / program.name, bashCompletion(program));
  write(root / "zsh" / ("_" + program.name), zshCompletion(program));
  write(root / "fish" / (program.name + ".fish"), fishCompletion(program));
}

}  // namespace korrin::host
