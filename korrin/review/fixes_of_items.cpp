// Symbols.

#include <cmath>
#include <span>

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
std::optional<Calling> onlyCalling(PlotLookup& plot, const UUID& item) {
  const std::span<const Link> links = plot.linksTo(item);
  // Inputs and mixes come first.
  const auto isCalling = [&](std::size_t i) {
    return i < links.size() &&
           (links[i].kind == Link::Kind::input || links[i].kind == Link::Kind::mix);
  };
  if (!isCalling(0) || isCalling(1)) return std::nullopt;
  const std::size_t place = links[0].place;
  if (links[0].kind == Link::Kind::input) {
    const InputChannel& input = plot.project().inputs[place];
    return Calling{input.source, "the source of " + nameOf(input, place)};
  }
  const MonitorMix& mix = plot.project().monitorMixes[place];
  return Calling{mix.name, "the name of " + nameOf(mix, place)};
}

}  // namespace

DocumentCommand replacingProject(KorrinProject project, const Environment& environment) {
  project.metadata.modifiedAt = environment.now();
  return DocumentCommand::replaceProject(std::move(project));
}

DocumentCommand replacingItem(const PlotLookup& plot, std::size_t index, PlotItem item,
                              const Environment& environment) {
  if (plot.ids().places(keyOf(&KorrinProject::items), item.id).size() == 1)
    return DocumentCommand::replaceItems({std::move(item)});
  KorrinProject changed = plot.project();
  changed.items.replace(index, std::move(item));
  return replacingProject(std::move(changed), environment);
}

std::optional<Fix> labelFromRow(PlotLookup& plot, std::size_t index,
                                const Environment& environment) {
  PlotItem item = plot.project().items[index];
  const std::optional<Calling> calling = onlyCalling(plot, item.id);
  if (!calling || calling->text.isBlank()) return std::nullopt;
  const std::string title =
      "Set the label of " + nameOf(item) + " to " + quoted(calling->text) + ", " + calling->title;
  item.label = calling->text;
  return Fix{.title = title, .command = replacingItem(plot, index, std::move(item), environment)};
}

std::optional<Fix> hiddenLabel(PlotLookup& plot, std::size_t index,
                               const Environment& environment) {
  PlotItem item = plot.project().items[index];
  const std::string title = "Hide the label of " + nameOf(item);
  item.style.labelVisible = false;
  return Fix{.title = title, .command = replacingItem(plot, index, std::move(item), environment)};
}

double nearestInside(double stageExtent, double position, double extent) {
  double distance = stageExtent * 0.5 - extent * 0.5;
  // The sum that is compared with the edge may round up: the finding must be gone in the arithmetic
  // that reports it.
  while (distance > 0 && reachesBeyond(stageExtent, distance, extent))
    distance = std::nextafter(distance, 0.0);
  return position < 0 && distance > 0 ? -distance : distance;
}

std::optional<Fix> moveTo(PlotLookup& plot, std::size_t index, StagePoint position,
                          const Environment& environment) {
  PlotItem item = plot.project().items[index];
  const std::string title = "Move " + nameOf(item) + " inside the stage, to x " +
                            revision::numberText(position.x) + " mm, y " +
                            revision::numberText(position.y) + " mm";
  item.position = position;
  return Fix{.title = title, .command = replacingItem(plot, index, std::move(item), environment)};
}

std::optional<Fix> moveInside(PlotLookup& plot, std::size_t index, const Environment& environment) {
  const StageSize& stage = plot.project().stage.size;
  const PlotItem& item = plot.project().items[index];
  if (!isFinite(stage) || !isFinite(item.position) || !isFinite(item.size)) return std::nullopt;
  if (item.size.width > stage.width || item.size.height > stage.height) return std::nullopt;
  StagePoint position = item.position;
  if (reachesBeyond(stage.width, position.x, item.size.width))
    position.x = nearestInside(stage.width, position.x, item.size.width);
  if (reachesBeyond(stage.height, position.y, item.size.height))
    position.y = nearestInside(stage.height, position.y, item.size.height);
  return moveTo(plot, index, position, environment);
}

}  // namespace korrin::fixes
