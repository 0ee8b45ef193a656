#include "editing/item_edits.h"

#include <cmath>
#include <optional>
#include <utility>

#include "korrin/geometry/korrin_geometry.h"

#include "editing/edit_session.h"
#include "editing/edit_words.h"
#include "editing/field_words.h"
#include "editing/item_names.h"
#include "terminal/words.h"

namespace korrin::host {
namespace {

using Words = EditCommand::Words;

/// The number of `unit` that a word says.
double number(const std::string& word, std::string_view unit) {
  if (const std::optional<double> value = numberIn(word)) return *value;
  throw LineError(inQuotes(word) + " is not a number of " + std::string(unit));
}

List<PlotItem> editable(const EditSession& session, const Words& words, std::size_t first,
                        std::size_t last) {
  return ItemNames(session.project())
      .editableItems(Words(words.begin() + static_cast<std::ptrdiff_t>(first),
                           words.begin() + static_cast<std::ptrdiff_t>(last)));
}

/// Makes the same change of all items.
template <class Change>
void changeAll(EditSession& session, List<PlotItem> items, Change change) {
  for (std::size_t i = 0; i < items.size(); ++i) change(items.edit(i));
  session.apply(DocumentCommand::replaceItems(std::move(items)));
}

bool isHorizontal(const std::string& axis) {
  if (axis != "horizontally" && axis != "vertically")
    throw LineError("there is no axis " + inQuotes(axis) + " among horizontally, vertically" +
                    suggestion(axis, {"horizontally", "vertically"}));
  return axis == "horizontally";
}

void arrange(EditSession& session, ItemAlignment alignment, const Words& words) {
  const List<PlotItem> items = editable(session, words, 1, words.size());
  session.apply(DocumentCommand::replaceItems(KorrinGeometry::applying(alignment, items)));
}

std::vector<std::string> edges() {
  std::vector<std::string> names;
  for (const ItemAlignment alignment : allCases<ItemAlignment>())
    if (alignment < ItemAlignment::distributeHorizontally) names.emplace_back(rawValue(alignment));
  return names;
}

/// Locks change what may be edited: the items are not asked.
void setLock(EditSession& session, const Words& words, bool isLocked) {
  const ItemNames names(session.project());
  List<PlotItem> items;
  for (const std::string& word : words) {
    PlotItem item = names.item(word);
    item.isLocked = isLocked;
    items.push_back(std::move(item));
  }
  session.apply(DocumentCommand::replaceItems(std::move(items)));
}

}  // namespace

std::string edgeNames() { return listed(edges()); }

void alignItems(EditSession& session, const Words& words) {
  const std::optional<ItemAlignment> alignment = fromRawValue<ItemAlignment>(words[0]);
  if (!alignment || *alignment >= ItemAlignment::distributeHorizontally)
    throw LineError("there is no edge " + inQuotes(words[0]) + " among " + edgeNames() +
                    suggestion(words[0], edges()));
  arrange(session, *alignment, words);
}

void distributeItems(EditSession& session, const Words& words) {
  arrange(session,
          isHorizontal(words[0]) ? ItemAlignment::distributeHorizontally
                                 : ItemAlignment::distributeVertically,
          words);
}

void moveItems(EditSession& session, const Words& words) {
  const std::size_t count = words.size() - 2;
  List<PlotItem> items = editable(session, words, 0, count);
  const double dx = number(words[count], "millimetres");
  const double dy = number(words[count + 1], "millimetres");
  changeAll(session, std::move(items), [&](PlotItem& item) {
    item.position.x += dx;
    item.position.y += dy;
  });
}

void rotateItems(EditSession& session, const Words& words) {
  const std::size_t count = words.size() - 1;
  List<PlotItem> items = editable(session, words, 0, count);
  const double turn = number(words[count], "degrees");
  changeAll(session, std::move(items), [&](PlotItem& item) { item.rotationDegrees += turn; });
}

void resizeItems(EditSession& session, const Words& words) {
  const std::size_t count = words.size() - 2;
  List<PlotItem> items = editable(session, words, 0, count);
  const StageSize size = {.width = number(words[count], "millimetres"),
                          .height = number(words[count + 1], "millimetres")};
  changeAll(session, std::move(items), [&](PlotItem& item) { item.size = size; });
}

void flipItems(EditSession& session, const Words& words) {
  const bool horizontally = isHorizontal(words[0]);
  changeAll(session, editable(session, words, 1, words.size()), [&](PlotItem& item) {
    bool& isFlipped = horizontally ? item.isFlippedHorizontally : item.isFlippedVertically;
    isFlipped = !isFlipped;
  });
}

void lockItems(EditSession& session, const Words& words) { setLock(session, words, true); }
void unlockItems(EditSession& session, const Words& words) { setLock(session, words, false); }

void deleteItems(EditSession& session, const Words& words) {
  session.apply(
      DocumentCommand::deleteItems(identifiersOf(editable(session, words, 0, words.size()))));
}

void groupItems(EditSession& session, const Words& words) {
  const IDSet selection = identifiersOf(editable(session, words, 0, words.size()));
  const std::optional<DocumentCommand> command = session.project().groupingCommand(selection);
  if (!command) throw LineError("these items cannot be grouped");
  session.apply(*command);
}

void labelItem(EditSession& session, const Words& words) {
  changeAll(session, editable(session, words, 0, 1),
            [&](PlotItem& item) { item.label = words[1]; });
}

}  // namespace korrin::host
