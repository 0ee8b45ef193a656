#include "korrin/preflight/preflight_engine.h"

#include <algorithm>
#include <compare>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "korrin/foundation/id_table.h"
#include "korrin/preflight/preflight_findings.h"
#include "korrin/preflight/stage_bounds.h"

namespace korrin::PreflightEngine {
namespace {

using findings::Finding;

// A finding before its texts are made, which waits until their order is known: most titles and
// details are then those of the finding before.
struct Note {
  const Finding* finding;
  std::uint32_t title;   // place among the completed texts, 0 for the finding's own
  std::uint32_t detail;  // likewise
  std::optional<UUID> relatedID;
  std::optional<UUID> recordID;

  const UUID& concerned() const { return recordID ? *recordID : *relatedID; }
};

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
      : project_(project), knownAssetIDs_(knownAssetIDs), itemIDs_(project.items.size()) {
    for (const PlotItem& item : project.items) itemIDs_.insert(item.id);
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
    std::sort(notes_.begin(), notes_.end(),
              [this](const Note& a, const Note& b) { return standsBefore(a, b); });
    return issues();
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
      notes_.push_back({&finding,
                        completed(std::string(finding.title) + std::to_string(*(record.*number))),
                        0, relatedItem(record), record.id});
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
    notes_.push_back({&finding, 0, completed(std::string(finding.detail).append(name) + "."),
                      relatedItem(mix), mix.id});
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
    if (!record.plotItemID || !itemIDs_.contains(*record.plotItemID)) return std::nullopt;
    return record.plotItemID;
  }

  template <class Record>
  void reportRecord(const Finding& finding, const Record& record) {
    notes_.push_back({&finding, 0, 0, relatedItem(record), record.id});
  }
  void reportItem(const Finding& finding, const PlotItem& item) {
    notes_.push_back({&finding, 0, 0, item.id, std::nullopt});
  }

  std::uint32_t completed(Text text) {
    completed_.push_back(std::move(text));
    return static_cast<std::uint32_t>(completed_.size());
  }
  std::strong_ordering compare(std::uint32_t a, std::string_view ownOfA, std::uint32_t b,
                               std::string_view ownOfB) const {
    if (a == 0 && b == 0) return ownOfA.compare(ownOfB) <=> 0;  // ASCII: the order of bytes
    if (a == 0) return ownOfA <=> completed_[b - 1];
    if (b == 0) return completed_[a - 1] <=> ownOfB;
    return completed_[a - 1] <=> completed_[b - 1];
  }

  // By severity, title, detail, id and related item. The most serious first, as severities are
  // declared.
  //
  // Records that share an identifier make issues that differ in the related item only; without it,
  // their places would be an accident of how the standard library sorts.
  bool standsBefore(const Note& a, const Note& b) const {
    const Finding& findingOfA = *a.finding;
    const Finding& findingOfB = *b.finding;
    if (&findingOfA != &findingOfB || a.title != b.title || a.detail != b.detail) {
      if (findingOfA.severity != findingOfB.severity)
        return findingOfA.severity < findingOfB.severity;
      const auto byTitle = compare(a.title, findingOfA.title, b.title, findingOfB.title);
      if (byTitle != 0) return byTitle < 0;
      const auto byDetail = compare(a.detail, findingOfA.detail, b.detail, findingOfB.detail);
      if (byDetail != 0) return byDetail < 0;
    }
    // An id is the rule's name and an identifier, whose texts have the order of its bytes. Rules do
    // not share a title, so the rule is the same.
    const auto byID = a.concerned() <=> b.concerned();
    return byID != 0 ? byID < 0 : a.relatedID < b.relatedID;
  }

  std::vector<PreflightIssue> issues() const {
    std::vector<PreflightIssue> result;
    result.reserve(notes_.size());
    const Finding* former = nullptr;
    Text title;
    Text detail;
    for (const Note& note : notes_) {
      const Finding& finding = *note.finding;
      if (&finding != former) {
        title = finding.title;
        detail = finding.detail;
        former = &finding;
      }
      result.emplace_back(
          finding.rule, finding.severity, note.title == 0 ? title : completed_[note.title - 1],
          note.detail == 0 ? detail : completed_[note.detail - 1], note.relatedID, note.recordID);
    }
    return result;
  }

  const KorrinProject& project_;
  const std::unordered_set<Text>& knownAssetIDs_;
  IDTable itemIDs_;
  std::unordered_set<Text> embeddedAssetIDs_;
  std::vector<Note> notes_;
  std::vector<Text> completed_;  // titles and details
};

}  // namespace

std::vector<PreflightIssue> inspect(const KorrinProject& project,
                                    const std::unordered_set<Text>& knownAssetIDs) {
  return Inspection(project, knownAssetIDs).run();
}

}  // namespace korrin::PreflightEngine
