#include "korrin/session/changes_between.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "korrin/foundation/list_difference.h"
#include "korrin/foundation/same_bits.h"

namespace korrin {
namespace {

template <class Record>
bool differ(const List<Record>& before, const List<Record>& after) {
  bool isDifferent = false;
  forEachDifference(before, after, [&](IndexRange a, IndexRange b) {
    if (a.size() != b.size()) isDifferent = true;
    for (std::size_t i = 0; i < a.size() && !isDifferent; ++i)
      isDifferent = !sameBits(before[a.first + i], after[b.first + i]);
  });
  return isDifferent;
}

// An item outside of what the two states share.
struct Stray {
  UUID id;
  std::size_t stretch;
  std::size_t index;
};

void addStrays(std::vector<Stray>& strays, const List<PlotItem>& items, IndexRange range,
               std::size_t stretch) {
  for (std::size_t i = range.first; i < range.last; ++i)
    strays.push_back({.id = items[i].id, .stretch = stretch, .index = i});
}

// The sort keeps items that share an identifier in their order: the n-th goes with the n-th.
void sortByIdentifier(std::vector<Stray>& strays) {
  std::stable_sort(strays.begin(), strays.end(),
                   [](const Stray& a, const Stray& b) { return a.id < b.id; });
}

struct Pair {
  Stray before;
  Stray after;
};

// Whether the items that both states hold stand in the same order. Those of one stretch stand
// between the same shared items before and after.
bool keepsOrder(std::vector<Pair> pairs) {
  std::sort(pairs.begin(), pairs.end(),
            [](const Pair& a, const Pair& b) { return a.before.index < b.before.index; });
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    if (pairs[i].before.stretch != pairs[i].after.stretch) return false;
    if (i > 0 && pairs[i].after.index < pairs[i - 1].after.index) return false;
  }
  return true;
}

// The items with one of the identifiers, which ascend.
std::vector<Stray> itemsWith(const std::vector<UUID>& ids, const List<PlotItem>& items) {
  std::vector<Stray> found;
  std::size_t index = 0;
  for (const PlotItem& item : items) {
    if (std::binary_search(ids.begin(), ids.end(), item.id))
      found.push_back({.id = item.id, .stretch = 0, .index = index});
    ++index;
  }
  sortByIdentifier(found);
  return found;
}

// Items that share an identifier are told apart by their order alone: where they changed places,
// the identifier stands for another item.
void nameExchangedTwins(ChangeSet& changes, const List<PlotItem>& before,
                        const List<PlotItem>& after, const std::vector<Pair>& pairs) {
  std::vector<UUID> ids;
  for (const Pair& pair : pairs) ids.push_back(pair.before.id);
  std::sort(ids.begin(), ids.end());
  const std::vector<Stray> former = itemsWith(ids, before);
  const std::vector<Stray> present = itemsWith(ids, after);
  auto a = former.begin();
  auto b = present.begin();
  while (a != former.end() && b != present.end()) {
    if (a->id != b->id) {  // one has come or gone, and is named for that
      a->id < b->id ? ++a : ++b;
      continue;
    }
    const PlotItem& itemBefore = before[a++->index];
    const PlotItem& itemAfter = after[b++->index];
    if (&itemBefore != &itemAfter && !sameBits(itemBefore, itemAfter))
      changes.changedItemIDs.insert(itemBefore.id);
  }
}

void addItemChanges(ChangeSet& changes, const List<PlotItem>& before, const List<PlotItem>& after) {
  std::vector<Stray> former;
  std::vector<Stray> present;
  std::size_t stretch = 0;
  forEachDifference(before, after, [&](IndexRange a, IndexRange b) {
    addStrays(former, before, a, stretch);
    addStrays(present, after, b, stretch);
    ++stretch;
  });
  sortByIdentifier(former);
  sortByIdentifier(present);

  std::vector<Pair> pairs;
  const auto nameComeOrGone = [&changes](const Stray& stray) {
    changes.changedItemIDs.insert(stray.id);
    changes.affectsDocumentStructure = true;
  };
  auto a = former.begin();
  auto b = present.begin();
  while (a != former.end() && b != present.end()) {
    if (a->id < b->id) {
      nameComeOrGone(*a++);
    } else if (b->id < a->id) {
      nameComeOrGone(*b++);
    } else {
      const PlotItem& itemBefore = before[a->index];
      const PlotItem& itemAfter = after[b->index];
      if (&itemBefore != &itemAfter && !sameBits(itemBefore, itemAfter))
        changes.changedItemIDs.insert(a->id);
      pairs.push_back({.before = *a++, .after = *b++});
    }
  }
  std::for_each(a, former.end(), nameComeOrGone);
  std::for_each(b, present.end(), nameComeOrGone);
  if (keepsOrder(pairs)) return;
  changes.affectsDocumentStructure = true;
  nameExchangedTwins(changes, before, after, pairs);
}

}  // namespace

ChangeSet changesBetween(const KorrinProject& before, const KorrinProject& after) {
  ChangeSet changes = {
      .changedItemIDs = {},
      .affectsTechnicalData = differ(before.inputs, after.inputs) ||
                              differ(before.monitorMixes, after.monitorMixes) ||
                              differ(before.equipmentRequirements, after.equipmentRequirements) ||
                              differ(before.notes, after.notes),
      .affectsDocumentStructure =
          before.schemaVersion != after.schemaVersion ||
          before.minimumReaderVersion != after.minimumReaderVersion ||
          !sameBits(before.stage, after.stage) || differ(before.layers, after.layers) ||
          differ(before.groups, after.groups) || before.exportSettings != after.exportSettings ||
          differ(before.assetManifest, after.assetManifest)};
  addItemChanges(changes, before.items, after.items);
  return changes;
}

}  // namespace korrin
