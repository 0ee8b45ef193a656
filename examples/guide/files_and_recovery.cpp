// The file of an open plot, somebody else who changes it meanwhile, and a crash.

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>

#include <korrin/korrin.h>
#include <korrin/session.h>

using namespace korrin;

namespace fs = std::filesystem;

// [open]
std::optional<OpenedDocument> open(DocumentFile& file) {
  try {
    OpenOutcome outcome = file.open();
    if (auto* const opened = std::get_if<OpenedDocument>(&outcome)) return std::move(*opened);
    std::cout << "this is no plot that can be edited\n";
  } catch (const FileError& error) {
    std::cout << "this file " << error.remark() << '\n';
  }
  return std::nullopt;
}
// [/open]

// [save]
void save(DocumentFile& file, const KorrinProject& project, Autosave& autosave) {
  try {
    file.save(project);
    autosave.settle();
    std::cout << "saved\n";
  } catch (const ChangedElsewhere& changed) {
    std::cout << "this file " << changed.remark() << "; replace it?\n";  // yes: saveAnyway
  } catch (const FileError& error) {
    std::cout << "this file " << error.remark() << '\n';
  }
}
// [/save]

int main() {
  const fs::path folder = fs::temp_directory_path() / UUID::random().text();
  fs::create_directory(folder);
  const fs::path path = folder / "plot.json";

  DocumentFile file(path);
  open(file);  // there is none yet
  KorrinProject project = KorrinProject::template_(KorrinTemplateID::powerTrio);
  {
    Autosave autosave(recoveryFileFor(path));
    save(file, project, autosave);

    std::ofstream(path) << "{}";  // somebody else
    save(file, project, autosave);
    file.saveAnyway(project);

    // [note]
    project.metadata.title = "Club night";
    autosave.note(project);  // after every edit; at once, whatever the size of the plot
    // [/note]
  }  // a crash, had the editor not been asked to flush

  fs::last_write_time(path, fs::last_write_time(path) - std::chrono::seconds(1));
  // [recover]
  if (const std::optional<Recovery> recovery = recoveryOf(path)) {
    std::cout << "recovered: " << recovery->project.metadata.title.str() << '\n';
    discardRecovery(path);  // once the user has decided
  }
  // [/recover]
  std::cout << "left of it: " << recoveryOf(path).has_value() << '\n';
  fs::remove_all(folder);
}
