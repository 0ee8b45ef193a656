#include "editing/item_names.h"

#include <charconv>

#include "korrin/commands/edit_refusal.h"

#include "editing/edit_words.h"
#include "terminal/words.h"

namespace korrin::host {
namespace {

[[noreturn]] void refuseAmbiguous(std::string_view name,
                                  const std::vector<const PlotItem*>& candidates) {
  constexpr std::size_t mostNamed = 4;
  std::string sentence = std::to_string(candidates.size()) + " items are labelled " +
                         inQuotes(name) + "; name one " + inQuotes(std::string(name) + "#1") +
                         ", " + inQuotes(std::string(name) + "#2") +
                         " and so on, or by its identifier:";
  for (std::size_t i = 0; i < candidates.size() && i < mostNamed; ++i)
    sentence += (i == 0 ? " " : ", ") + candidates[i]->id.text();
  throw LineError(sentence + (candidates.size() > mostNamed ? ", ..." : ""));
}

/// A label and which of the items that have it, counted from 1.
struct NumberedLabel {
  Text label;
  std::size_t number;
};

std::optional<NumberedLabel> numberedLabel(std::string_view name) {
  const std::size_t sign = name.rfind('#');
  if (sign == std::string_view::npos) return std::nullopt;
  const std::string_view digits = name.substr(sign + 1);
  std::size_t number = 0;
  const auto read = std::from_chars(digits.begin(), digits.end(), number);
  if (read.ec != std::errc() || read.ptr != digits.end() || number == 0) return std::nullopt;
  return NumberedLabel{name.substr(0, sign), number};
}

}  // namespace

IDSet identifiersOf(const List<PlotItem>& items) {
  IDSet identifiers;
  for (const PlotItem& item : items) identifiers.insert(item.id);
  return identifiers;
}

ItemNames::ItemNames(const KorrinProject& project) : project_(project) {
  for (const PlotItem& item : project.items) {
    byIdentifier_.try_emplace(item.id, &item);
    if (!item.label.isBlank()) byLabel_[item.label].push_back(&item);
  }
}

const PlotItem& ItemNames::item(std::string_view name) const {
  if (const std::optional<UUID> id = UUID::fromText(name)) {
    const auto identified = byIdentifier_.find(*id);
    if (identified != byIdentifier_.end()) return *identified->second;
  }
  const auto labelled = byLabel_.find(Text(name));
  if (labelled == byLabel_.end()) {
    if (const PlotItem* numbered = numberedItem(name)) return *numbered;
    std::vector<std::string> labels;
    for (const PlotItem& item : project_.items) labels.push_back(item.label.str());
    throw LineError("there is no item " + inQuotes(name) + suggestion(name, labels));
  }
  if (labelled->second.size() > 1) refuseAmbiguous(name, labelled->second);
  return *labelled->second.front();
}

const PlotItem* ItemNames::numberedItem(std::string_view name) const {
  const auto numbered = numberedLabel(name);
  if (!numbered) return nullptr;
  const auto labelled = byLabel_.find(numbered->label);
  if (labelled == byLabel_.end()) return nullptr;
  if (numbered->number <= labelled->second.size()) return labelled->second[numbered->number - 1];
  throw LineError("there is no item " + inQuotes(name) + ": " +
                  std::to_string(labelled->second.size()) +
                  (labelled->second.size() == 1 ? " item is" : " items are") + " labelled " +
                  inQuotes(numbered->label));
}

List<PlotItem> ItemNames::editableItems(const std::vector<std::string>& names) const {
  List<PlotItem> items;
  IDSet seen;
  for (const std::string& name : names) {
    const PlotItem& named = item(name);
    if (!seen.insert(named.id).second) throw LineError(inQuotes(name) + " is named twice");
    if (const auto reason = obstacle(named)) throw LineError(inQuotes(name) + " " + *reason);
    items.push_back(named);
  }
  return items;
}

std::string ItemNames::nameOf(const PlotItem& item) const {
  const auto labelled = byLabel_.find(item.label);
  const bool isOwn = labelled != byLabel_.end() && labelled->second.size() == 1;
  // A label may spell the identifier of another item, which then is meant by it.
  const std::optional<UUID> spelled = UUID::fromText(item.label);
  const bool isIdentifier = spelled && byIdentifier_.contains(*spelled);
  return isOwn && !isIdentifier ? item.label.str() : item.id.text();
}

std::optional<std::string> ItemNames::obstacle(const PlotItem& item) const {
  const std::optional<EditRefusal> refusal = whyNotEditable(project_, item);
  if (!refusal) return std::nullopt;
  if (*refusal == EditRefusal::itemLocked) return "is locked";
  for (const PlotLayer& layer : project_.layers)
    if (layer.id == item.layerID)
      return "is on the layer " + inQuotes(layer.name) + ", which is " +
             (*refusal == EditRefusal::layerHidden ? "hidden" : "locked");
  return "is on a layer that does not exist";
}

}  // namespace korrin::host
