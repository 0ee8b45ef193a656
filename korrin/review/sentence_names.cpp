#include "korrin/review/sentence_names.h"

#include "korrin/review/words.h"

namespace korrin::revision {
namespace {

std::string named(std::string name, const Text& text) {
  if (!isShownBlank(text)) name += " " + quoted(text);
  return name;
}

std::string numbered(std::string name, const std::optional<std::int64_t>& number,
                     const Text& text) {
  if (number) name += " " + std::to_string(*number);
  if (!number && isShownBlank(text)) return name + " without a name";
  return named(std::move(name), text);
}

std::string lowered(std::string_view text) {
  std::string result(text);
  for (char& c : result)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return result;
}

/// "layerID" refers to `layers`, "plotItemID" and "itemIDs" to `items`.
bool refersTo(std::string_view key, std::string_view list) {
  if (key.ends_with("s")) key.remove_suffix(1);
  if (!key.ends_with("ID") || !list.ends_with("s")) return false;
  key.remove_suffix(2);
  list.remove_suffix(1);
  return lowered(key).ends_with(lowered(list));
}

}  // namespace

std::string nameOf(const PlotItem& item) {
  if (!isShownBlank(item.label)) return quoted(item.label);
  return "Unlabelled " + wordsOf(rawValue(item.kind));
}
std::string nameOf(const PlotLayer& layer) { return named("Layer", layer.name); }
std::string nameOf(const PlotGroup& group) { return named("Group", group.name); }
std::string nameOf(const InputChannel& input) {
  return numbered("Input", input.channel, input.source);
}
std::string nameOf(const MonitorMix& mix) { return numbered("Monitor mix", mix.number, mix.name); }
std::string nameOf(const EquipmentRequirement& equipment) {
  return named("Equipment", equipment.item);
}
std::string nameOf(const ProjectNote& note) { return named("Note", note.title); }
std::string nameOf(const AssetManifestEntry& asset) {
  return named("Embedded file", asset.filename);
}

std::string nameOfUnknown(std::string_view list, std::string_view id) {
  std::string name = capitalized(shown(wordsOf(list)));
  if (!id.empty()) name += " " + shown(id);
  return name;
}

std::optional<std::string> RecordNames::nameOfReferred(std::string_view key, const UUID& id) const {
  std::optional<std::string> name;
  forEachField<KorrinProject>([&](const auto& field) {
    using Value = ValueOf<decltype(field)>;
    if constexpr (isList<Value>)
      if constexpr (std::is_same_v<IdentityOf<typename Value::value_type>, UUID>)
        if (!name && refersTo(key, field.key)) name = nameOfFirst(field, id);
  });
  return name;
}

std::string RecordNames::nameReferredTo(std::string_view key, const UUID& id,
                                        const RecordNames& other) const {
  auto name = nameOfReferred(key, id);
  if (!name) name = other.nameOfReferred(key, id);
  if (!name) return "a missing record";
  // Behind other words: `layer changed from "Front" to "Rigging"`, not `to Layer "Rigging"`.
  const std::size_t quote = name->find('"');
  if (quote != std::string::npos) return name->substr(quote);
  return lowered(*name);
}

}  // namespace korrin::revision
