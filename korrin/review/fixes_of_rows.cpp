// Inputs, monitor mixes and equipment.

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include "korrin/review/fix_rules.h"
#include "korrin/review/record_names.h"
#include "korrin/review/words.h"

namespace korrin::fixes {
namespace {

using names::nameOf;
using revision::quoted;

Fix replacingInput(const KorrinProject& project, std::size_t index, InputChannel input,
                   std::string title) {
  List<InputChannel> inputs = project.inputs;
  inputs.replace(index, std::move(input));
  return {.title = std::move(title), .command = DocumentCommand::replaceInputs(std::move(inputs))};
}

Fix replacingMix(const KorrinProject& project, std::size_t index, MonitorMix mix,
                 std::string title) {
  List<MonitorMix> mixes = project.monitorMixes;
  mixes.replace(index, std::move(mix));
  return {.title = std::move(title),
          .command = DocumentCommand::replaceMonitorMixes(std::move(mixes))};
}

Fix replacingLine(const KorrinProject& project, std::size_t index, EquipmentRequirement line,
                  std::string title) {
  List<EquipmentRequirement> lines = project.equipmentRequirements;
  lines.replace(index, std::move(line));
  return {.title = std::move(title),
          .command = DocumentCommand::replaceEquipment(std::move(lines))};
}

// Of the numbers from 1 to one more than there are rows, at least one is free.
template <class Row>
std::int64_t lowestFree(const List<Row>& rows, std::optional<std::int64_t> Row::*number) {
  std::vector<bool> isTaken(rows.size() + 2);
  for (const Row& row : rows) {
    const std::optional<std::int64_t>& taken = row.*number;
    if (taken && *taken >= 1 && static_cast<std::uint64_t>(*taken) < isTaken.size())
      isTaken[static_cast<std::size_t>(*taken)] = true;
  }
  return std::find(isTaken.begin() + 1, isTaken.end(), false) - isTaken.begin();
}

// The only item of these kinds that bears the name; none for a blank name.
const PlotItem* onlyItemCalled(const Text& name, const List<PlotItem>& items,
                               std::span<const PlotItemKind> kinds) {
  const Text wanted = name.trimmed();
  if (wanted.empty()) return nullptr;
  const PlotItem* only = nullptr;
  for (const PlotItem& item : items) {
    const bool fits = std::find(kinds.begin(), kinds.end(), item.kind) != kinds.end();
    if (!fits || item.label.trimmed() != wanted) continue;
    if (only != nullptr) return nullptr;
    only = &item;
  }
  return only;
}

const PlotItem* itemWith(const std::optional<UUID>& id, const List<PlotItem>& items) {
  const auto found = std::find_if(items.begin(), items.end(),
                                  [&id](const PlotItem& item) { return id == item.id; });
  return found == items.end() ? nullptr : &*found;
}

std::string withoutLink(const std::string& name) {
  return "Remove the link of " + name + " to a symbol that is not in the plot";
}

}  // namespace

std::optional<Fix> freeChannel(const KorrinProject& project, std::size_t index) {
  InputChannel input = project.inputs[index];
  const std::string name = nameOf(input, index);
  input.channel = lowestFree(project.inputs, &InputChannel::channel);
  const std::string number = std::to_string(*input.channel);
  return replacingInput(project, index, std::move(input), "Give " + name + " channel " + number);
}

std::optional<Fix> noChannel(const KorrinProject& project, std::size_t index) {
  InputChannel input = project.inputs[index];
  const std::string name = nameOf(input, index);
  input.channel = std::nullopt;
  return replacingInput(project, index, std::move(input), "Remove the channel of " + name);
}

std::optional<Fix> freeMixNumber(const KorrinProject& project, std::size_t index) {
  MonitorMix mix = project.monitorMixes[index];
  const std::string name = nameOf(mix, index);
  mix.number = lowestFree(project.monitorMixes, &MonitorMix::number);
  const std::string number = std::to_string(*mix.number);
  return replacingMix(project, index, std::move(mix), "Give " + name + " number " + number);
}

std::optional<Fix> noMixNumber(const KorrinProject& project, std::size_t index) {
  MonitorMix mix = project.monitorMixes[index];
  const std::string name = nameOf(mix, index);
  mix.number = std::nullopt;
  return replacingMix(project, index, std::move(mix), "Remove the number of " + name);
}

std::optional<Fix> sourceFromLabel(const KorrinProject& project, std::size_t index) {
  InputChannel input = project.inputs[index];
  const PlotItem* const item = itemWith(input.plotItemID, project.items);
  if (item == nullptr || item->label.isBlank()) return std::nullopt;
  const std::string name = nameOf(input, index);
  input.source = item->label;
  return replacingInput(
      project, index, std::move(input),
      "Set the source of " + name + " to " + quoted(item->label) + ", the label of its symbol");
}

std::optional<Fix> linkInputByName(const KorrinProject& project, std::size_t index) {
  using enum PlotItemKind;
  static constexpr std::array kinds = {microphone, instrument, performer, amplifier, custom};
  InputChannel input = project.inputs[index];
  const PlotItem* const item = onlyItemCalled(input.source, project.items, kinds);
  if (item == nullptr) return std::nullopt;
  input.plotItemID = item->id;
  const std::string name = nameOf(input, index);
  return replacingInput(project, index, std::move(input), "Link " + name + " to " + nameOf(*item));
}

std::optional<Fix> linkMixByName(const KorrinProject& project, std::size_t index) {
  static constexpr std::array kinds = {PlotItemKind::monitor};
  MonitorMix mix = project.monitorMixes[index];
  const PlotItem* const item = onlyItemCalled(mix.name, project.items, kinds);
  if (item == nullptr) return std::nullopt;
  mix.plotItemID = item->id;
  const std::string name = nameOf(mix, index);
  return replacingMix(project, index, std::move(mix), "Link " + name + " to " + nameOf(*item));
}

std::optional<Fix> noInputLink(const KorrinProject& project, std::size_t index) {
  InputChannel input = project.inputs[index];
  input.plotItemID = std::nullopt;
  const std::string title = withoutLink(nameOf(input, index));
  return replacingInput(project, index, std::move(input), title);
}

std::optional<Fix> noMixLink(const KorrinProject& project, std::size_t index) {
  MonitorMix mix = project.monitorMixes[index];
  mix.plotItemID = std::nullopt;
  const std::string title = withoutLink(nameOf(mix, index));
  return replacingMix(project, index, std::move(mix), title);
}

std::optional<Fix> noEquipmentLink(const KorrinProject& project, std::size_t index) {
  EquipmentRequirement line = project.equipmentRequirements[index];
  line.plotItemID = std::nullopt;
  const std::string title = withoutLink(nameOf(line, index));
  return replacingLine(project, index, std::move(line), title);
}

std::optional<Fix> quantityOfOne(const KorrinProject& project, std::size_t index) {
  EquipmentRequirement line = project.equipmentRequirements[index];
  line.quantity = 1;
  const std::string title = "Set the quantity of " + nameOf(line, index) + " to 1";
  return replacingLine(project, index, std::move(line), title);
}

std::optional<Fix> withoutLine(const KorrinProject& project, std::size_t index) {
  List<EquipmentRequirement> lines = project.equipmentRequirements;
  const std::string title = "Remove " + nameOf(lines[index], index);
  lines.erase(index);
  return Fix{.title = title, .command = DocumentCommand::replaceEquipment(std::move(lines))};
}

}  // namespace korrin::fixes
