// Inputs, monitor mixes and equipment.

#include "korrin/review/fix_rules.h"
#include "korrin/review/record_names.h"
#include "korrin/review/words.h"

namespace korrin::fixes {
namespace {

using names::nameOf;
using revision::quoted;

DocumentCommand replacing(List<InputChannel> rows) {
  return DocumentCommand::replaceInputs(std::move(rows));
}
DocumentCommand replacing(List<MonitorMix> rows) {
  return DocumentCommand::replaceMonitorMixes(std::move(rows));
}
DocumentCommand replacing(List<EquipmentRequirement> rows) {
  return DocumentCommand::replaceEquipment(std::move(rows));
}

// A row with another value of one field.
template <class Row, class Field, class Value>
Fix setting(Field Row::*field, Value value, List<Row> rows, std::size_t index, std::string title) {
  rows.edit(index).*field = std::move(value);
  return {.title = std::move(title), .command = replacing(std::move(rows))};
}

template <class Row>
Fix freeNumber(std::optional<std::int64_t> Row::*number, const char* what, std::int64_t free,
               const List<Row>& rows, std::size_t index) {
  return setting(number, free, rows, index,
                 "Give " + nameOf(rows[index], index) + " " + what + " " + std::to_string(free));
}

template <class Row>
Fix withoutNumber(std::optional<std::int64_t> Row::*number, const char* what, const List<Row>& rows,
                  std::size_t index) {
  return setting(number, std::nullopt, rows, index,
                 "Remove the " + std::string(what) + " of " + nameOf(rows[index], index));
}

template <class Row>
std::optional<Fix> linkedTo(const PlotItem* item, const List<Row>& rows, std::size_t index) {
  if (item == nullptr) return std::nullopt;
  return setting(&Row::plotItemID, item->id, rows, index,
                 "Link " + nameOf(rows[index], index) + " to " + nameOf(*item));
}

template <class Row>
Fix withoutLink(const List<Row>& rows, std::size_t index) {
  return setting(
      &Row::plotItemID, std::nullopt, rows, index,
      "Remove the link of " + nameOf(rows[index], index) + " to a symbol that is not in the plot");
}

}  // namespace

std::optional<Fix> freeChannel(PlotLookup& plot, std::size_t index) {
  return freeNumber(&InputChannel::channel, "channel", plot.lowestFreeChannel(),
                    plot.project().inputs, index);
}

std::optional<Fix> noChannel(PlotLookup& plot, std::size_t index) {
  return withoutNumber(&InputChannel::channel, "channel", plot.project().inputs, index);
}

std::optional<Fix> freeMixNumber(PlotLookup& plot, std::size_t index) {
  return freeNumber(&MonitorMix::number, "number", plot.lowestFreeMixNumber(),
                    plot.project().monitorMixes, index);
}

std::optional<Fix> noMixNumber(PlotLookup& plot, std::size_t index) {
  return withoutNumber(&MonitorMix::number, "number", plot.project().monitorMixes, index);
}

std::optional<Fix> sourceFromLabel(PlotLookup& plot, std::size_t index) {
  const List<InputChannel>& inputs = plot.project().inputs;
  const PlotItem* const item = plot.itemOf(inputs[index]);
  if (item == nullptr || !plot.hasLabel(*item)) return std::nullopt;
  return setting(&InputChannel::source, item->label, inputs, index,
                 "Set the source of " + nameOf(inputs[index], index) + " to " +
                     quoted(item->label) + ", the label of its symbol");
}

std::optional<Fix> linkInputByName(PlotLookup& plot, std::size_t index) {
  const List<InputChannel>& inputs = plot.project().inputs;
  return linkedTo(plot.onlySourceCalled(inputs[index].source), inputs, index);
}

std::optional<Fix> linkMixByName(PlotLookup& plot, std::size_t index) {
  const List<MonitorMix>& mixes = plot.project().monitorMixes;
  return linkedTo(plot.onlyMonitorCalled(mixes[index].name), mixes, index);
}

std::optional<Fix> noInputLink(PlotLookup& plot, std::size_t index) {
  return withoutLink(plot.project().inputs, index);
}

std::optional<Fix> noMixLink(PlotLookup& plot, std::size_t index) {
  return withoutLink(plot.project().monitorMixes, index);
}

std::optional<Fix> noEquipmentLink(PlotLookup& plot, std::size_t index) {
  return withoutLink(plot.project().equipmentRequirements, index);
}

std::optional<Fix> quantityOfOne(PlotLookup& plot, std::size_t index) {
  const List<EquipmentRequirement>& lines = plot.project().equipmentRequirements;
  return setting(&EquipmentRequirement::quantity, 1, lines, index,
                 "Set the quantity of " + nameOf(lines[index], index) + " to 1");
}

std::optional<Fix> withoutLine(PlotLookup& plot, std::size_t index) {
  List<EquipmentRequirement> lines = plot.project().equipmentRequirements;
  std::string title = "Remove " + nameOf(lines[index], index);
  lines.erase(index);
  return Fix{.title = std::move(title), .command = replacing(std::move(lines))};
}

}  // namespace korrin::fixes
