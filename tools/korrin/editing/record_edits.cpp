#include "editing/record_edits.h"

#include <algorithm>
#include <optional>
#include <span>
#include <utility>

#include "korrin/drawing/symbol_catalogue.h"

#include "editing/edit_session.h"
#include "editing/edit_words.h"
#include "editing/field_path.h"
#include "editing/item_edits.h"
#include "editing/item_names.h"
#include "editing/plot_lists.h"
#include "editing/structure_edits.h"
#include "terminal/words.h"

namespace korrin::host {
namespace {

using Words = EditCommand::Words;

/// The list with the record at `place` changed, as a command.
template <class Record>
DocumentCommand replacingRecord(const KorrinProject& project, std::size_t place, Record record) {
  List<Record> list = project.*PlotList<Record>::member;
  list.replace(place, std::move(record));
  return PlotList<Record>::replacing(std::move(list));
}

/// Changes an item's fields. One that may not be edited takes nothing but its own lock.
void setItem(EditSession& session, const std::string& name, const Words& pairs, std::size_t first) {
  const ItemNames names(session.project());
  PlotItem item = names.item(name);
  const bool isAboutTheLock = pairs.size() == first + 2 && pairs[first] == "isLocked";
  const std::optional<std::string> obstacle = names.obstacle(item);
  if (obstacle && !isAboutTheLock) throw LineError(inQuotes(name) + " " + *obstacle);
  setFields(item, pairs, first, FieldWords(session.project()));
  session.apply(DocumentCommand::replaceItems({std::move(item)}));
}

/// A part of the plot that is no list: where it is held, its own name, and the command for it.
template <class Part>
struct PlotPart {
  std::string_view name;
  Part KorrinProject::*member;
  void (*apply)(EditSession&, Part);
};

void applyMetadata(EditSession& session, ProjectMetadata metadata) {
  session.apply(DocumentCommand::replaceMetadata(std::move(metadata)));
}
void applyStage(EditSession& session, StageDefinition stage) {
  session.apply(DocumentCommand::replaceStage(std::move(stage)));
}
void applyExportSettings(EditSession& session, ExportSettings settings) {
  KorrinProject project = session.project();
  project.exportSettings = settings;
  project.metadata.modifiedAt = session.environment().now();
  session.apply(DocumentCommand::replaceProject(std::move(project)));
}

/// The parts in the order in which a key without its part's name is looked for.
constexpr std::tuple plotParts = {
    PlotPart<ProjectMetadata>{"metadata", &KorrinProject::metadata, applyMetadata},
    PlotPart<ExportSettings>{"exportSettings", &KorrinProject::exportSettings, applyExportSettings},
    PlotPart<StageDefinition>{"stage", &KorrinProject::stage, applyStage},
};

/// Sets a field of a part of the plot; false where the path is none.
bool setPlotField(EditSession& session, const std::string& path, const std::string& word) {
  bool isDone = false;
  const auto tryPart = [&]<class Part>(const PlotPart<Part>& part) {
    const std::string prefix = std::string(part.name) + ".";
    const std::string_view inside =
        std::string_view(path).substr(path.starts_with(prefix) ? prefix.size() : 0);
    if (isDone || !hasField<Part>(inside)) return;
    if (inside == "modifiedAt") throw LineError("modifiedAt is set by every edit itself");
    Part value = session.project().*part.member;
    setField(value, inside, word, FieldWords(session.project()));
    part.apply(session, std::move(value));
    isDone = true;
  };
  std::apply([&](const auto&... part) { (tryPart(part), ...); }, plotParts);
  return isDone;
}

std::vector<std::string> plotFieldPaths() {
  std::vector<std::string> paths;
  std::apply(
      [&]<class... Part>(const PlotPart<Part>&...) { (addFieldPaths<Part>("", paths), ...); },
      plotParts);
  for (std::string& path : fieldPaths<StageDefinition>()) paths.push_back("stage." + path);
  return paths;
}

/// Sets `ITEM.FIELD`. A label may hold points itself: the item's name ends at the first one behind
/// which a field stands.
void setByPath(EditSession& session, const std::string& path, const std::string& word) {
  if (setPlotField(session, path, word)) return;
  std::size_t point = path.find('.');
  while (point != std::string::npos && !hasField<PlotItem>(path.substr(point + 1)))
    point = path.find('.', point + 1);
  if (point != std::string::npos)
    return setItem(session, path.substr(0, point), {path.substr(point + 1), word}, 0);
  const std::size_t last = path.rfind('.');
  if (last != std::string::npos && !similarWord(path, plotFieldPaths()))
    throw LineError("an item has no field " + inQuotes(path.substr(last + 1)) +
                    suggestion(path.substr(last + 1), fieldPaths<PlotItem>()));
  throw LineError("the plot has no field " + inQuotes(path) +
                  suggestion(path, plotFieldPaths(),
                             "; fields of records are set as in set input 7 source Kick"));
}

/// The symbol with this identifier or name, letter case aside.
const Symbol& symbolNamed(const std::string& word) {
  std::vector<std::string> known;
  for (const Symbol& symbol : builtInSymbols()) {
    if (symbol.assetID == word || lowerCase(symbol.name) == lowerCase(word)) return symbol;
    known.emplace_back(symbol.name);
  }
  for (const Symbol& symbol : builtInSymbols()) known.emplace_back(symbol.assetID);
  // "wedge" is far from "Wedge monitor" by letters, and yet what is meant.
  if (!similarWord(word, known))
    for (const Symbol& symbol : builtInSymbols())
      if (!word.empty() && lowerCase(symbol.name).find(lowerCase(word)) != std::string::npos)
        throw LineError("there is no symbol " + inQuotes(word) + "; did you mean " +
                        inQuotes(symbol.name) + "?");
  throw LineError("there is no symbol " + inQuotes(word) +
                  suggestion(word, known, "; list symbols shows them"));
}

void addItem(EditSession& session, const Words& words) {
  if (words.size() < 4) throw LineError("use: add item SYMBOL X Y [FIELD VALUE]...");
  const KorrinProject& project = session.project();
  const std::optional<UUID> layer = project.resolvedActiveLayerID(std::nullopt);
  if (!layer) throw LineError("the plot has no layer yet: add layer name Stage");
  const Symbol& symbol = symbolNamed(words[1]);
  const std::optional<double> x = numberIn(words[2]);
  const std::optional<double> y = numberIn(words[3]);
  if (!x || !y)
    throw LineError(inQuotes(x ? words[3] : words[2]) + " is not a number of millimetres");
  PlotItem item = makeItem(symbol, {.x = *x, .y = *y}, *layer, session.environment());
  setFields(item, words, 4, FieldWords(project));
  session.apply(DocumentCommand::insertItems({std::move(item)}));
}

/// A record with nothing in it that is not needed.
template <class Record>
Record freshRecord(const KorrinProject& project, const Environment& environment) {
  Record record{};
  if constexpr (requires { record.id = environment.makeUUID(); })
    record.id = environment.makeUUID();
  if constexpr (std::is_same_v<Record, EquipmentRequirement>) record.quantity = 1;
  if constexpr (std::is_same_v<Record, PlotLayer>) {
    record.isVisible = true;
    for (const PlotLayer& layer : project.layers)
      record.zIndex = std::max(record.zIndex, layer.zIndex + (layer.zIndex < 1'000'000 ? 1 : 0));
  }
  return record;
}

template <class Record>
void removeFrom(EditSession& session, const Words& words) {
  List<Record> list = session.project().*PlotList<Record>::member;
  std::vector<std::size_t> places;
  for (std::size_t i = 1; i < words.size(); ++i)
    places.push_back(placeOf<Record>(session.project(), words[i]));
  std::ranges::sort(places);
  if (std::ranges::adjacent_find(places) != places.end())
    throw LineError("one " + words[0] + " is named twice");
  for (std::size_t i = places.size(); i-- > 0;) list.erase(places[i]);
  session.apply(PlotList<Record>::replacing(std::move(list)));
}

/// Changes what shows a record; `itemID` absent for nothing.
void setLink(EditSession& session, const Words& words, std::optional<UUID> itemID) {
  withList(words[0], [&]<class Record>(ListOf<Record>) {
    if constexpr (requires(Record record) { record.plotItemID; }) {
      const std::size_t place = placeOf<Record>(session.project(), words[1]);
      Record record = (session.project().*PlotList<Record>::member)[place];
      record.plotItemID = itemID;
      session.apply(replacingRecord(session.project(), place, std::move(record)));
    } else {
      throw LineError("only input, mix and equipment are shown by items, not " + words[0]);
    }
  });
}

template <class Record>
void renumber(EditSession& session, std::optional<std::int64_t> Record::*number,
              std::int64_t first) {
  List<Record> list = session.project().*PlotList<Record>::member;
  for (std::size_t i = 0; i < list.size(); ++i)
    list.edit(i).*number = first + static_cast<std::int64_t>(i);
  session.apply(PlotList<Record>::replacing(std::move(list)));
}

}  // namespace

void setFieldsOf(EditSession& session, const Words& words) {
  if (words.size() == 2) return setByPath(session, words[0], words[1]);
  const std::vector<std::string> lists = listWords();
  const bool isList = words.size() > 3 && std::ranges::count(lists, words[0]) > 0;
  if (!isList && words.size() % 2 == 1) return setItem(session, words[0], words, 1);
  withList(words[0], [&]<class Record>(ListOf<Record>) {
    if constexpr (std::is_same_v<Record, PlotItem>) {
      setItem(session, words[1], words, 2);
    } else {
      const std::size_t place = placeOf<Record>(session.project(), words[1]);
      Record record = (session.project().*PlotList<Record>::member)[place];
      setFields(record, words, 2, FieldWords(session.project()));
      session.apply(replacingRecord(session.project(), place, std::move(record)));
    }
  });
}

void addRecord(EditSession& session, const Words& words) {
  withList(words[0], [&]<class Record>(ListOf<Record>) {
    if constexpr (std::is_same_v<Record, PlotItem>) {
      addItem(session, words);
    } else {
      Record record = freshRecord<Record>(session.project(), session.environment());
      setFields(record, words, 1, FieldWords(session.project()));
      List<Record> list = session.project().*PlotList<Record>::member;
      list.push_back(std::move(record));
      session.apply(PlotList<Record>::replacing(std::move(list)));
    }
  });
}

void removeRecords(EditSession& session, const Words& words) {
  withList(words[0], [&]<class Record>(ListOf<Record>) {
    const Words names(words.begin() + 1, words.end());
    if constexpr (std::is_same_v<Record, PlotItem>)
      deleteItems(session, names);
    else if constexpr (std::is_same_v<Record, PlotLayer>)
      removeLayer(session, names);
    else if constexpr (std::is_same_v<Record, PlotGroup>)
      removeGroups(session, names);
    else
      removeFrom<Record>(session, words);
  });
}

void linkRecord(EditSession& session, const Words& words) {
  setLink(session, words, ItemNames(session.project()).item(words[2]).id);
}

void unlinkRecord(EditSession& session, const Words& words) {
  setLink(session, words, std::nullopt);
}

void renumberList(EditSession& session, const Words& words) {
  std::int64_t first = 1;
  if (words.size() > 1) {
    const std::optional<std::int64_t> given = wholeNumberIn(words[1]);
    if (!given || *given < 1 || *given > 1'000'000)
      throw LineError(inQuotes(words[1]) + " is no number to begin with");
    first = *given;
  }
  if (words[0] == PlotList<InputChannel>::word)
    renumber(session, &InputChannel::channel, first);
  else if (words[0] == PlotList<MonitorMix>::word)
    renumber(session, &MonitorMix::number, first);
  else
    throw LineError("there is no " + inQuotes(words[0]) + " among input, mix" +
                    suggestion(words[0], {"input", "mix"}));
}

void setStage(EditSession& session, const Words& words) {
  StageDefinition stage = session.project().stage;
  const FieldWords reader(session.project());
  setField(stage, "size.width", words[0], reader);
  setField(stage, "size.height", words[1], reader);
  if (words.size() > 2) setField(stage, "audienceEdge", words[2], reader);
  applyStage(session, std::move(stage));
}

void setPaper(EditSession& session, const Words& words) {
  ExportSettings settings = session.project().exportSettings;
  setField(settings, "paperSize", words[0], FieldWords(session.project()));
  applyExportSettings(session, settings);
}

}  // namespace korrin::host
