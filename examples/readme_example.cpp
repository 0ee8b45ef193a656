#include <exception>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <string>

#include <korrin/korrin.h>

using namespace korrin;

std::string contentOf(const std::string& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error("cannot open " + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

void deleteAndUndo(const std::string& bytes) {
  auto project =
      decodeJSON<KorrinProject>(bytes);   // throws a DecodingError that says where and why
  DocumentValidation::validate(project);  // throws when the plot is not safe to edit
  if (project.items.empty()) throw std::runtime_error("the plot has no item to delete");

  const UUID first = project.items.front().id;
  const auto done = DocumentCommand::deleteItems({first}).apply(project);
  std::cout << "changed: " << done.changes.changedItemIDs.size() << " item\n";

  done.inverse.apply(project);  // undo: the host keeps the inverses, the library no history
  std::cout << "back where we were: " << (project == decodeJSON<KorrinProject>(bytes)) << "\n";

  for (const PreflightIssue& issue : PreflightEngine::inspect(project, {}))
    std::cout << rawValue(issue.severity) << ": " << issue.title << "\n";
}

int main(int count, char** arguments) {
  try {
    if (count != 2) throw std::runtime_error("use: my_editor PLOT");
    deleteAndUndo(contentOf(arguments[1]));
  } catch (const std::exception& error) {
    std::cerr << error.what() << "\n";
    return 1;
  }
}
