// A program of its own that only knows the installed package.

#include <cstdlib>

#include <korrin/korrin.h>

int main() {
  using namespace korrin;
  const KorrinProject project = KorrinProject::newDocument();
  DocumentValidation::validate(project);
  const bool isReadBack = decodeJSON<KorrinProject>(encodeJSON(project)) == project;
  return isReadBack && PreflightEngine::inspect(project, {}).empty() ? EXIT_SUCCESS : EXIT_FAILURE;
}
