// A host of its own that knows the package and nothing else of the library: opens a plot, edits it,
// undoes that and inspects it, and catches what the library throws.

#include <cstdlib>
#include <fstream>
#include <iostream>
#include <iterator>
#include <limits>
#include <stdexcept>
#include <string>

#include <korrin/korrin.h>

namespace {

using namespace korrin;

void require(bool holds, const char* promise) {
  if (!holds) throw std::logic_error(promise);
}

template <class Error, class Action>
void requireThrows(const Action& action, const char* promise) {
  try {
    action();
  } catch (const Error&) {
    return;
  }
  throw std::logic_error(promise);
}

KorrinProject open(const char* path) {
  std::ifstream file(path);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  require(peekVersions(bytes).minimumReaderVersion <= KorrinProject::currentSchemaVersion,
          "the plot can be read");
  auto project = decodeJSON<KorrinProject>(bytes);
  DocumentValidation::validate(project);
  require(decodeJSON<KorrinProject>(encodeJSON(project, {.prettyPrinted = true})) == project,
          "a plot survives writing and reading");
  return project;
}

void editAndUndo(KorrinProject project) {
  const KorrinProject opened = project;
  const UUID first = project.items.front().id;
  const CommandResult deletion = DocumentCommand::deleteItems({first}).apply(project);
  require(deletion.changes.changedItemIDs.contains(first), "the deleted item is named");
  require(project.items.size() + 1 == opened.items.size(), "one item is gone");

  const auto aligned = KorrinGeometry::applying(ItemAlignment::left, project.items);
  const CommandResult alignment = DocumentCommand::replaceItems(aligned).apply(project);
  require(project.items == aligned, "the items are aligned");

  alignment.inverse.apply(project);
  deletion.inverse.apply(project);
  project.metadata.modifiedAt = opened.metadata.modifiedAt;
  require(project == opened, "undo leads back");
  require(std::hash<KorrinProject>{}(project) == std::hash<KorrinProject>{}(opened),
          "equal plots have one hash");
}

void catchErrors(KorrinProject project) {
  requireThrows<DecodingError>([] { decodeJSON<KorrinProject>("{}"); }, "{} is no plot");
  requireThrows<DecodingError>([] { decodeJSON<List<PlotItem>>("[1]"); }, "1 is no item");
  requireThrows<DecodingError>([] { decodeJSON<AudienceEdge>("\"up\""); }, "up is no edge");
  project.stage.size.width = -1;
  requireThrows<DocumentValidationError>([&] { DocumentValidation::validate(project); },
                                         "a stage has a width");
  project.stage.size.width = std::numeric_limits<double>::infinity();
  requireThrows<EncodingError>([&] { encodeJSON(project); }, "JSON has no infinity");
  requireThrows<std::exception>([] { RasterAssetSafety::validate({}); }, "nothing is no image");
  requireThrows<DocumentValidationError>(
      [] { EmbeddedAssetSafety::validate({}, "application/pdf"); }, "nothing is no PDF");
}

}  // namespace

int main(int count, char** arguments) {
  try {
    require(count == 2, "the argument is a plot");
    const KorrinProject project = open(arguments[1]);
    editAndUndo(project);
    catchErrors(project);
    for (const KorrinTemplate& start : KorrinTemplate::all())
      require(PreflightEngine::inspect(start.project, {}).empty(), "a template is in order");
    const auto issues = PreflightEngine::inspect(project, {});
    std::cout << project.metadata.title.str() << ": opened, edited, undone; " << issues.size()
              << " remarks\n";
    return EXIT_SUCCESS;
  } catch (const std::exception& error) {
    std::cerr << "consumer: " << error.what() << "\n";
    return EXIT_FAILURE;
  }
}
