#pragma once

// The lists of a plot whose records editing commands change: the word for a record, where the list
// is held, the command that replaces it, and the fields by which a record is called.

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "korrin/commands/document_command.h"
#include "korrin/foundation/environment.h"

#include "editing/edit_words.h"
#include "terminal/words.h"

namespace korrin::host {

/// What editing commands know of a list of records of this type.
template <class Record>
struct PlotList;

template <>
struct PlotList<PlotItem> {
  static constexpr std::string_view word = "item";
  static constexpr auto member = &KorrinProject::items;
  static constexpr std::tuple names = {&PlotItem::label};
};
template <>
struct PlotList<InputChannel> {
  static constexpr std::string_view word = "input";
  static constexpr auto member = &KorrinProject::inputs;
  static constexpr auto replacing = &DocumentCommand::replaceInputs;
  static constexpr std::tuple names = {&InputChannel::channel, &InputChannel::source};
};
template <>
struct PlotList<MonitorMix> {
  static constexpr std::string_view word = "mix";
  static constexpr auto member = &KorrinProject::monitorMixes;
  static constexpr auto replacing = &DocumentCommand::replaceMonitorMixes;
  static constexpr std::tuple names = {&MonitorMix::number, &MonitorMix::name};
};
template <>
struct PlotList<EquipmentRequirement> {
  static constexpr std::string_view word = "equipment";
  static constexpr auto member = &KorrinProject::equipmentRequirements;
  static constexpr auto replacing = &DocumentCommand::replaceEquipment;
  static constexpr std::tuple names = {&EquipmentRequirement::item};
};
template <>
struct PlotList<ProjectNote> {
  static constexpr std::string_view word = "note";
  static constexpr auto member = &KorrinProject::notes;
  static constexpr auto replacing = &DocumentCommand::replaceNotes;
  static constexpr std::tuple names = {&ProjectNote::title};
};
template <>
struct PlotList<PlotLayer> {
  static constexpr std::string_view word = "layer";
  static constexpr auto member = &KorrinProject::layers;
  static constexpr auto replacing = &DocumentCommand::replaceLayers;
  static constexpr std::tuple names = {&PlotLayer::name};
};
template <>
struct PlotList<PlotGroup> {
  static constexpr std::string_view word = "group";
  static constexpr auto member = &KorrinProject::groups;
  static constexpr auto replacing = &DocumentCommand::replaceGroups;
  static constexpr std::tuple names = {&PlotGroup::name};
};
template <>
struct PlotList<AssetManifestEntry> {
  static constexpr std::string_view word = "asset";
  static constexpr auto member = &KorrinProject::assetManifest;
  static constexpr auto replacing = &DocumentCommand::replaceAssetManifest;
  static constexpr std::tuple names = {&AssetManifestEntry::sha256, &AssetManifestEntry::filename};
};

/// Carries the type of a list's records to a visitor.
template <class R>
struct ListOf {
  using Record = R;
};

/// Calls `visit(ListOf<Record>())` for every list, items first.
template <class Visit>
void forEachList(Visit&& visit) {
  const auto visitAll = [&visit]<class... Record>(std::tuple<ListOf<Record>...>) {
    (visit(ListOf<Record>()), ...);
  };
  visitAll(std::tuple<ListOf<PlotItem>, ListOf<InputChannel>, ListOf<MonitorMix>,
                      ListOf<EquipmentRequirement>, ListOf<ProjectNote>, ListOf<PlotLayer>,
                      ListOf<PlotGroup>, ListOf<AssetManifestEntry>>());
}

/// "item", "input", ...
std::vector<std::string> listWords();

/// Calls `visit(ListOf<Record>())` for the list with this word. Throws LineError when there is
/// none.
template <class Visit>
void withList(std::string_view word, Visit&& visit) {
  bool isFound = false;
  forEachList([&]<class Record>(ListOf<Record> list) {
    if (word != PlotList<Record>::word) return;
    isFound = true;
    visit(list);
  });
  if (!isFound)
    throw LineError("there is no " + inQuotes(word) + " among " + listed(listWords()) +
                    suggestion(word, listWords()));
}

/// The field's value as a name says it; nothing where it is absent or empty.
std::optional<Text> nameIn(const Text& value);
std::optional<Text> nameIn(const std::optional<std::int64_t>& value);

/// Whether a name is this identifier.
bool isCalled(const UUID& id, std::string_view name);
bool isCalled(const Text& digest, std::string_view name);

/// What tells the record from others: its identifier as text.
std::string identifierOf(const UUID& id);
std::string identifierOf(const Text& digest);

[[noreturn]] void refuseUnknown(std::string_view word, std::string_view name,
                                const std::vector<std::string>& known);
[[noreturn]] void refuseAmbiguous(std::string_view word, std::string_view name,
                                  const std::vector<std::string>& identifiers);

/// The names of all records of the list, at most a thousand.
template <class Record>
std::vector<std::string> namesIn(const List<Record>& list) {
  std::vector<std::string> names;
  for (const Record& record : list) {
    if (names.size() >= 1000) break;
    std::apply(
        [&](const auto... field) {
          const auto add = [&](const std::optional<Text>& name) {
            if (name) names.push_back(name->str());
          };
          (add(nameIn(record.*field)), ...);
        },
        PlotList<Record>::names);
  }
  return names;
}

/// The place of the record with this identifier or name. Of several kinds of names the first that
/// any record has decides. Throws LineError when there is none or several have it.
template <class Record>
std::size_t placeOf(const KorrinProject& project, std::string_view name) {
  constexpr auto identifier = std::get<0>(fieldsOf<Record>()).member;
  const List<Record>& list = project.*PlotList<Record>::member;
  for (std::size_t i = 0; i < list.size(); ++i)
    if (isCalled(list[i].*identifier, name)) return i;
  std::vector<std::size_t> found;
  const auto search = [&, text = Text(name)](const auto field) {
    for (std::size_t i = 0; i < list.size() && !text.isBlank(); ++i)
      if (nameIn(list[i].*field) == text) found.push_back(i);
    return !found.empty();
  };
  std::apply([&](const auto... field) { (search(field) || ...); }, PlotList<Record>::names);
  if (found.empty()) refuseUnknown(PlotList<Record>::word, name, namesIn(list));
  if (found.size() == 1) return found.front();
  std::vector<std::string> identifiers;
  for (const std::size_t i : found) identifiers.push_back(identifierOf(list[i].*identifier));
  refuseAmbiguous(PlotList<Record>::word, name, identifiers);
}

}  // namespace korrin::host
