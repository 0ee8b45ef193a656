// Inputs, monitor mixes and equipment.

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

std::string withoutLink(const std::string& name) {
  return "Remove the link of " + name + " to a symbol that is not in the plot";
}

}  // namespace

std::optional<Fix> freeChannel(PlotLookup& plot, std::size_t index) {
  const KorrinProject& project = plot.project();
  InputChannel input = project.inputs[index];
  const std::string name = nameOf(input, index);
  input.channel = plot.lowestFreeChannel();
  const std::string number = std::to_string(*input.channel);
  return replacingInput(project, index, std::move(input), "Give " + name + " channel " + number);
}

std::optional<Fix> noChannel(PlotLookup& plot, std::size_t index) {
  const KorrinProject& project = plot.project();
  InputChannel input = project.inputs[index];
  const std::string name = nameOf(input, index);
  input.channel = std::nullopt;
  return replacingInput(project, index, std::move(input), "Remove the channel of " + name);
}

std::optional<Fix> freeMixNumber(PlotLookup& plot, std::size_t index) {
  const KorrinProject& project = plot.project();
  MonitorMix mix = project.monitorMixes[index];
  const std::string name = nameOf(mix, index);
  mix.number = plot.lowestFreeMixNumber();
  const std::string number = std::to_string(*mix.number);
  return replacingMix(project, index, std::move(mix), "Give " + name + " number " + number);
}

std::optional<Fix> noMixNumber(PlotLookup& plot, std::size_t index) {
  const KorrinProject& project = plot.project();
  MonitorMix mix = project.monitorMixes[index];
  const std::string name = nameOf(mix, index);
  mix.number = std::nullopt;
  return replacingMix(project, index, std::move(mix), "Remove the number of " + name);
}

std::optional<Fix> sourceFromLabel(PlotLookup& plot, std::size_t index) {
  const KorrinProject& project = plot.project();
  InputChannel input = project.inputs[index];
  const PlotItem* const item = plot.itemOf(input);
  if (item == nullptr || item->label.isBlank()) return std::nullopt;
  const std::string name = nameOf(input, index);
  input.source = item->label;
  return replacingInput(
      project, index, std::move(input),
      "Set the source of " + name + " to " + quoted(item->label) + ", the label of its symbol");
}

std::optional<Fix> linkInputByName(PlotLookup& plot, std::size_t index) {
  const KorrinProject& project = plot.project();
  InputChannel input = project.inputs[index];
  const PlotItem* const item = plot.onlySourceCalled(input.source);
  if (item == nullptr) return std::nullopt;
  input.plotItemID = item->id;
  const std::string name = nameOf(input, index);
  return replacingInput(project, index, std::move(input), "Link " + name + " to " + nameOf(*item));
}

std::optional<Fix> linkMixByName(PlotLookup& plot, std::size_t index) {
  const KorrinProject& project = plot.project();
  MonitorMix mix = project.monitorMixes[index];
  const PlotItem* const item = plot.onlyMonitorCalled(mix.name);
  if (item == nullptr) return std::nullopt;
  mix.plotItemID = item->id;
  const std::string name = nameOf(mix, index);
  return replacingMix(project, index, std::move(mix), "Link " + name + " to " + nameOf(*item));
}

std::optional<Fix> noInputLink(PlotLookup& plot, std::size_t index) {
  const KorrinProject& project = plot.project();
  InputChannel input = project.inputs[index];
  input.plotItemID = std::nullopt;
  const std::string title = withoutLink(nameOf(input, index));
  return replacingInput(project, index, std::move(input), title);
}

std::optional<Fix> noMixLink(PlotLookup& plot, std::size_t index) {
  const KorrinProject& project = plot.project();
  MonitorMix mix = project.monitorMixes[index];
  mix.plotItemID = std::nullopt;
  const std::string title = withoutLink(nameOf(mix, index));
  return replacingMix(project, index, std::move(mix), title);
}

std::optional<Fix> noEquipmentLink(PlotLookup& plot, std::size_t index) {
  const KorrinProject& project = plot.project();
  EquipmentRequirement line = project.equipmentRequirements[index];
  line.plotItemID = std::nullopt;
  const std::string title = withoutLink(nameOf(line, index));
  return replacingLine(project, index, std::move(line), title);
}

std::optional<Fix> quantityOfOne(PlotLookup& plot, std::size_t index) {
  const KorrinProject& project = plot.project();
  EquipmentRequirement line = project.equipmentRequirements[index];
  line.quantity = 1;
  const std::string title = "Set the quantity of " + nameOf(line, index) + " to 1";
  return replacingLine(project, index, std::move(line), title);
}

std::optional<Fix> withoutLine(PlotLookup& plot, std::size_t index) {
  const KorrinProject& project = plot.project();
  List<EquipmentRequirement> lines = project.equipmentRequirements;
  const std::string title = "Remove " + nameOf(lines[index], index);
  lines.erase(index);
  return Fix{.title = title, .command = DocumentCommand::replaceEquipment(std::move(lines))};
}

}  // namespace korrin::fixes
