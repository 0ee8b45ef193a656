// Items and the layers that hold them.

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <set>

#include "korrin/foundation/ascii.h"
#include "korrin/preflight/stage_bounds.h"
#include "korrin/review/audit_rules.h"
#include "korrin/review/fix_rules.h"
#include "korrin/review/record_names.h"

namespace korrin::auditing {
namespace {

using names::nameOf;

constexpr double tolerance = 0.5;  // millimetres

// The layers that exist, and whether one with this identifier is visible.
std::map<UUID, bool> layersOf(const KorrinProject& project) {
  std::map<UUID, bool> isVisible;
  for (const PlotLayer& layer : project.layers) isVisible[layer.id] |= layer.isVisible;
  return isVisible;
}

bool hasUnencodableNumber(const PlotItem& item) {
  return item.riserHeightMillimeters && !std::isfinite(*item.riserHeightMillimeters);
}

bool isReadable(std::string_view tint) {
  if (tint.starts_with('#')) tint.remove_prefix(1);
  return (tint.size() == 6 || tint.size() == 8) &&
         std::all_of(tint.begin(), tint.end(), isHexDigit);
}

bool hasUnreadableTint(const PlotItem& item) {
  return item.style.tintHex && !isReadable(*item.style.tintHex);
}

// The extent of the box that encloses the turned item. Half turns change nothing, and quarter turns
// are exact.
StageSize turnedExtent(const PlotItem& item) {
  const double degrees = std::fmod(std::fabs(item.rotationDegrees), 180);
  const double width = std::fabs(item.size.width);
  const double height = std::fabs(item.size.height);
  if (degrees == 0) return {width, height};
  if (degrees == 90) return {height, width};
  const double angle = degrees * std::numbers::pi / 180;
  const double cosine = std::fabs(std::cos(angle));
  const double sine = std::sin(angle);
  return {width * cosine + height * sine, width * sine + height * cosine};
}

bool leaves(double stageExtent, double position, double extent) {
  return std::fabs(position) + extent * 0.5 - stageExtent * 0.5 > tolerance;
}

bool turnsOutside(const StageSize& stage, const PlotItem& item) {
  for (const double number : {stage.width, stage.height, item.position.x, item.position.y,
                              item.size.width, item.size.height, item.rotationDegrees})
    if (!std::isfinite(number)) return false;
  if (reachesBeyond(stage, item)) return false;
  const StageSize extent = turnedExtent(item);
  return leaves(stage.width, item.position.x, extent.width) ||
         leaves(stage.height, item.position.y, extent.height);
}

// A finding about each item for which the predicate holds.
template <class Predicate>
void report(AuditRule rule, const char* detail, const KorrinProject& project, Findings& findings,
            Predicate holds) {
  for (const PlotItem& item : project.items)
    if (holds(item))
      findings.push_back(finding(rule, detail, item.id.text(), {item.id}, std::nullopt));
}

// The place of the item that the finding is about: the first with its identifier and its fault.
template <class Predicate>
std::size_t faultyItem(const AuditFinding& finding, PlotLookup& plot, Predicate holds) {
  return *plot.firstWith(&KorrinProject::items, finding.itemIDs.front(), holds);
}

Fix replacing(PlotLookup& plot, std::size_t place, PlotItem item, std::string title,
              const Environment& environment) {
  return {.title = std::move(title),
          .command = fixes::replacingItem(plot, place, std::move(item), environment)};
}

}  // namespace

void missingLayers(const KorrinProject& project, Findings& findings) {
  const std::map<UUID, bool> layers = layersOf(project);
  report(AuditRule::missingLayer, "The layer of this symbol does not exist.", project, findings,
         [&](const PlotItem& item) { return !layers.contains(item.layerID); });
}

std::optional<Fix> firstLayer(PlotLookup& plot, const AuditFinding& finding,
                              const Environment& environment) {
  const KorrinProject& project = plot.project();
  if (project.layers.empty()) return std::nullopt;
  const std::size_t place = faultyItem(finding, plot, [&](const PlotItem& item) {
    return !plot.placeOf(&KorrinProject::layers, item.layerID);
  });
  PlotItem item = project.items[place];
  const PlotLayer& layer = project.layers.front();
  const std::string title = "Put " + nameOf(item) + " on the first layer, " + nameOf(layer);
  item.layerID = layer.id;
  return replacing(plot, place, std::move(item), title, environment);
}

void hiddenItems(const KorrinProject& project, Findings& findings) {
  const std::map<UUID, bool> layers = layersOf(project);
  std::map<UUID, List<UUID>> itemsOfHidden;
  std::set<UUID> seen;
  for (const PlotItem& item : project.items) {
    const auto layer = layers.find(item.layerID);
    if (layer == layers.end() || layer->second || !seen.insert(item.id).second) continue;
    itemsOfHidden[item.layerID].push_back(item.id);
  }
  for (const PlotLayer& layer : project.layers) {
    const auto items = itemsOfHidden.find(layer.id);
    if (items == itemsOfHidden.end()) continue;
    const std::size_t count = items->second.size();
    const std::string what = count == 1 ? "1 symbol" : std::to_string(count) + " symbols";
    findings.push_back(finding(
        AuditRule::hiddenItems,
        "The " + nameOf(layer) + " is hidden and holds " + what + " that will not be printed.",
        layer.id.text(), std::move(items->second), layer.id));
    itemsOfHidden.erase(items);  // one finding for layers that share an identifier
  }
}

std::optional<Fix> shownLayer(PlotLookup& plot, const AuditFinding& finding, const Environment&) {
  const std::size_t place = *plot.placeOf(&KorrinProject::layers, *finding.recordID);
  List<PlotLayer> layers = plot.project().layers;
  PlotLayer layer = layers[place];
  layer.isVisible = true;
  const std::string title = "Show the " + nameOf(layer);
  layers.replace(place, std::move(layer));
  return Fix{.title = title, .command = DocumentCommand::replaceLayers(std::move(layers))};
}

void unencodableNumbers(const KorrinProject& project, Findings& findings) {
  report(AuditRule::unencodableNumber, "The plot cannot be saved with this height.", project,
         findings, hasUnencodableNumber);
}

std::optional<Fix> noHeight(PlotLookup& plot, const AuditFinding& finding,
                            const Environment& environment) {
  const std::size_t place = faultyItem(finding, plot, hasUnencodableNumber);
  PlotItem item = plot.project().items[place];
  item.riserHeightMillimeters = std::nullopt;
  const std::string title = "Remove the riser height of " + nameOf(item);
  return replacing(plot, place, std::move(item), title, environment);
}

void rotatedOutsideStage(const KorrinProject& project, Findings& findings) {
  report(AuditRule::rotatedOutsideStage, "Move the symbol until its turned corners are inside.",
         project, findings,
         [&](const PlotItem& item) { return turnsOutside(project.stage.size, item); });
}

std::optional<Fix> turnedInside(PlotLookup& plot, const AuditFinding& finding,
                                const Environment& environment) {
  const StageSize& stage = plot.project().stage.size;
  const std::size_t place =
      faultyItem(finding, plot, [&](const PlotItem& item) { return turnsOutside(stage, item); });
  const PlotItem& item = plot.project().items[place];
  const StageSize extent = turnedExtent(item);
  if (!(extent.width <= stage.width) || !(extent.height <= stage.height)) return std::nullopt;
  StagePoint position = item.position;
  if (reachesBeyond(stage.width, position.x, extent.width))
    position.x = fixes::nearestInside(stage.width, position.x, extent.width);
  if (reachesBeyond(stage.height, position.y, extent.height))
    position.y = fixes::nearestInside(stage.height, position.y, extent.height);
  return fixes::moveTo(plot, place, position, environment);
}

void unreadableTints(const KorrinProject& project, Findings& findings) {
  report(AuditRule::unreadableTint, "Write six or eight hexadecimal digits.", project, findings,
         hasUnreadableTint);
}

std::optional<Fix> noTint(PlotLookup& plot, const AuditFinding& finding,
                          const Environment& environment) {
  const std::size_t place = faultyItem(finding, plot, hasUnreadableTint);
  PlotItem item = plot.project().items[place];
  item.style.tintHex = std::nullopt;
  const std::string title = "Remove the colour of " + nameOf(item);
  return replacing(plot, place, std::move(item), title, environment);
}

}  // namespace korrin::auditing
