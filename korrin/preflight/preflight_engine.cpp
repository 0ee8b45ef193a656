#include "korrin/preflight/preflight_engine.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <tuple>
#include <utility>

#include "korrin/preflight/preflight_findings.h"
#include "korrin/preflight/stage_bounds.h"

namespace korrin::PreflightEngine {
namespace {

using findings::Finding;

// The values that stand more than once, each once and in ascending order.
std::vector<std::int64_t> repeatedValues(std::vector<std::int64_t> values) {
  std::sort(values.begin(), values.end());
  std::vector<std::int64_t> repeated;
  for (auto at = values.begin(); at != values.end();) {
    const auto end = std::upper_bound(at, values.end(), *at);
    if (end - at > 1) repeated.push_back(*at);
    at = end;
  }
  return repeated;
}

class Inspection {
 public:
  Inspection(const KorrinProject& project, const std::unordered_set<Text>& knownAssetIDs)
      : project_(project), knownAssetIDs_(knownAssetIDs) {
    itemIDs_.reserve(project.items.size());
    for (const PlotItem& item : project.items) itemIDs_.push_back(item.id);
    std::sort(itemIDs_.begin(), itemIDs_.end());
  }

  std::vector<PreflightIssue> run() && {
    checkRepeatedNumbers(project_.inputs, &InputChannel::channel, findings::repeatedChannel);
    checkRepeatedNumbers(project_.monitorMixes, &MonitorMix::number, findings::repeatedMix);
    for (const InputChannel& input : project_.inputs) {
      checkSource(input);
      checkPlacement(input, &findings::inputWithoutSymbol, findings::inputWithLostSymbol);
    }
    for (const MonitorMix& mix : project_.monitorMixes) {
      checkOutput(mix);
      checkPlacement(mix, &findings::mixWithoutSymbol, findings::mixWithLostSymbol);
    }
    for (const EquipmentRequirement& line : project_.equipmentRequirements) {
      checkQuantity(line);
      checkPlacement(line, nullptr, findings::equipmentWithLostSymbol);
    }
    for (const PlotItem& item : project_.items) {
      checkLabel(item);
      checkBounds(item);
      checkAsset(item);
    }
    return std::move(issues_);
  }

 private:
  // Every record whose number another record of its list carries too.
  template <class Record>
  void checkRepeatedNumbers(const List<Record>& records,
                            std::optional<std::int64_t> Record::*number, const Finding& finding) {
    std::vector<std::int64_t> numbers;
    for (const Record& record : records)
      if (record.*number) numbers.push_back(*(record.*number));
    const std::vector<std::int64_t> repeated = repeatedValues(std::move(numbers));
    for (const Record& record : records) {
      if (!(record.*number) ||
          !std::binary_search(repeated.begin(), repeated.end(), *(record.*number)))
        continue;
      report(finding, std::string(finding.title) + std::to_string(*(record.*number)),
             finding.detail, relatedItem(record), record.id);
    }
  }

  void checkSource(const InputChannel& input) {
    if (input.source.isBlank()) reportRecord(findings::inputWithoutSource, input);
  }

  void checkOutput(const MonitorMix& mix) {
    if (!mix.outputPatch.isBlank()) return;
    // A name of blanks is a name: only one without any characters is replaced.
    const std::string_view name = mix.name.empty() ? "this mix" : std::string_view(mix.name);
    const Finding& finding = findings::mixWithoutOutput;
    report(finding, finding.title, std::string(finding.detail).append(name) + ".", relatedItem(mix),
           mix.id);
  }

  void checkQuantity(const EquipmentRequirement& line) {
    if (line.quantity < 1) reportRecord(findings::equipmentWithoutQuantity, line);
  }

  // A record linked to no item (a finding unless `unplaced` is null), or to one that is gone.
  template <class Record>
  void checkPlacement(const Record& record, const Finding* unplaced, const Finding& lost) {
    const Finding* const finding = record.plotItemID ? &lost : unplaced;
    if (finding != nullptr && !relatedItem(record)) reportRecord(*finding, record);
  }

  void checkLabel(const PlotItem& item) {
    if (item.style.labelVisible && item.label.isBlank())
      reportItem(findings::symbolWithoutLabel, item);
  }

  void checkBounds(const PlotItem& item) {
    if (reachesBeyond(project_.stage.size, item)) reportItem(findings::symbolOffStage, item);
  }

  void checkAsset(const PlotItem& item) {
    if (knownAssetIDs_.empty() || knownAssetIDs_.contains(item.assetID) ||
        embeddedAssetIDs().contains(item.assetID))
      return;
    reportItem(findings::symbolWithoutAsset, item);
  }

  // Gathered when the first item asks, so that a long manifest is walked once and not once an item.
  const std::unordered_set<Text>& embeddedAssetIDs() {
    if (embeddedAssetIDs_.empty())
      for (const AssetManifestEntry& entry : project_.assetManifest)
        embeddedAssetIDs_.insert(entry.sha256);
    return embeddedAssetIDs_;
  }

  // The item that a record points at, when the project holds it.
  template <class Record>
  std::optional<UUID> relatedItem(const Record& record) const {
    return record.plotItemID &&
                   std::binary_search(itemIDs_.begin(), itemIDs_.end(), *record.plotItemID)
               ? record.plotItemID
               : std::nullopt;
  }

  template <class Record>
  void reportRecord(const Finding& finding, const Record& record) {
    report(finding, finding.title, finding.detail, relatedItem(record), record.id);
  }
  void reportItem(const Finding& finding, const PlotItem& item) {
    report(finding, finding.title, finding.detail, item.id, std::nullopt);
  }
  void report(const Finding& finding, Text title, Text detail, std::optional<UUID> relatedID,
              std::optional<UUID> recordID) {
    issues_.emplace_back(finding.rule, finding.severity, std::move(title), std::move(detail),
                         relatedID, recordID);
  }

  const KorrinProject& project_;
  const std::unordered_set<Text>& knownAssetIDs_;
  // In ascending order. A hash set would let a document with identifiers chosen to collide take
  // quadratic time.
  std::vector<UUID> itemIDs_;
  std::unordered_set<Text> embeddedAssetIDs_;
  std::vector<PreflightIssue> issues_;
};

// The most serious first, as severities are declared.
//
// Records that share an identifier make issues that differ in the related item only; without it,
// their places would be an accident of how the standard library sorts.
bool standsBefore(const PreflightIssue& a, const PreflightIssue& b) {
  if (a.severity != b.severity) return a.severity < b.severity;
  return std::tie(a.title, a.detail, a.id, a.relatedID) <
         std::tie(b.title, b.detail, b.id, b.relatedID);
}

}  // namespace

std::vector<PreflightIssue> inspect(const KorrinProject& project,
                                    const std::unordered_set<Text>& knownAssetIDs) {
  std::vector<PreflightIssue> issues = Inspection(project, knownAssetIDs).run();
  std::sort(issues.begin(), issues.end(), standsBefore);
  return issues;
}

}  // namespace korrin::PreflightEngine
