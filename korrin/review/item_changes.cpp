#include "korrin/review/item_changes.h"

#include <map>
#include <set>
#include <string_view>

#include "korrin/model/stacking.h"

namespace korrin {
namespace {

bool isMove(const Difference& one) { return one.field == "position"; }

}  // namespace

ItemChanges itemChanges(std::span<const Difference> differences, const KorrinProject& before) {
  std::map<UUID, const PlotItem*> former;
  for (const PlotItem* item : visibleItemsInStackingOrder(before)) former.emplace(item->id, item);
  // One that moved is said to have moved, whatever else changed.
  std::set<std::string_view> moved;
  for (const Difference& one : differences)
    if (one.list == "items" && isMove(one)) moved.insert(one.id);
  std::set<std::string_view> named;
  ItemChanges changes;
  for (const Difference& one : differences) {
    if (one.list != "items" || one.kind == DifferenceKind::moved) continue;
    const auto id = UUID::fromText(one.id);
    if (!id || (moved.contains(one.id) && !isMove(one)) || !named.insert(one.id).second) continue;
    const auto found = former.find(*id);
    if (one.kind == DifferenceKind::added)
      changes.added.push_back(*id);
    else if (one.kind == DifferenceKind::changed && !isMove(one))
      changes.changed.push_back(*id);
    else if (found != former.end())
      (isMove(one) ? changes.moved : changes.gone).push_back(*found->second);
  }
  return changes;
}

}  // namespace korrin
