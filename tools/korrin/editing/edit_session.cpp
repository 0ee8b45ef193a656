#include "editing/edit_session.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <limits>
#include <optional>
#include <unordered_map>
#include <utility>

#include "korrin/coding/json.h"
#include "korrin/geometry/korrin_geometry.h"
#include "korrin/preflight/preflight_engine.h"
#include "korrin/validation/document_validation_error.h"

#include "documents/document_file.h"
#include "documents/plot_document.h"
#include "editing/edit_words.h"
#include "editing/item_names.h"
#include "findings/concern.h"
#include "findings/findings.h"
#include "findings/findings_table.h"
#include "terminal/display_text.h"
#include "terminal/text_table.h"
#include "terminal/words.h"

namespace korrin::host {
namespace {

constexpr std::size_t anyNumber = std::numeric_limits<std::size_t>::max();

/// The number of millimetres that a word says.
double millimeters(const std::string& word) {
  double value = 0;
  std::string_view digits = word;
  if (digits.starts_with('+')) digits.remove_prefix(1);
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error != std::errc() || end != digits.data() + digits.size() || !std::isfinite(value))
    throw LineError(inQuotes(word) + " is not a number of millimetres");
  return value;
}

std::string positionText(const StagePoint& point) {
  const auto text = [](double value) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return std::string(digits.data(), end);
  };
  return text(point.x) + ", " + text(point.y);
}

IDSet identifiersOf(const List<PlotItem>& items) {
  IDSet identifiers;
  for (const PlotItem& item : items) identifiers.insert(item.id);
  return identifiers;
}

std::string edgeNames() {
  std::vector<std::string> names;
  for (const ItemAlignment alignment : allCases<ItemAlignment>())
    if (alignment < ItemAlignment::distributeHorizontally) names.emplace_back(rawValue(alignment));
  return listed(names);
}

template <class Record>
void printLinks(std::ostream& out, const List<Record>& records, const UUID& itemID) {
  for (const Record& record : records)
    if (record.plotItemID == itemID)
      out << "linked from " << printable(description(record)) << '\n';
}

}  // namespace

struct EditSession::Command {
  std::string_view name;
  std::string_view arguments;
  std::string_view summary;
  std::size_t fewest;  // words after the name
  std::size_t most;
  void (EditSession::*carryOut)(const Words&);

  std::string use() const {
    return std::string(name) + (arguments.empty() ? "" : " ") + std::string(arguments);
  }
};

const std::vector<EditSession::Command>& EditSession::commands() {
  using S = EditSession;
  static const std::vector<Command> all = {
      {"list", "", "all items, by the names that commands take", 0, 0, &S::list},
      {"show", "ITEM", "one item with everything that is known of it", 1, 1, &S::show},
      {"align", "EDGE ITEM ITEM...", "put edges or centres on one line", 3, anyNumber, &S::align},
      {"distribute", "AXIS ITEM ITEM ITEM...", "give centres equal distances", 4, anyNumber,
       &S::distribute},
      {"move", "ITEM DX DY", "move by millimetres, right and down", 3, 3, &S::moveItem},
      {"delete", "ITEM...", "remove items and the links to them", 1, anyNumber, &S::deleteItems},
      {"group", "ITEM ITEM...", "make one group of items", 2, anyNumber, &S::group},
      {"label", "ITEM TEXT", "change the text beside an item", 2, 2, &S::label},
      {"undo", "", "take the last edit back", 0, 0, &S::undo},
      {"redo", "", "do it again", 0, 0, &S::redo},
      {"preflight", "", "what the plot still lacks or gets wrong", 0, 0, &S::preflight},
      {"save", "[FILE]", "write the plot back, or to another file", 0, 1, &S::save},
      {"help", "", "this list", 0, 0, &S::help},
      {"quit", "", "end without saving", 0, 0, &S::quit},
  };
  return all;
}

std::vector<Passage> editCommandsHelp() {
  std::vector<Row> rows;
  for (const EditSession::Command& command : EditSession::commands())
    rows.push_back({command.use(), std::string(command.summary)});
  return {{.heading = "Commands, one a line", .rows = rows},
          {.prose = "EDGE is one of " + edgeNames() +
                    "; AXIS is horizontally or vertically. ITEM is an identifier, or a label that "
                    "only one item has. Words with blanks stand in double quotes; # begins a "
                    "comment."}};
}

