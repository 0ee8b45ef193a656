#include <fstream>
#include <iostream>
#include <iterator>

#include <korrin/korrin.h>

int main(int, char** arguments) {
  using namespace korrin;
  std::ifstream file(arguments[1]);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};

  auto project =
      decodeJSON<KorrinProject>(bytes);   // throws a DecodingError that says where and why
  DocumentValidation::validate(project);  // throws when the plot is not safe to edit

  const UUID first = project.items.front().id;
  const auto done = DocumentCommand::deleteItems({first}).apply(project);
  std::cout << "changed: " << done.changes.changedItemIDs.size() << " item\n";

  done.inverse.apply(project);  // undo: the host keeps the inverses, the library no history
  std::cout << "back where we were: " << (project == decodeJSON<KorrinProject>(bytes)) << "\n";

  for (const PreflightIssue& issue : PreflightEngine::inspect(project, {}))
    std::cout << rawValue(issue.severity) << ": " << issue.title.str() << "\n";
}
