#include "korrin/session/clipboard.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "korrin/coding/json_codec.h"

namespace korrin {

namespace json {

template struct Codec<PlotFragment>;
template struct Codec<List<PlotFragment>>;

}  // namespace json

namespace {

/// For each identifier of the records, the place of the first one that has it.
template <class Record>
std::map<UUID, std::size_t> firstPlaces(const List<Record>& records) {
  std::map<UUID, std::size_t> places;
  std::size_t place = 0;
  for (const Record& record : records) places.emplace(record.id, place++);
  return places;
}

/// The copied members of a group, in its order.
List<UUID> membersAmong(const std::set<UUID>& copied, const PlotGroup& group) {
  List<UUID> members;
  for (const UUID& id : group.itemIDs)
    if (copied.contains(id)) members.push_back(id);
  return members;
}

bool holdsTwo(const List<UUID>& ids) {
  return std::any_of(ids.begin(), ids.end(), [&ids](const UUID& id) { return id != ids.front(); });
}

/// Where items of a fragment go in a project.
class LayerChoice {
 public:
  LayerChoice(const KorrinProject& project, const PlotFragment& fragment,
              std::optional<UUID> requested)
      : fallback_(project.resolvedActiveLayerID(requested)) {
    for (const PlotLayer& layer : project.layers) {
      ids_.insert(layer.id);
      idsByName_.emplace(layer.name, layer.id);
    }
    for (const PlotLayer& layer : fragment.layers) {
      if (ids_.contains(layer.id)) continue;
      const auto sameName = idsByName_.find(layer.name);
      const bool isFirst = seen_.insert(layer.id).second;
      if (isFirst && sameName != idsByName_.end())
        replacements_.emplace(layer.id, sameName->second);
    }
  }

  UUID layerFor(const UUID& layerID) const {
    if (ids_.contains(layerID)) return layerID;
    const auto replacement = replacements_.find(layerID);
    return replacement != replacements_.end() ? replacement->second : fallback_.value_or(layerID);
  }

 private:
  std::optional<UUID> fallback_;
  std::set<UUID> ids_;
  std::map<Text, UUID> idsByName_;
  std::set<UUID> seen_;                // of the fragment's layers
  std::map<UUID, UUID> replacements_;  // for the fragment's layers, by name
};

List<PlotLayer> withDistinctIdentifiers(const List<PlotLayer>& layers) {
  std::set<UUID> seen;
  List<PlotLayer> distinct;
  for (const PlotLayer& layer : layers)
    if (seen.insert(layer.id).second) distinct.push_back(layer);
  return distinct;
}

List<AssetManifestEntry> completed(List<AssetManifestEntry> entries,
                                   const List<AssetManifestEntry>& further) {
  std::set<Text> digests;
  for (const AssetManifestEntry& entry : entries) digests.insert(entry.sha256);
  for (const AssetManifestEntry& entry : further)
    if (digests.insert(entry.sha256).second) entries.push_back(entry);
  return entries;
}

}  // namespace

PlotFragment fragmentOf(const KorrinProject& project, const IDSet& selection) {
  PlotFragment fragment;
  std::set<UUID> copied;
  for (const PlotItem& item : project.items) {
    if (!selection.contains(item.id)) continue;
    copied.insert(item.id);
    fragment.items.push_back(item);
  }
  if (copied.empty()) return fragment;

  std::set<std::pair<UUID, UUID>> memberships;  // group and item
  for (const PlotGroup& group : project.groups) {
    List<UUID> members = membersAmong(copied, group);
    if (!holdsTwo(members)) continue;
    for (const UUID& id : members) memberships.emplace(group.id, id);
    fragment.groups.push_back(
        PlotGroup{.id = group.id, .name = group.name, .itemIDs = std::move(members)});
  }

  std::set<UUID> layerIDs;
  std::set<Text> assetIDs;
  for (std::size_t i = 0; i < fragment.items.size(); ++i) {
    const PlotItem& item = fragment.items[i];
    layerIDs.insert(item.layerID);
    assetIDs.insert(item.assetID);
    if (item.groupID && !memberships.contains({*item.groupID, item.id}))
      fragment.items.edit(i).groupID = std::nullopt;
  }
  for (const PlotLayer& layer : project.layers)
    if (layerIDs.contains(layer.id)) fragment.layers.push_back(layer);
  for (const AssetManifestEntry& entry : project.assetManifest)
    if (assetIDs.contains(entry.sha256)) fragment.assetManifest.push_back(entry);
  return fragment;
}

std::optional<Paste> pastingCommand(const KorrinProject& project, const PlotFragment& fragment,
                                    const PasteOptions& options, const Environment& environment) {
  if (fragment.items.empty()) return std::nullopt;
  const bool bringsLayers = project.layers.empty() && !fragment.layers.empty();
  KorrinProject target = project;
  if (bringsLayers) target.layers = withDistinctIdentifiers(fragment.layers);

  const std::map<UUID, std::size_t> itemPlaces = firstPlaces(fragment.items);
  List<UUID> itemIDs;
  itemIDs.reserve(fragment.items.size());
  for (std::size_t i = 0; i < fragment.items.size(); ++i) itemIDs.push_back(environment.makeUUID());

  std::map<UUID, UUID> freshGroupIDs;
  List<PlotGroup> groups = project.groups;
  for (const PlotGroup& group : fragment.groups) {
    List<UUID> members;
    for (const UUID& id : group.itemIDs)
      if (const auto found = itemPlaces.find(id); found != itemPlaces.end())
        members.push_back(itemIDs[found->second]);
    if (members.empty()) continue;
    const UUID fresh = environment.makeUUID();
    freshGroupIDs.emplace(group.id, fresh);
    groups.push_back(PlotGroup{.id = fresh, .name = group.name, .itemIDs = std::move(members)});
  }

  const LayerChoice layers(target, fragment, options.layerID);
  List<PlotItem> items;
  items.reserve(fragment.items.size());
  for (const PlotItem& original : fragment.items) {
    PlotItem item = original;
    item.id = itemIDs[items.size()];
    item.position.x += options.offset.x;
    item.position.y += options.offset.y;
    item.layerID = layers.layerFor(item.layerID);
    if (item.groupID) {
      const auto fresh = freshGroupIDs.find(*item.groupID);
      item.groupID = fresh != freshGroupIDs.end() ? std::optional(fresh->second) : std::nullopt;
    }
    items.push_back(std::move(item));
  }
  List<AssetManifestEntry> manifest = completed(project.assetManifest, fragment.assetManifest);

  std::vector<DocumentCommand> commands;
  if (bringsLayers) commands.push_back(DocumentCommand::replaceLayers(std::move(target.layers)));
  commands.push_back(DocumentCommand::insertItems(std::move(items)));
  if (groups.size() > project.groups.size())
    commands.push_back(DocumentCommand::replaceGroups(std::move(groups)));
  if (manifest.size() > project.assetManifest.size())
    commands.push_back(DocumentCommand::replaceAssetManifest(std::move(manifest)));
  return Paste{.command = commands.size() == 1 ? commands.front()
                                               : DocumentCommand::compound(std::move(commands)),
               .itemIDs = std::move(itemIDs)};
}

}  // namespace korrin
