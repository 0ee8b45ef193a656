// Pastes whatever a clipboard holds. The first byte says into which plot and where; the rest is a
// fragment: drawn from the bytes, identifiers repeated and all, or read from them as JSON.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <span>
#include <string_view>
#include <utility>

#include "korrin/foundation/precondition.h"
#include "korrin/foundation/same_bits.h"
#include "korrin/session/clipboard.h"

#include "fuzz/choices.h"
#include "tests/support/laws.h"
#include "tests/support/random_edits.h"
#include "tests/support/sample_project.h"

namespace korrin::fuzz {
namespace {

// Two plots in one, so that items, groups and layers share identifiers.
PlotFragment drawnFragment(std::span<const std::uint8_t> bytes) {
  Choices choices(bytes);
  test::RandomEdits edits([&choices](int limit) { return choices.below(limit); });
  const KorrinProject one = edits.project();
  const KorrinProject other = edits.project();
  PlotFragment fragment = {.items = one.items,
                           .groups = one.groups,
                           .layers = one.layers,
                           .assetManifest = one.assetManifest};
  for (const PlotItem& item : other.items) fragment.items.push_back(item);
  for (const PlotGroup& group : other.groups) fragment.groups.push_back(group);
  for (const PlotLayer& layer : other.layers) fragment.layers.push_back(layer);
  for (const AssetManifestEntry& entry : other.assetManifest)
    fragment.assetManifest.push_back(entry);
  return fragment;
}

std::optional<PlotFragment> readFragment(std::span<const std::uint8_t> bytes) {
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  try {
    return decodeJSON<PlotFragment>(
        text, {.dates = DateStrategy::iso8601, .nonFinite = NonFinite::strings});
  } catch (const DecodingError&) {
    return std::nullopt;
  }
}

// The plot that is pasted into, and what comes of it.
class Pasting {
 public:
  Pasting(KorrinProject project, PlotFragment fragment, PasteOptions options)
      : before_(std::move(project)), fragment_(std::move(fragment)), options_(options) {}

  void run() {
    const KorrinProject untouched = before_;
    const std::optional<Paste> paste = pastingCommand(before_, fragment_, options_, environment_);
    precondition(sameBits(before_, untouched), "building a paste changes the plot");
    precondition(paste.has_value() == !fragment_.items.empty(), "a paste is there for no items");
    if (!paste) return;
    after_ = before_;
    const CommandResult done = paste->command.apply(after_, environment_);
    checkIdentifiers(paste->itemIDs);
    checkGroups();
    checkLayers();
    checkCopyOf(paste->itemIDs);
    done.inverse.apply(after_, environment_);
    precondition(sameBits(test::withModifiedAt(after_, {}), test::withModifiedAt(before_, {})),
                 "undoing a paste leaves something behind");
  }

 private:
  void checkIdentifiers(const List<UUID>& itemIDs) {
    const std::size_t former = before_.items.size();
    precondition(after_.items.size() == former + fragment_.items.size(), "items are lost");
    precondition(itemIDs.size() == fragment_.items.size(), "not every item is told of");
    for (std::size_t i = 0; i < itemIDs.size(); ++i) {
      precondition(itemIDs[i] == test::TestEnvironment::identifierMade(static_cast<int>(i) + 1),
                   "an item has no identifier of its own");
      precondition(after_.items[former + i].id == itemIDs[i], "the items stand in another order");
      freshItems_.insert(itemIDs[i]);
    }
  }

  void checkGroups() {
    std::set<UUID> freshGroups;
    for (std::size_t i = before_.groups.size(); i < after_.groups.size(); ++i) {
      const PlotGroup& group = after_.groups[i];
      precondition(freshGroups.insert(group.id).second, "two groups share an identifier");
      precondition(!group.itemIDs.empty(), "an empty group is pasted");
      for (const UUID& id : group.itemIDs)
        precondition(freshItems_.contains(id), "a group lists what was not pasted");
    }
    precondition(
        environment_.identifiersMade() == static_cast<int>(freshItems_.size() + freshGroups.size()),
        "identifiers are made for nothing");
    for (std::size_t i = before_.items.size(); i < after_.items.size(); ++i)
      if (const auto& groupID = after_.items[i].groupID)
        precondition(freshGroups.contains(*groupID), "an item names a group that was not pasted");
  }

  void checkLayers() {
    std::set<UUID> layers;
    for (const PlotLayer& layer : after_.layers)
      precondition(layers.insert(layer.id).second || !before_.layers.empty(),
                   "a pasted layer stands twice");
    for (std::size_t i = before_.items.size(); i < after_.items.size() && !layers.empty(); ++i)
      precondition(layers.contains(after_.items[i].layerID), "an item is on no layer");
  }

  void checkCopyOf(const List<UUID>& itemIDs) {
    const PlotFragment copy = fragmentOf(after_, IDSet(itemIDs.begin(), itemIDs.end()));
    precondition(copy.items.size() == itemIDs.size(), "a copy of what was pasted lacks items");
    const EncodingOptions options = {.prettyPrinted = false,
                                     .sortedKeys = false,
                                     .dates = DateStrategy::iso8601,
                                     .nonFinite = NonFinite::strings};
    const PlotFragment read =
        decodeJSON<PlotFragment>(encodeJSON(copy, options),
                                 {.dates = DateStrategy::iso8601, .nonFinite = NonFinite::strings});
    precondition(sameBits(read, copy), "the clipboard changes what it holds");
  }

  KorrinProject before_;
  KorrinProject after_ = before_;
  PlotFragment fragment_;
  PasteOptions options_;
  test::TestEnvironment environment_;
  std::set<UUID> freshItems_;
};

}  // namespace
}  // namespace korrin::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace korrin;
  if (size == 0) return 0;
  const unsigned choice = data[0];
  const std::span bytes(data + 1, size - 1);
  const std::optional<PlotFragment> fragment =
      (choice & 1) != 0 ? fuzz::drawnFragment(bytes) : fuzz::readFragment(bytes);
  if (!fragment) return 0;
  KorrinProject project = test::sampleProject();
  if ((choice & 2) != 0) project.layers.clear();
  if ((choice & 4) != 0) project.items.clear();
  PasteOptions options;
  if ((choice & 8) != 0) options.layerID = test::sample::archive;
  if ((choice & 16) != 0) options.offset = {.x = 1e308, .y = -0.5};
  fuzz::Pasting(project, *fragment, options).run();
  return 0;
}