EditSession::EditSession(Settings settings, KorrinProject project, Console& console)
    : settings_(std::move(settings)), editor_(std::move(project)), console_(console) {}

void EditSession::run(std::string_view line) {
  Words words = wordsOf(line);
  if (words.empty()) return;
  wasWarned_ = std::exchange(hasWarned_, false);
  const auto command = std::ranges::find(commands(), words.front(), &Command::name);
  if (command == commands().end())
    throw LineError("there is no command " + inQuotes(words.front()) + "; help lists them");
  words.erase(words.begin());
  if (words.size() < command->fewest || words.size() > command->most)
    throw LineError("use: " + command->use());
  line_ = line.substr(line.find_first_not_of(" \t"));
  (this->*command->carryOut)(words);
}

void EditSession::list(const Words&) {
  const KorrinProject& project = editor_.project();
  const ItemNames names(project);
  std::unordered_map<UUID, std::string> layers;
  for (const PlotLayer& layer : project.layers) layers.try_emplace(layer.id, layer.name.str());
  std::vector<TableRow> rows;
  for (const PlotItem& item : project.items) {
    const auto layer = layers.find(item.layerID);
    rows.push_back(
        {.cells = {names.nameOf(item), std::string(rawValue(item.kind)),
                   positionText(item.position), layer == layers.end() ? "" : layer->second,
                   names.obstacle(item).value_or("")}});
  }
  printTable(console_.out, console_.outTerminal,
             {.cells = {"ITEM", "KIND", "POSITION", "LAYER", "MAY NOT BE EDITED"}}, rows);
}

void EditSession::show(const Words& words) {
  const KorrinProject& project = editor_.project();
  const ItemNames names(project);
  const PlotItem& item = names.item(words[0]);
  const std::string text = encodeJSON(item, {.prettyPrinted = true,
                                             .sortedKeys = false,
                                             .dates = DateStrategy::iso8601,
                                             .nonFinite = NonFinite::strings});
  for (std::string_view document = text; !document.empty();) {
    const std::size_t end = std::min(document.find('\n'), document.size());
    console_.out << printable(document.substr(0, end)) << '\n';
    document.remove_prefix(std::min(end + 1, document.size()));
  }
  printLinks(console_.out, project.inputs, item.id);
  printLinks(console_.out, project.monitorMixes, item.id);
  printLinks(console_.out, project.equipmentRequirements, item.id);
  if (const auto reason = names.obstacle(item))
    console_.out << "may not be edited: " << printable(*reason) << '\n';
}

void EditSession::align(const Words& words) {
  const std::optional<ItemAlignment> alignment = fromRawValue<ItemAlignment>(words[0]);
  if (!alignment || *alignment >= ItemAlignment::distributeHorizontally)
    throw LineError("there is no edge " + inQuotes(words[0]) + " among " + edgeNames());
  arrange(*alignment, Words(words.begin() + 1, words.end()));
}

void EditSession::distribute(const Words& words) {
  const bool isHorizontal = words[0] == "horizontally";
  if (!isHorizontal && words[0] != "vertically")
    throw LineError("there is no axis " + inQuotes(words[0]) + " among horizontally, vertically");
  arrange(
      isHorizontal ? ItemAlignment::distributeHorizontally : ItemAlignment::distributeVertically,
      Words(words.begin() + 1, words.end()));
}

void EditSession::arrange(ItemAlignment alignment, const Words& itemNames) {
  const List<PlotItem> items = ItemNames(editor_.project()).editableItems(itemNames);
  apply(DocumentCommand::replaceItems(KorrinGeometry::applying(alignment, items)));
}

void EditSession::moveItem(const Words& words) {
  PlotItem item = ItemNames(editor_.project()).editableItems({words[0]}).front();
  item.position.x += millimeters(words[1]);
  item.position.y += millimeters(words[2]);
  replace(std::move(item));
}

