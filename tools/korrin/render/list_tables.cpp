#include "list_tables.h"

#include <cstdint>
#include <optional>
#include <utility>

namespace korrin::host {
namespace {

std::string numberText(const std::optional<std::int64_t>& number) {
  return number ? std::to_string(*number) : "–";
}

ListTable inputTable(const List<InputChannel>& inputs) {
  ListTable table{
      "Input list",
      {{"Ch", 1}, {"Source", 4}, {"Mic / DI", 4}, {"Stand", 3}, {"48 V", 1.2}, {"Notes", 6}},
      {}};
  for (const InputChannel& input : inputs)
    table.rows.push_back({numberText(input.channel), input.source.str(), input.microphoneOrDI.str(),
                          input.stand.str(), input.phantomPower ? "48 V" : "", input.notes.str()});
  return table;
}

ListTable mixTable(const List<MonitorMix>& mixes) {
  ListTable table{
      "Monitor mixes", {{"Mix", 1}, {"For", 4}, {"Type", 3}, {"Output", 3}, {"Notes", 8}}, {}};
  for (const MonitorMix& mix : mixes)
    table.rows.push_back({numberText(mix.number), mix.name.str(), mix.type.str(),
                          mix.outputPatch.str(), mix.notes.str()});
  return table;
}

ListTable equipmentTable(const List<EquipmentRequirement>& requirements) {
  ListTable table{"Equipment",
                  {{"Category", 3}, {"Item", 6}, {"Qty", 1.2}, {"Supplied by", 3}, {"Notes", 6}},
                  {}};
  for (const EquipmentRequirement& line : requirements)
    table.rows.push_back({line.category.str(), line.item.str(), std::to_string(line.quantity),
                          line.suppliedBy.str(), line.notes.str()});
  return table;
}

ListTable noteTable(const List<ProjectNote>& notes) {
  constexpr std::size_t longestNote = 400;
  ListTable table{"Notes", {{"Title", 4}, {"Note", 15, longestNote}}, {}};
  for (const ProjectNote& note : notes) table.rows.push_back({note.title.str(), note.body.str()});
  return table;
}

}  // namespace

std::vector<ListTable> includedLists(const KorrinProject& project) {
  const ExportSettings& settings = project.exportSettings;
  std::vector<ListTable> tables;
  const auto include = [&tables](bool isIncluded, ListTable table) {
    if (isIncluded && !table.rows.empty()) tables.push_back(std::move(table));
  };
  include(settings.includeInputList, inputTable(project.inputs));
  include(settings.includeMonitorMixes, mixTable(project.monitorMixes));
  include(settings.includeEquipment, equipmentTable(project.equipmentRequirements));
  include(settings.includeNotes, noteTable(project.notes));
  return tables;
}

}  // namespace korrin::host
