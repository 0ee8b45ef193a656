// Layers, and what lies above what.

#include <iostream>
#include <optional>
#include <string>

#include <korrin/korrin.h>
#include <korrin/session.h>

using namespace korrin;

void show(const std::string& what, const KorrinProject& project) {
  std::cout << what << ':';
  // [draw]
  for (const PlotItem* item : visibleItemsInStackingOrder(project))
    std::cout << ' ' << item->label.str();
  // [/draw]
  std::cout << '\n';
}

PlotItem itemOn(const PlotLayer& layer, const char* label) {
  PlotItem item = KorrinProject::template_(KorrinTemplateID::soloAcoustic).items.front();
  item.id = UUID::random();
  item.layerID = layer.id;
  item.groupID = std::nullopt;
  item.label = label;
  return item;
}

int main() {
  std::cout << std::boolalpha;
  KorrinProject project = KorrinProject::newDocument();
  const PlotLayer floor = project.layers.front();
  PlotLayer rigging = floor;
  rigging.id = UUID::random();
  rigging.name = "Rigging";
  rigging.zIndex = 1;
  project.layers.push_back(rigging);
  project.items = {itemOn(rigging, "Truss"), itemOn(floor, "Riser"), itemOn(floor, "Drums")};
  EditHistory history(project);
  show("drawn", history.project());

  const UUID riser = project.items[1].id;
  // [stack]
  if (const auto command = stackingCommand(history.project(), {riser}, StackingMove::toFront))
    history.perform(*command, {.name = "Bring to Front"});
  // [/stack]
  show("riser to the front", history.project());
  std::cout << "further forward: "
            << stackingCommand(history.project(), {riser}, StackingMove::forward).has_value()
            << '\n';

  // [assign]
  if (const auto command = layerAssigningCommand(history.project(), {riser}, rigging.id))
    history.perform(*command, {.name = "Move to Layer"});
  // [/assign]
  show("riser among the rigging", history.project());

  // [delete]
  if (const auto command = layerDeletingCommand(history.project(), rigging.id, floor.id))
    history.perform(*command, {.name = "Delete Layer"});
  // [/delete]
  show("all on one layer", history.project());
  std::cout << "the last layer can be deleted: "
            << layerDeletingCommand(history.project(), floor.id, std::nullopt).has_value() << '\n';
}
