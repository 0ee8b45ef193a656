#pragma once

// Validation, preflight and alignment as plain loops over vectors, with a hash set or a hash map
// where records are looked for. They answer as the library does for the plots of the benchmarks.

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "korrin/preflight/preflight_findings.h"

#include "benchmarks/support/mirror.h"

namespace korrin::benchmarks {

/// Whether no two records share an identifier. `id` is the member that holds it.
template <auto id, class Record>
bool haveDistinctIdentifiers(const std::vector<Record>& records) {
  std::unordered_set<UUID> ids;
  ids.reserve(records.size());
  return std::all_of(records.begin(), records.end(),
                     [&ids](const Record& record) { return ids.insert(field<id>(record)).second; });
}

inline bool isValid(const Mirror<KorrinProject>& project) {
  if (!haveDistinctIdentifiers<&PlotLayer::id>(field<&KorrinProject::layers>(project)) ||
      !haveDistinctIdentifiers<&PlotItem::id>(field<&KorrinProject::items>(project)) ||
      !haveDistinctIdentifiers<&PlotGroup::id>(field<&KorrinProject::groups>(project)) ||
      !haveDistinctIdentifiers<&InputChannel::id>(field<&KorrinProject::inputs>(project)) ||
      !haveDistinctIdentifiers<&MonitorMix::id>(field<&KorrinProject::monitorMixes>(project)) ||
      !haveDistinctIdentifiers<&EquipmentRequirement::id>(
          field<&KorrinProject::equipmentRequirements>(project)) ||
      !haveDistinctIdentifiers<&ProjectNote::id>(field<&KorrinProject::notes>(project)))
    return false;
  constexpr double limit = 1'000'000;
  const auto isExtent = [](const Mirror<StageSize>& size) {
    const double width = field<&StageSize::width>(size);
    const double height = field<&StageSize::height>(size);
    return width > 0 && width <= limit && height > 0 && height <= limit;
  };
  const auto& stage = field<&KorrinProject::stage>(project);
  const double spacing = field<&StageDefinition::gridSpacingMillimeters>(stage);
  if (!isExtent(field<&StageDefinition::size>(stage)) || !(spacing >= 0 && spacing <= limit))
    return false;
  const auto& items = field<&KorrinProject::items>(project);
  return std::all_of(items.begin(), items.end(), [&isExtent](const Mirror<PlotItem>& item) {
    const auto& position = field<&PlotItem::position>(item);
    const double scale = field<&PlotItemStyle::labelScale>(field<&PlotItem::style>(item));
    return isExtent(field<&PlotItem::size>(item)) &&
           std::fabs(field<&StagePoint::x>(position)) <= limit &&
           std::fabs(field<&StagePoint::y>(position)) <= limit &&
           std::isfinite(field<&PlotItem::rotationDegrees>(item)) && scale >= 0 && scale <= 100;
  });
}

/// A finding with texts of its own.
struct PlainIssue {
  std::string id;
  PreflightRule rule;
  PreflightSeverity severity;
  std::string title;
  std::string detail;
  std::optional<UUID> relatedID;
  std::optional<UUID> recordID;
};

class PlainInspection {
 public:
  PlainInspection(const Mirror<KorrinProject>& project,
                  const std::unordered_set<std::string>& knownAssetIDs)
      : project_(project), knownAssetIDs_(knownAssetIDs) {
    const auto& items = field<&KorrinProject::items>(project);
    itemIDs_.reserve(items.size());
    for (const auto& item : items) itemIDs_.insert(field<&PlotItem::id>(item));
    for (const auto& entry : field<&KorrinProject::assetManifest>(project))
      embeddedAssetIDs_.insert(field<&AssetManifestEntry::sha256>(entry));
  }

  std::vector<PlainIssue> run() && {
    const auto& inputs = field<&KorrinProject::inputs>(project_);
    const auto& mixes = field<&KorrinProject::monitorMixes>(project_);
    checkNumbers<&InputChannel::channel, &InputChannel::id, &InputChannel::plotItemID>(
        inputs, findings::repeatedChannel);
    checkNumbers<&MonitorMix::number, &MonitorMix::id, &MonitorMix::plotItemID>(
        mixes, findings::repeatedMix);
    for (const auto& input : inputs) {
      const UUID id = field<&InputChannel::id>(input);
      const auto& link = field<&InputChannel::plotItemID>(input);
      if (isBlank(field<&InputChannel::source>(input)))
        report(findings::inputWithoutSource, related(link), id);
      checkLink(link, id, &findings::inputWithoutSymbol, findings::inputWithLostSymbol);
    }
    for (const auto& mix : mixes) {
      const UUID id = field<&MonitorMix::id>(mix);
      const auto& link = field<&MonitorMix::plotItemID>(mix);
      if (isBlank(field<&MonitorMix::outputPatch>(mix)))
        report(findings::mixWithoutOutput, related(link), id, "",
               field<&MonitorMix::name>(mix) + ".");
      checkLink(link, id, &findings::mixWithoutSymbol, findings::mixWithLostSymbol);
    }
    for (const auto& line : field<&KorrinProject::equipmentRequirements>(project_)) {
      const UUID id = field<&EquipmentRequirement::id>(line);
      const auto& link = field<&EquipmentRequirement::plotItemID>(line);
      if (field<&EquipmentRequirement::quantity>(line) < 1)
        report(findings::equipmentWithoutQuantity, related(link), id);
      checkLink(link, id, nullptr, findings::equipmentWithLostSymbol);
    }
    for (const auto& item : field<&KorrinProject::items>(project_)) checkItem(item);
    std::sort(issues_.begin(), issues_.end(), [](const PlainIssue& a, const PlainIssue& b) {
      if (a.severity != b.severity) return rank(a.severity) < rank(b.severity);
      return std::tie(a.title, a.detail, a.id, a.relatedID) <
             std::tie(b.title, b.detail, b.id, b.relatedID);
    });
    return std::move(issues_);
  }

