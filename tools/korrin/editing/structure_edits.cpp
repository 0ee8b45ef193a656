#include "editing/structure_edits.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "korrin/coding/json.h"
#include "korrin/model/document_coding.h"
#include "korrin/session/structural_edits.h"

#include "documents/document_file.h"
#include "editing/edit_session.h"
#include "editing/edit_words.h"
#include "editing/field_words.h"
#include "editing/item_names.h"
#include "editing/plot_lists.h"
#include "terminal/display_text.h"
#include "terminal/similar_file.h"

namespace korrin::host {
namespace {

using Words = EditCommand::Words;

StagePoint offsetOf(const std::string& dx, const std::string& dy) {
  const std::optional<double> x = numberIn(dx);
  const std::optional<double> y = numberIn(dy);
  if (!x || !y) throw LineError(inQuotes(x ? dy : dx) + " is not a number of millimetres");
  return {.x = *x, .y = *y};
}

/// The items with these names, which may all be edited.
IDSet selected(const EditSession& session, const Words& words) {
  return identifiersOf(ItemNames(session.project()).editableItems(words));
}

/// The items with these names, locked or not.
IDSet named(const EditSession& session, const Words& words) {
  const ItemNames names(session.project());
  IDSet identifiers;
  for (const std::string& word : words) identifiers.insert(names.item(word).id);
  return identifiers;
}

void applyIfAny(EditSession& session, const std::optional<DocumentCommand>& command,
                std::string_view otherwise) {
  if (!command) throw LineError(std::string(otherwise));
  session.apply(*command);
}

/// The same where things may be as they are wanted, which ends no script.
void applyUnlessDone(EditSession& session, const std::optional<DocumentCommand>& command,
                     std::string_view otherwise) {
  if (command)
    session.apply(*command);
  else
    session.console().out << "changed: nothing: " << otherwise << '\n';
}

void restack(EditSession& session, const Words& words, StackingMove move) {
  applyUnlessDone(
      session,
      stackingCommand(session.project(), selected(session, words), move, session.environment()),
      "the order is like this");
}

/// The fragment that `copy` wrote into a file.
PlotFragment fragmentIn(const std::string& file) {
  try {
    return decodeJSON<PlotFragment>(readFile(file));
  } catch (const DecodingError& error) {
    throw LineError(inputName(file) + ": is not what copy writes: " + error.what());
  } catch (const Failure& failure) {
    throw LineError(inputName(file) + ": " + failure.what() + similarFileSuggestion(file));
  }
}

bool isPlot(const std::string& bytes) {
  try {
    peekVersions(bytes);
    return true;
  } catch (const DecodingError&) {
    return false;
  }
}

/// A slip of the hand must not lose a plot.
void writeFragment(const std::string& file, const PlotFragment& fragment) {
  try {
    const std::optional<std::string> bytes = readFileIfPresent(file);
    if (bytes && isPlot(*bytes)) throw FileError("is a plot and is not replaced by copied items");
    replaceFile(file, encodeJSON(fragment) + "\n");
  } catch (const Failure& failure) {
    throw LineError(file + ": " + failure.what());
  }
}

}  // namespace

void duplicateItems(EditSession& session, const Words& words) {
  const StagePoint by = offsetOf(words[words.size() - 2], words[words.size() - 1]);
  const std::optional<Paste> paste =
      duplicatingCommand(session.project(), named(session, Words(words.begin(), words.end() - 2)),
                         by, session.environment());
  if (!paste) throw LineError("there is nothing to duplicate");
  session.apply(paste->command);
}

void ungroupItems(EditSession& session, const Words& words) {
  applyIfAny(session, ungroupingCommand(session.project(), selected(session, words)),
             "no group of these items can be dissolved");
}

void bringToFront(EditSession& session, const Words& words) {
  restack(session, words, StackingMove::toFront);
}
void bringForward(EditSession& session, const Words& words) {
  restack(session, words, StackingMove::forward);
}
void sendBackward(EditSession& session, const Words& words) {
  restack(session, words, StackingMove::backward);
}
void sendToBack(EditSession& session, const Words& words) {
  restack(session, words, StackingMove::toBack);
}

void putOnLayer(EditSession& session, const Words& words) {
  const PlotLayer& layer =
      session.project().layers[placeOf<PlotLayer>(session.project(), words[0])];
  if (layer.isLocked) throw LineError("the layer " + inQuotes(words[0]) + " is locked");
  applyUnlessDone(
      session,
      layerAssigningCommand(session.project(),
                            selected(session, Words(words.begin() + 1, words.end())), layer.id),
      printable("these items are on the layer " + inQuotes(words[0])));
}

void removeLayer(EditSession& session, const Words& words) {
  const KorrinProject& project = session.project();
  if (words.size() > 2) throw LineError("use: remove layer LAYER [LAYER]");
  const UUID layer = project.layers[placeOf<PlotLayer>(project, words[0])].id;
  std::optional<UUID> target;
  if (words.size() > 1) target = project.layers[placeOf<PlotLayer>(project, words[1])].id;
  const auto isOnLayer = [&](const PlotItem& item) { return item.layerID == layer; };
  if (!target && std::ranges::any_of(project.items, isOnLayer))
    throw LineError("items are on the layer " + inQuotes(words[0]) +
                    "; name the layer that takes them behind it, or remove them first");
  applyIfAny(session, layerDeletingCommand(project, layer, target),
             "the layer " + inQuotes(words[0]) +
                 " cannot be removed: it is the last one, or it, an item on it or the layer that "
                 "takes them is locked");
}

void removeGroups(EditSession& session, const Words& words) {
  const KorrinProject& project = session.project();
  const ItemNames names(project);
  List<PlotGroup> groups = project.groups;
  List<PlotItem> items;
  for (const std::string& word : words) {
    const UUID group = project.groups[placeOf<PlotGroup>(project, word)].id;
    groups.eraseIf([&](const PlotGroup& each) { return each.id == group; });
    for (const PlotItem& item : project.items) {
      if (item.groupID != group) continue;
      if (const auto obstacle = names.obstacle(item))
        throw LineError(inQuotes(names.nameOf(item)) + " " + *obstacle);
      PlotItem ungrouped = item;
      ungrouped.groupID.reset();
      items.push_back(std::move(ungrouped));
    }
  }
  session.apply(DocumentCommand::compound({DocumentCommand::replaceItems(std::move(items)),
                                           DocumentCommand::replaceGroups(std::move(groups))}));
}

void copyItems(EditSession& session, const Words& words) {
  Words names = words;
  std::optional<std::string> file;
  if (names.size() > 2 && names[names.size() - 2] == "to") {
    file = names.back();
    names.resize(names.size() - 2);
  }
  PlotFragment fragment = fragmentOf(session.project(), named(session, names));
  const std::size_t count = fragment.items.size();
  if (file) writeFragment(*file, fragment);
  session.setClipboard(std::move(fragment));
  session.console().out << "copied: " << count << (count == 1 ? " item" : " items") << '\n';
}

void pasteItems(EditSession& session, const Words& words) {
  std::size_t first = 0;
  PlotFragment fragment = session.clipboard();
  if (words.size() >= 2 && words[0] == "from") {
    fragment = fragmentIn(words[1]);
    first = 2;
  }
  if (words.size() - first != 0 && words.size() - first != 2)
    throw LineError("use: paste [from FILE] [DX DY]");
  PasteOptions options;
  if (words.size() > first) options.offset = offsetOf(words[first], words[first + 1]);
  const std::optional<Paste> paste =
      pastingCommand(session.project(), fragment, options, session.environment());
  if (!paste) throw LineError("there is nothing to paste: copy items first");
  session.apply(paste->command);
}

}  // namespace korrin::host
