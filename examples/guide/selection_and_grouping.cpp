// What a click selects, what may be edited, and how groups are made.

#include <iostream>
#include <optional>
#include <string>

#include <korrin/korrin.h>
#include <korrin/session.h>

using namespace korrin;

// [click]
IDSet selectionAfterClick(const KorrinProject& project, const PlotItem& clicked) {
  if (!project.canSelectItem(clicked)) return {};
  IDSet selection = {clicked.id};
  if (clicked.groupID)
    for (const PlotItem& item : project.items)
      if (item.groupID == clicked.groupID && project.canSelectItem(item)) selection.insert(item.id);
  return selection;
}
// [/click]

int main() {
  KorrinProject project = KorrinProject::template_(KorrinTemplateID::powerTrio);

  // [group]
  const IDSet selection = {project.items[0].id, project.items[1].id};
  if (const std::optional<DocumentCommand> command = project.groupingCommand(selection)) {
    const CommandResult done = command->apply(project);
    std::cout << project.groups.back().name.str() << " has " << project.groups.back().itemIDs.size()
              << " members\n";
  }
  // [/group]
  std::cout << "a click on a member selects "
            << selectionAfterClick(project, project.items[0]).size() << '\n'
            << "a click on another item selects "
            << selectionAfterClick(project, project.items[2]).size() << '\n';

  // [lock]
  PlotItem locked = project.items[0];
  locked.isLocked = true;
  DocumentCommand::replaceItems({locked}).apply(project);

  std::cout << std::boolalpha << "a locked item can be selected: " << project.canSelectItem(locked)
            << ", edited: " << project.canEditItem(locked) << '\n'
            << "the two can be grouped again: " << project.groupingCommand(selection).has_value()
            << '\n';
  // [/lock]
  // [why]
  switch (whyNotEditable(project, locked).value()) {
    case EditRefusal::itemLocked:
      std::cout << "it is locked\n";
      break;
    case EditRefusal::layerHidden:
    case EditRefusal::layerLocked:
    case EditRefusal::layerMissing:
      std::cout << "its layer is hidden, locked or missing\n";
  }
  // [/why]

  // [ungroup]
  KorrinProject unlocked = project;
  unlocked.items.edit(0).isLocked = false;
  if (const auto command = ungroupingCommand(unlocked, {unlocked.items[1].id}))
    command->apply(unlocked);
  std::cout << "groups after ungrouping: " << unlocked.groups.size() << '\n';
  // [/ungroup]

  // [layer]
  const std::optional<UUID> lastUsed = std::nullopt;  // nothing remembered yet
  const std::optional<UUID> layer = project.resolvedActiveLayerID(lastUsed);
  std::cout << "new items go on the first layer: " << (layer == project.layers.front().id) << '\n';
  // [/layer]
}
