// A host that stands on the three libraries above the core: opens a plot, edits it in a history,
// asks what is to be done, compares, merges and draws it.

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <variant>

#include <korrin/drawing.h>
#include <korrin/review.h>
#include <korrin/session.h>

namespace {

using namespace korrin;

void require(bool holds, const char* promise) {
  if (!holds) throw std::logic_error(promise);
}

void run(const std::filesystem::path& path) {
  DocumentFile file(path);
  auto outcome = file.open();
  require(std::holds_alternative<OpenedDocument>(outcome), "the plot opens");
  const KorrinProject opened = std::get<OpenedDocument>(outcome).project;

  EditHistory history(opened);
  const UUID first = opened.items.front().id;
  history.perform(DocumentCommand::deleteItems({first}), {.name = "Delete"});
  require(!differences(opened, history.project()).empty(), "a deletion is a difference");
  require(merge(opened, history.project(), opened).conflicts.empty(), "one side alone merges");
  require(history.undo().has_value(), "a deletion undoes");
  require(differences(opened, history.project()).empty(), "undo leads back");

  require(!drawPages(opened).empty(), "a plot has a sheet");
  std::cout << audit(opened).size() << " findings of the audit\n";
  try {
    DocumentFile("/dev/null").open();
    require(false, "a device is no plot");
  } catch (const FileError&) {  // which crosses the border of a shared library
  }
}

}  // namespace

int main(int count, char** arguments) {
  try {
    require(count == 2, "the argument is a plot");
    run(arguments[1]);
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::cerr << "floors: " << error.what() << "\n";
    return EXIT_FAILURE;
  }
}
