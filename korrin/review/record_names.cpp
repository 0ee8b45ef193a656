#include "korrin/review/record_names.h"

#include <cstdint>
#include <optional>

#include "korrin/review/words.h"

namespace korrin::names {

using revision::isShownBlank;
using revision::numberText;
using revision::quoted;

namespace {

std::string numberedName(const char* kind, const std::optional<std::int64_t>& number,
                         const Text& name, std::size_t index) {
  std::string text = kind;
  if (number) text += " " + std::to_string(*number);
  if (!isShownBlank(name)) text += " " + quoted(name);
  if (!number && isShownBlank(name)) text += " in row " + std::to_string(index + 1);
  return text;
}

}  // namespace

std::string nameOf(const InputChannel& input, std::size_t index) {
  return numberedName("input", input.channel, input.source, index);
}

std::string nameOf(const MonitorMix& mix, std::size_t index) {
  return numberedName("mix", mix.number, mix.name, index);
}

std::string nameOf(const EquipmentRequirement& line, std::size_t index) {
  const Text& name = isShownBlank(line.item) ? line.category : line.item;
  return numberedName("equipment", std::nullopt, name, index);
}

std::string nameOf(const PlotItem& item) {
  std::string text(rawValue(item.kind));
  if (!isShownBlank(item.label)) return text + " " + quoted(item.label);
  return text + " at x " + numberText(item.position.x) + " mm, y " + numberText(item.position.y) +
         " mm";
}

std::string nameOf(const PlotLayer& layer) { return "layer " + quoted(layer.name); }

std::string nameOf(const PlotGroup& group) { return "group " + quoted(group.name); }

std::string nameOf(const AssetManifestEntry& entry) {
  return "asset " + quoted(isShownBlank(entry.filename) ? entry.sha256 : entry.filename);
}

}  // namespace korrin::names
