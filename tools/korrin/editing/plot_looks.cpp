#include "editing/plot_looks.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <optional>
#include <utility>

#include "korrin/coding/json.h"
#include "korrin/drawing/symbol_catalogue.h"
#include "korrin/preflight/preflight_engine.h"

#include "documents/document_file.h"
#include "editing/edit_session.h"
#include "editing/edit_words.h"
#include "editing/item_names.h"
#include "editing/plot_lists.h"
#include "findings/concern.h"
#include "findings/findings.h"
#include "findings/findings_table.h"
#include "terminal/display_text.h"
#include "terminal/text_table.h"
#include "terminal/words.h"

namespace korrin::host {
namespace {

using Words = EditCommand::Words;

std::string numberText(double value) {
  std::array<char, 32> digits{};
  return {digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr};
}

std::string positionText(const StagePoint& point) {
  return numberText(point.x) + ", " + numberText(point.y);
}

/// Values of fields as a table shows them. Items are called by their names.
struct CellTexts {
  const ItemNames& names;
  const KorrinProject& project;

  std::string of(const Text& value) const { return value.str(); }
  std::string of(bool value) const { return value ? "yes" : "no"; }
  std::string of(std::int64_t value) const { return std::to_string(value); }
  std::string of(const UUID& id) const {
    const auto item = std::ranges::find(project.items, id, &PlotItem::id);
    return item == project.items.end() ? id.text() : names.nameOf(*item);
  }
  std::string of(const List<UUID>& ids) const {
    constexpr std::size_t mostNamed = 6;
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < ids.size(); ++i)
      texts.push_back(i < mostNamed ? of(ids[i]) : std::string());
    return listed(texts, mostNamed);
  }
  template <class Value>
  std::string of(const std::optional<Value>& value) const {
    return value ? of(*value) : std::string();
  }
};

std::string upperCase(std::string_view text) {
  std::string result(text);
  std::ranges::transform(result, result.begin(),
                         [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
  return result;
}

void listItems(EditSession& session) {
  const KorrinProject& project = session.project();
  const ItemNames names(project);
  std::map<UUID, std::string> layers;
  for (const PlotLayer& layer : project.layers) layers.try_emplace(layer.id, layer.name.str());
  std::vector<TableRow> rows;
  for (const PlotItem& item : project.items) {
    const auto layer = layers.find(item.layerID);
    rows.push_back(
        {.cells = {names.nameOf(item), std::string(rawValue(item.kind)),
                   positionText(item.position), layer == layers.end() ? "" : layer->second,
                   names.obstacle(item).value_or("")}});
  }
  printTable(session.console().out, session.console().outTerminal,
             {.cells = {"ITEM", "KIND", "POSITION", "LAYER", "MAY NOT BE EDITED"}}, rows);
}

void listSymbols(EditSession& session) {
  std::vector<TableRow> rows;
  for (const Symbol& symbol : builtInSymbols())
    rows.push_back(
        {.cells = {std::string(symbol.name), std::string(symbol.assetID),
                   std::string(rawValue(symbol.kind)),
                   numberText(symbol.size.width) + " x " + numberText(symbol.size.height)}});
  printTable(session.console().out, session.console().outTerminal,
             {.cells = {"SYMBOL", "ASSET", "KIND", "MILLIMETRES"}}, rows);
}

/// All fields of the records but their identifiers.
template <class Record>
void listFields(EditSession& session) {
  const ItemNames names(session.project());
  const CellTexts texts{names, session.project()};
  TableRow head;
  forEachField<Record>([&](const auto& field) {
    if (field.key != "id") head.cells.push_back(upperCase(field.key));
  });
  std::vector<TableRow> rows;
  for (const Record& record : session.project().*PlotList<Record>::member) {
    TableRow row;
    forEachField<Record>([&](const auto& field) {
      if (field.key != "id") row.cells.push_back(texts.of(record.*field.member));
    });
    rows.push_back(std::move(row));
  }
  printTable(session.console().out, session.console().outTerminal, head, rows);
}

template <class Record>
void printRecord(std::ostream& out, const Record& record) {
  const std::string text = encodeJSON(record, {.prettyPrinted = true,
                                               .sortedKeys = false,
                                               .dates = DateStrategy::iso8601,
                                               .nonFinite = NonFinite::strings});
  for (std::string_view document = text; !document.empty();) {
    const std::size_t end = std::min(document.find('\n'), document.size());
    out << printable(document.substr(0, end)) << '\n';
    document.remove_prefix(std::min(end + 1, document.size()));
  }
}

template <class Record>
void printLinks(std::ostream& out, const List<Record>& records, const UUID& itemID) {
  for (const Record& record : records)
    if (record.plotItemID == itemID)
      out << "linked from " << printable(description(record)) << '\n';
}

void showItem(EditSession& session, const std::string& name) {
  const KorrinProject& project = session.project();
  const ItemNames names(project);
  const PlotItem& item = names.item(name);
  std::ostream& out = session.console().out;
  printRecord(out, item);
  printLinks(out, project.inputs, item.id);
  printLinks(out, project.monitorMixes, item.id);
  printLinks(out, project.equipmentRequirements, item.id);
  if (const auto reason = names.obstacle(item))
    out << "may not be edited: " << printable(*reason) << '\n';
}

/// Prints the texts of a record, and of the records inside it, that hold what is looked for.
class TextFinder {
 public:
  TextFinder(std::ostream& out, std::string_view text) : out_(out), text_(lowerCase(text)) {}

  template <class Record>
  void search(const std::string& place, const Record& record) {
    forEachField<Record>([&](const auto& field) {
      look(place + " " + std::string(field.key), record.*field.member);
    });
  }

  bool hasFound() const { return hasFound_; }

 private:
  void look(const std::string& place, const Text& value) {
    if (lowerCase(value.str()).find(text_) == std::string::npos) return;
    constexpr std::size_t longestValue = 80;
    out_ << printable(place) << ": " << shortened(printable(value.str()), longestValue) << '\n';
    hasFound_ = true;
  }
  void look(const std::string& place, const std::optional<Text>& value) {
    if (value) look(place, *value);
  }
  template <class Value>
  void look(const std::string& place, const Value& value) {
    if constexpr (RecordType<Value>) search(place, value);
  }

  std::ostream& out_;
  std::string text_;
  bool hasFound_ = false;
};

/// "input 7", "note Soundcheck", or the identifier where the record has no name.
template <class Record>
std::string calledIn(const Record& record) {
  std::optional<Text> called;
  std::apply([&](const auto... name) { ((called = called ? called : nameIn(record.*name)), ...); },
             PlotList<Record>::names);
  const auto identifier = std::get<0>(fieldsOf<Record>()).member;
  return std::string(PlotList<Record>::word) + " " +
         (called ? called->str() : identifierOf(record.*identifier));
}

}  // namespace

void listRecords(EditSession& session, const Words& words) {
  if (words.empty()) return listItems(session);
  if (words[0] == "symbols") return listSymbols(session);
  withList(words[0], [&]<class Record>(ListOf<Record>) {
    if constexpr (std::is_same_v<Record, PlotItem>)
      listItems(session);
    else
      listFields<Record>(session);
  });
}

void showRecord(EditSession& session, const Words& words) {
  std::ostream& out = session.console().out;
  const KorrinProject& project = session.project();
  if (words.empty()) {
    printRecord(out, project.metadata);
    printRecord(out, project.stage);
    printRecord(out, project.exportSettings);
    return;
  }
  if (words.size() == 1) return showItem(session, words[0]);
  withList(words[0], [&]<class Record>(ListOf<Record>) {
    if constexpr (std::is_same_v<Record, PlotItem>)
      showItem(session, words[1]);
    else
      printRecord(out, (project.*PlotList<Record>::member)[placeOf<Record>(project, words[1])]);
  });
}

void findText(EditSession& session, const Words& words) {
  const KorrinProject& project = session.project();
  TextFinder finder(session.console().out, words[0]);
  finder.search("plot", project.metadata);
  finder.search("stage", project.stage);
  forEachList([&]<class Record>(ListOf<Record>) {
    for (const Record& record : project.*PlotList<Record>::member)
      finder.search(calledIn(record), record);
  });
  if (!finder.hasFound()) throw LineError("nothing in the plot holds " + inQuotes(words[0]));
}

void preflightPlot(EditSession& session, const Words&) {
  FileFindings file{inputName(session.settings().file),
                    std::nullopt,
                    session.project(),
                    {},
                    session.settings().assets.notRunReason};
  file.issues = PreflightEngine::inspect(file.project, session.settings().assets.identifiers);
  printFindings(session.console().out, session.console().outTerminal, file.project, file.issues);
  session.console().out << summaryLine(file) << '\n';
}

}  // namespace korrin::host
