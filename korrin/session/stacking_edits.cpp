#include <algorithm>
#include <cstddef>
#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "korrin/session/selected_items.h"
#include "korrin/session/structural_edits.h"

namespace korrin {
namespace {

// One item of a layer, lowest first.
struct Stacked {
  std::size_t place;  // in the project's items
  bool moves;
};
using LayerStack = std::vector<Stacked>;

LayerStack restacked(LayerStack stack, StackingMove move) {
  const auto moves = [](const Stacked& item) { return item.moves; };
  switch (move) {
    case StackingMove::toFront:
      std::stable_partition(stack.begin(), stack.end(), std::not_fn(moves));
      break;
    case StackingMove::toBack:
      std::stable_partition(stack.begin(), stack.end(), moves);
      break;
    // The next item that stays is a neighbour: those that move have made way already, or stand at
    // the end, where the ones behind them stay as well.
    case StackingMove::forward:
      for (std::size_t i = stack.size() - 1; i > 0; --i)
        if (stack[i - 1].moves && !stack[i].moves) std::swap(stack[i - 1], stack[i]);
      break;
    case StackingMove::backward:
      for (std::size_t i = 1; i < stack.size(); ++i)
        if (stack[i].moves && !stack[i - 1].moves) std::swap(stack[i - 1], stack[i]);
      break;
  }
  return stack;
}

}  // namespace

std::optional<DocumentCommand> stackingCommand(const KorrinProject& project, const IDSet& selection,
                                               StackingMove move, const Environment& environment) {
  const std::vector<std::size_t> selected = editablePlaces(project, selection);
  std::map<UUID, LayerStack> stacks;  // of the layers with an item that moves
  for (const std::size_t place : selected) stacks[project.items[place].layerID];
  if (stacks.empty()) return std::nullopt;
  std::size_t place = 0;
  for (const PlotItem& item : project.items) {
    if (const auto stack = stacks.find(item.layerID); stack != stacks.end())
      stack->second.push_back(
          {.place = place, .moves = std::binary_search(selected.begin(), selected.end(), place)});
    ++place;
  }

  List<PlotItem> items = project.items;
  bool anyMoves = false;
  for (const auto& [layerID, stack] : stacks) {
    const LayerStack next = restacked(stack, move);
    for (std::size_t i = 0; i < stack.size(); ++i) {
      if (next[i].place == stack[i].place) continue;
      items.replace(stack[i].place, project.items[next[i].place]);
      anyMoves = true;
    }
  }
  if (!anyMoves) return std::nullopt;
  KorrinProject next = project;
  next.items = std::move(items);
  next.metadata.modifiedAt = environment.now();
  return DocumentCommand::replaceProject(std::move(next));
}

}  // namespace korrin
