#include "plot_rows.h"

#include <initializer_list>
#include <locale>
#include <sstream>

namespace korrin::test {
namespace {

std::string row(std::initializer_list<std::string> cells) {
  std::string line;
  for (const std::string& cell : cells) line += (line.empty() ? "" : " | ") + cell;
  return line + "\n";
}

std::string number(double value) {
  std::ostringstream text;
  text.imbue(std::locale::classic());
  text << value;
  return text.str();
}

std::string number(const std::optional<std::int64_t>& value) {
  return value ? std::to_string(*value) : "none";
}

std::string linkedLabel(const KorrinProject& project, const std::optional<UUID>& id) {
  if (!id) return "no item";
  for (const PlotItem& item : project.items)
    if (item.id == *id) return item.label.str();
  return "a lost item";
}

}  // namespace

std::string itemRows(const KorrinProject& project) {
  std::string rows;
  for (const PlotItem& item : project.items)
    rows += row({std::string(rawValue(item.kind)), item.assetID.str(),
                 number(item.position.x) + ", " + number(item.position.y),
                 number(item.size.width) + " x " + number(item.size.height),
                 number(item.rotationDegrees), item.label.str()});
  return rows;
}

std::string inputRows(const KorrinProject& project) {
  std::string rows;
  for (const InputChannel& input : project.inputs)
    rows += row({number(input.channel), input.source.str(), input.microphoneOrDI.str(),
                 input.stand.str(), input.phantomPower ? "48 V" : "off", input.notes.str(),
                 linkedLabel(project, input.plotItemID)});
  return rows;
}

std::string mixRows(const KorrinProject& project) {
  std::string rows;
  for (const MonitorMix& mix : project.monitorMixes)
    rows += row({number(mix.number), mix.name.str(), mix.type.str(), mix.outputPatch.str(),
                 mix.notes.str(), linkedLabel(project, mix.plotItemID)});
  return rows;
}

std::string equipmentRows(const KorrinProject& project) {
  std::string rows;
  for (const EquipmentRequirement& line : project.equipmentRequirements)
    rows += row({line.category.str(), line.item.str(), std::to_string(line.quantity),
                 line.suppliedBy.str(), line.notes.str(), linkedLabel(project, line.plotItemID)});
  return rows;
}

std::string noteRows(const KorrinProject& project) {
  std::string rows;
  for (const ProjectNote& note : project.notes) rows += row({note.title.str(), note.body.str()});
  return rows;
}

}  // namespace korrin::test
