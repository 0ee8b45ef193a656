#include <string>
#include <utility>

#include "korrin/commands/document_command.h"
#include "korrin/commands/group_members.h"

namespace korrin {

std::optional<DocumentCommand> KorrinProject::groupingCommand(
    const IDSet& selection, const Environment& environment) const {
  IDSet memberIDs;
  List<UUID> memberList;
  for (const PlotItem& item : items) {
    if (selection.contains(item.id) && canEditItem(item) && memberIDs.insert(item.id).second)
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
