// Lining up what is selected, as far as it may be edited.

#include <iostream>
#include <optional>

#include <korrin/korrin.h>

using namespace korrin;

// [align]
std::optional<DocumentCommand> aligningCommand(const KorrinProject& project, const IDSet& selection,
                                               ItemAlignment alignment) {
  List<PlotItem> movable;
  for (const PlotItem& item : project.items)
    if (selection.contains(item.id) && project.canEditItem(item)) movable.push_back(item);

  List<PlotItem> aligned = KorrinGeometry::applying(alignment, movable);
  if (aligned == movable) return std::nullopt;  // nothing for the history
  return DocumentCommand::replaceItems(std::move(aligned));
}
// [/align]

int main() {
  KorrinProject project = KorrinProject::template_(KorrinTemplateID::powerTrio);
  IDSet all;
  for (const PlotItem& item : project.items) all.insert(item.id);
  const auto printColumns = [&project](const char* name) {
    std::cout << name << ':';
    for (const PlotItem& item : project.items) std::cout << ' ' << item.position.x;
    std::cout << '\n';
  };

  printColumns("as drawn");
  if (const auto command = aligningCommand(project, all, ItemAlignment::distributeHorizontally))
    command->apply(project);
  printColumns("distributed");
  std::cout << "again: "
            << (aligningCommand(project, all, ItemAlignment::distributeHorizontally)
                    ? "something to do"
                    : "nothing to do")
            << '\n';
  if (const auto command = aligningCommand(project, all, ItemAlignment::horizontalCenter))
    command->apply(project);
  printColumns("centred");
}
