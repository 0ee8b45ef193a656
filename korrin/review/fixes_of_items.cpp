// Symbols.

#include <algorithm>
#include <cmath>

#include "korrin/preflight/stage_bounds.h"
#include "korrin/review/fix_rules.h"
#include "korrin/review/record_names.h"
#include "korrin/review/words.h"

namespace korrin::fixes {
namespace {

using names::nameOf;
using revision::quoted;

bool isFinite(const StagePoint& point) { return std::isfinite(point.x) && std::isfinite(point.y); }
bool isFinite(const StageSize& size) {
  return std::isfinite(size.width) && std::isfinite(size.height);
}

// What the only row that links to the item calls it, and the row's own name; nothing when there is
// no such row or more than one.
struct Calling {
  Text text;
  std::string title;
};
std::optional<Calling> onlyCalling(const KorrinProject& project, const UUID& item) {
  std::optional<Calling> only;
  std::size_t count = 0;
  for (std::size_t i = 0; const InputChannel& input : project.inputs) {
    if (input.plotItemID == item && ++count == 1)
      only = Calling{input.source, "the source of " + nameOf(input, i)};
    ++i;
  }
  for (std::size_t i = 0; const MonitorMix& mix : project.monitorMixes) {
    if (mix.plotItemID == item && ++count == 1)
      only = Calling{mix.name, "the name of " + nameOf(mix, i)};
    ++i;
  }
  return count == 1 ? only : std::nullopt;
}

}  // namespace

DocumentCommand replacingProject(KorrinProject project, const Environment& environment) {
  project.metadata.modifiedAt = environment.now();
  return DocumentCommand::replaceProject(std::move(project));
}

DocumentCommand replacingItem(const KorrinProject& project, std::size_t index, PlotItem item,
                              const Environment& environment) {
  const auto count = std::count_if(project.items.begin(), project.items.end(),
                                   [&](const PlotItem& other) { return other.id == item.id; });
  if (count == 1) return DocumentCommand::replaceItems({std::move(item)});
  KorrinProject changed = project;
  changed.items.replace(index, std::move(item));
  return replacingProject(std::move(changed), environment);
}

std::optional<Fix> labelFromRow(const KorrinProject& project, std::size_t index,
                                const Environment& environment) {
  PlotItem item = project.items[index];
  const std::optional<Calling> calling = onlyCalling(project, item.id);
  if (!calling || calling->text.isBlank()) return std::nullopt;
  const std::string title =
      "Set the label of " + nameOf(item) + " to " + quoted(calling->text) + ", " + calling->title;
  item.label = calling->text;
  return Fix{.title = title,
             .command = replacingItem(project, index, std::move(item), environment)};
}

std::optional<Fix> hiddenLabel(const KorrinProject& project, std::size_t index,
                               const Environment& environment) {
  PlotItem item = project.items[index];
  const std::string title = "Hide the label of " + nameOf(item);
  item.style.labelVisible = false;
  return Fix{.title = title,
             .command = replacingItem(project, index, std::move(item), environment)};
}

double nearestInside(double stageExtent, double position, double extent) {
  double distance = stageExtent * 0.5 - extent * 0.5;
  // The sum that is compared with the edge may round up: the finding must be gone in the arithmetic
  // that reports it.
  while (distance > 0 && reachesBeyond(stageExtent, distance, extent))
    distance = std::nextafter(distance, 0.0);
  return position < 0 && distance > 0 ? -distance : distance;
}

std::optional<Fix> moveTo(const KorrinProject& project, std::size_t index, StagePoint position,
                          const Environment& environment) {
  PlotItem item = project.items[index];
  const std::string title = "Move " + nameOf(item) + " inside the stage, to x " +
                            revision::numberText(position.x) + " mm, y " +
                            revision::numberText(position.y) + " mm";
  item.position = position;
  return Fix{.title = title,
             .command = replacingItem(project, index, std::move(item), environment)};
}

std::optional<Fix> moveInside(const KorrinProject& project, std::size_t index,
                              const Environment& environment) {
  const StageSize& stage = project.stage.size;
  const PlotItem& item = project.items[index];
  if (!isFinite(stage) || !isFinite(item.position) || !isFinite(item.size)) return std::nullopt;
  if (item.size.width > stage.width || item.size.height > stage.height) return std::nullopt;
  StagePoint position = item.position;
  if (reachesBeyond(stage.width, position.x, item.size.width))
    position.x = nearestInside(stage.width, position.x, item.size.width);
  if (reachesBeyond(stage.height, position.y, item.size.height))
    position.y = nearestInside(stage.height, position.y, item.size.height);
  return moveTo(project, index, position, environment);
}

}  // namespace korrin::fixes
