#include "korrin/drawing/list_tables.h"

#include <cstdint>
#include <map>
#include <optional>
#include <utility>

namespace korrin::drawing {
namespace {

Text numberText(const std::optional<std::int64_t>& number) {
  return number ? std::to_string(*number) : std::string("–");
}

/// A table with a row for each record, whose cells `cellsOf` makes.
template <class Record, class CellsOf>
ListTable tableOf(std::string title, std::vector<std::string> columns, const List<Record>& records,
                  CellsOf cellsOf) {
  return {std::move(title), std::move(columns), records.size(),
          [&records, cellsOf](std::size_t row) { return cellsOf(records[row]); }};
}

ListTable inputTable(const List<InputChannel>& inputs) {
  return tableOf(
      "Input list", {"Ch", "Source", "Mic / DI", "Stand", "48 V", "Notes"}, inputs,
      [](const InputChannel& input) -> Cells {
        return {numberText(input.channel),        input.source, input.microphoneOrDI, input.stand,
                input.phantomPower ? "48 V" : "", input.notes};
      });
}

ListTable mixTable(const List<MonitorMix>& mixes) {
  return tableOf("Monitor mixes", {"Mix", "For", "Type", "Output", "Notes"}, mixes,
                 [](const MonitorMix& mix) -> Cells {
                   return {numberText(mix.number), mix.name, mix.type, mix.outputPatch, mix.notes};
                 });
}

ListTable equipmentTable(const List<EquipmentRequirement>& requirements) {
  return tableOf("Equipment", {"Category", "Item", "Qty", "Supplied by", "Notes"}, requirements,
                 [](const EquipmentRequirement& line) -> Cells {
                   return {line.category, line.item, std::to_string(line.quantity), line.suppliedBy,
                           line.notes};
                 });
}

ListTable noteTable(const List<ProjectNote>& notes) {
  return tableOf("Notes", {"Title", "Note"}, notes, [](const ProjectNote& note) -> Cells {
    return {note.title, note.body};
  });
}

/// "3 × Tall boom", a line for each text that is not blank, in the order of the texts.
std::string countsOf(const List<InputChannel>& inputs, Text InputChannel::*field) {
  std::map<Text, std::size_t> counts;
  for (const InputChannel& input : inputs)
    if (!(input.*field).isBlank()) ++counts[input.*field];
  std::string lines;
  for (const auto& [text, count] : counts)
    lines += (lines.empty() ? "" : "\n") + std::to_string(count) + " × " + paperLine(text);
  return lines.empty() ? "none" : lines;
}

ListTable totals(const List<InputChannel>& inputs) {
  std::size_t phantomPowered = 0;
  for (const InputChannel& input : inputs) phantomPowered += input.phantomPower ? 1 : 0;
  Cells cells = {std::to_string(inputs.size()) + (inputs.size() == 1 ? " input\n" : " inputs\n") +
                     std::to_string(phantomPowered) + " × 48 V",
                 countsOf(inputs, &InputChannel::microphoneOrDI),
                 countsOf(inputs, &InputChannel::stand)};
  return {"Totals",
          {"Inputs", "Microphones and DI", "Stands"},
          1,
          [cells = std::move(cells)](std::size_t) { return cells; }};
}

}  // namespace

std::vector<ListTable> includedLists(const KorrinProject& project) {
  const ExportSettings& settings = project.exportSettings;
  std::vector<ListTable> tables;
  if (settings.includeInputList && !project.inputs.empty()) {
    tables.push_back(inputTable(project.inputs));
    tables.push_back(totals(project.inputs));
  }
  const auto include = [&tables](bool isIncluded, ListTable table) {
    if (isIncluded && table.rowCount > 0) tables.push_back(std::move(table));
  };
  include(settings.includeMonitorMixes, mixTable(project.monitorMixes));
  include(settings.includeEquipment, equipmentTable(project.equipmentRequirements));
  include(settings.includeNotes, noteTable(project.notes));
  return tables;
}

std::vector<ListTable> remarks(const DrawnStage& drawn, const ShortenedTexts& shortened) {
  std::vector<ListTable> tables;
  if (!drawn.missing.empty())
    tables.push_back({"Not on the drawing",
                      {"Item", "Why"},
                      drawn.missing.size(),
                      [&drawn](std::size_t row) -> Cells {
                        const MissingItem& missing = drawn.missing[row];
                        return {nameOf(*missing.item), missing.reason};
                      }});
  if (!shortened.entries().empty())
    tables.push_back({"Shortened texts",
                      {"Printed", "In full"},
                      shortened.entries().size(),
                      [&shortened](std::size_t row) -> Cells {
                        const ShortenedTexts::Entry& entry = shortened.entries()[row];
                        return {entry.printed, entry.full};
                      }});
  return tables;
}

}  // namespace korrin::drawing