void EditSession::deleteItems(const Words& words) {
  apply(DocumentCommand::deleteItems(
      identifiersOf(ItemNames(editor_.project()).editableItems(words))));
}

void EditSession::group(const Words& words) {
  const IDSet selection = identifiersOf(ItemNames(editor_.project()).editableItems(words));
  const std::optional<DocumentCommand> command = editor_.project().groupingCommand(selection);
  if (!command) throw LineError("these items cannot be grouped");
  apply(*command);
}

void EditSession::label(const Words& words) {
  PlotItem item = ItemNames(editor_.project()).editableItems({words[0]}).front();
  item.label = words[1];
  replace(std::move(item));
}

void EditSession::replace(PlotItem item) {
  apply(DocumentCommand::replaceItems({std::move(item)}));
}

void EditSession::apply(const DocumentCommand& command) {
  const KorrinProject before = editor_.project();
  try {
    printChanges(editor_.apply(command, line_), before);
  } catch (const DocumentValidationError& error) {
    throw LineError(std::string("the plot would not be valid: ") + error.what());
  }
}

void EditSession::undo(const Words&) {
  const KorrinProject before = editor_.project();
  const std::optional<Editor::Step> step = editor_.undo();
  if (!step) throw LineError("there is nothing to undo");
  printStep("undone", *step, before);
}

void EditSession::redo(const Words&) {
  const KorrinProject before = editor_.project();
  const std::optional<Editor::Step> step = editor_.redo();
  if (!step) throw LineError("there is nothing to redo");
  printStep("done again", *step, before);
}

void EditSession::printStep(std::string_view verb, const Editor::Step& step,
                            const KorrinProject& before) {
  console_.out << verb << ": " << printable(step.title) << '\n';
  printChanges(step.changes, before);
}

void EditSession::printChanges(const ChangeSet& changes, const KorrinProject& before) {
  constexpr std::size_t mostNamed = 6;
  // The identifiers come in no order; the project's order is the one that people know.
  std::vector<std::string> named;
  IDSet left = changes.changedItemIDs;
  const auto take = [&](const KorrinProject& project, std::string_view remark) {
    const ItemNames names(project);
    for (const PlotItem& item : project.items)
      if (left.erase(item.id) > 0) named.push_back(names.nameOf(item) + std::string(remark));
  };
  take(editor_.project(), "");
  take(before, " (gone)");
  std::vector<std::string> parts;
  if (!named.empty()) {
    parts.push_back(std::to_string(named.size()) + (named.size() == 1 ? " item (" : " items (") +
                    listed(named, mostNamed) + ")");
  }
  if (changes.affectsTechnicalData) parts.push_back("technical data");
  if (changes.affectsDocumentStructure) parts.push_back("document structure");
  if (parts.empty()) parts.push_back("nothing");
  console_.out << "changed: " << printable(listed(parts)) << '\n';
}

void EditSession::preflight(const Words&) {
  FileFindings file{inputName(settings_.file),
                    std::nullopt,
                    editor_.project(),
                    {},
                    settings_.assets.notRunReason};
  file.issues = PreflightEngine::inspect(file.project, settings_.assets.identifiers);
  printFindings(console_.out, console_.outTerminal, file.project, file.issues);
  console_.out << summaryLine(file) << '\n';
}

void EditSession::save(const Words& words) {
  const std::string file = words.empty() ? settings_.file : words[0];
  if (file == standardStream) throw LineError("save needs a file: the plot came from a stream");
  try {
    requireReplaceable(file);
    replaceFile(file, encodeJSON(editor_.project(), settings_.encoding) + "\n");
  } catch (const Failure& failure) {
    throw LineError(file + ": " + failure.what(), failure.exitCode());
  }
  editor_.markSaved();
  console_.out << "saved: " << printable(file) << '\n';
}

void EditSession::help(const Words&) { console_.out << textOf(editCommandsHelp()); }

void EditSession::quit(const Words&) {
  if (settings_.isInteractive && editor_.isModified() && !wasWarned_) {
    hasWarned_ = true;
    throw LineError("there are unsaved changes; save them, or quit again to lose them");
  }
  isOver_ = true;
}

}  // namespace korrin::host
