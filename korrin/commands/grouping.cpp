#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "korrin/commands/document_command.h"
#include "korrin/commands/group_members.h"

namespace korrin {
namespace {

// In ascending order. `canEditItem` walks over all layers, and a document may have as many layers
// as items.
std::vector<UUID> layersOpenToSelection(const List<PlotLayer>& layers) {
  std::vector<UUID> open;
  for (const PlotLayer& layer : layers)
    if (layer.isVisible && !layer.isLocked) open.push_back(layer.id);
  std::sort(open.begin(), open.end());
  return open;
}

}  // namespace

std::optional<DocumentCommand> KorrinProject::groupingCommand(
    const IDSet& selection, const Environment& environment) const {
  IDSet memberIDs;
  List<UUID> memberList;
  const std::vector<UUID> layersOpen = layersOpenToSelection(layers);
  for (const PlotItem& item : items) {
    if (!item.isLocked && selection.contains(item.id) &&
        std::binary_search(layersOpen.begin(), layersOpen.end(), item.layerID) &&
        memberIDs.insert(item.id).second)
      memberList.push_back(item.id);
  }
  if (memberIDs.size() < 2) return std::nullopt;

  const PlotGroup group = {.id = environment.makeUUID(),
                           .name = "Group " + std::to_string(groups.size() + 1),
                           .itemIDs = std::move(memberList)};

  // By identifier, not by item: a locked item that shares its identifier with a member moves along.
  List<PlotItem> regrouped;
  for (const PlotItem& item : items)
    if (memberIDs.contains(item.id)) regrouped.emplace_back(item).groupID = group.id;

  List<PlotGroup> nextGroups = withoutMembers(groups, memberIDs);
  nextGroups.push_back(group);

  return DocumentCommand::compound({DocumentCommand::replaceItems(std::move(regrouped)),
                                    DocumentCommand::replaceGroups(std::move(nextGroups))});
}

}  // namespace korrin