 private:
  static int rank(PreflightSeverity severity) {
    return severity == PreflightSeverity::error     ? 0
           : severity == PreflightSeverity::warning ? 1
                                                    : 2;
  }
  static bool isBlank(std::string_view text) {
    return text.find_first_not_of(" \t\n\r") == std::string_view::npos;
  }

  template <auto number, auto id, auto link, class Record>
  void checkNumbers(const std::vector<Record>& records, const findings::Finding& finding) {
    std::unordered_map<std::int64_t, int> counts;
    for (const Record& record : records)
      if (const auto& value = field<number>(record)) ++counts[*value];
    for (const Record& record : records)
      if (const auto& value = field<number>(record); value && counts[*value] > 1)
        report(finding, related(field<link>(record)), field<id>(record), std::to_string(*value));
  }

  void checkLink(const std::optional<UUID>& link, const UUID& id, const findings::Finding* unplaced,
                 const findings::Finding& lost) {
    if (link && !itemIDs_.contains(*link)) report(lost, std::nullopt, id);
    if (!link && unplaced != nullptr) report(*unplaced, std::nullopt, id);
  }

  void checkItem(const Mirror<PlotItem>& item) {
    const UUID id = field<&PlotItem::id>(item);
    const auto& position = field<&PlotItem::position>(item);
    const auto& size = field<&PlotItem::size>(item);
    const auto& stage = field<&StageDefinition::size>(field<&KorrinProject::stage>(project_));
    if (field<&PlotItemStyle::labelVisible>(field<&PlotItem::style>(item)) &&
        isBlank(field<&PlotItem::label>(item)))
      report(findings::symbolWithoutLabel, id, std::nullopt);
    if (field<&StageSize::width>(stage) <
            2 * std::fabs(field<&StagePoint::x>(position)) + field<&StageSize::width>(size) ||
        field<&StageSize::height>(stage) <
            2 * std::fabs(field<&StagePoint::y>(position)) + field<&StageSize::height>(size))
      report(findings::symbolOffStage, id, std::nullopt);
    const std::string& asset = field<&PlotItem::assetID>(item);
    if (!knownAssetIDs_.empty() && !knownAssetIDs_.contains(asset) &&
        !embeddedAssetIDs_.contains(asset))
      report(findings::symbolWithoutAsset, id, std::nullopt);
  }

  std::optional<UUID> related(const std::optional<UUID>& link) const {
    return link && itemIDs_.contains(*link) ? link : std::nullopt;
  }

  void report(const findings::Finding& finding, std::optional<UUID> relatedID,
              std::optional<UUID> recordID, const std::string& titleEnd = "",
              const std::string& detailEnd = "") {
    std::string detail = std::string(finding.detail) + detailEnd;
    const std::string concerned = recordID    ? recordID->text()
                                  : relatedID ? relatedID->text()
                                              : detail;
    issues_.push_back({.id = std::string(rawValue(finding.rule)) + ":" + concerned,
                       .rule = finding.rule,
                       .severity = finding.severity,
                       .title = std::string(finding.title) + titleEnd,
                       .detail = std::move(detail),
                       .relatedID = relatedID,
                       .recordID = recordID});
  }

  const Mirror<KorrinProject>& project_;
  const std::unordered_set<std::string>& knownAssetIDs_;
  std::unordered_set<UUID> itemIDs_;
  std::unordered_set<std::string> embeddedAssetIDs_;
  std::vector<PlainIssue> issues_;
};

using VectorItems = std::vector<Mirror<PlotItem>>;

inline double& horizontal(Mirror<PlotItem>& item) {
  return field<&StagePoint::x>(field<&PlotItem::position>(item));
}
inline double widthOf(const Mirror<PlotItem>& item) {
  return field<&StageSize::width>(field<&PlotItem::size>(item));
}

/// The items with their left edges on the leftmost one.
inline VectorItems alignedLeft(VectorItems items) {
  double left = horizontal(items.front()) - widthOf(items.front()) * 0.5;
  for (auto& item : items) left = std::min(left, horizontal(item) - widthOf(item) * 0.5);
  for (auto& item : items) horizontal(item) = left + widthOf(item) * 0.5;
  return items;
}

/// The items with equal distances between their centres.
inline VectorItems distributed(VectorItems items) {
  if (!haveDistinctIdentifiers<&PlotItem::id>(items)) return items;
  std::vector<Mirror<PlotItem>*> order;
  for (auto& item : items) order.push_back(&item);
  std::stable_sort(order.begin(), order.end(),
                   [](auto* a, auto* b) { return horizontal(*a) < horizontal(*b); });
  const double first = horizontal(*order.front());
  const double step = (horizontal(*order.back()) - first) / static_cast<double>(order.size() - 1);
  for (std::size_t i = 0; i < order.size(); ++i)
    horizontal(*order[i]) = first + step * static_cast<double>(i);
  return items;
}

}  // namespace korrin::benchmarks
